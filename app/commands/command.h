/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef COMMAND_H
#define COMMAND_H

#include <KLazyLocalizedString>

#include <QCommandLineOption>
#include <QList>
#include <QString>

class QCommandLineParser;

/** What the process reports to its caller. */
enum ExitStatus {
    Success = 0,
    Failure = 1,
    UsageError = 2,
    /** Files that are needed cannot be read. */
    Unreadable = 3,
};

/** A word of the command line and what it does. */
struct Command {
    enum class Interface { Terminal, Window };

    const char *name;
    /** The word that follows the name: none, one that must be there ("NAME") or may be ("[FILE]"). */
    const char *operand;
    KLazyLocalizedString summary;
    Interface interface;
    QList<QCommandLineOption> (*options)();
    /** Does the work and returns the exit status; @p operand is null when it was left out. */
    int (*run)(const QCommandLineParser &options, const QString &operand);
};

/** For commands without options. */
QList<QCommandLineOption> noOptions();

/** --help, which every command has. */
QCommandLineOption helpOption();

/** Parses @p arguments, the whole command line, for @p command and runs it. */
int run(const Command &command, const QStringList &arguments);

/** Writes @p text to standard output; Failure, with a message, when that is not possible. */
int print(const QByteArray &text);
int print(const QString &text);

/** Writes a message to standard error, as one line and with nothing in it that could steer a terminal. */
void printError(const QString &message);

/** Writes a message to standard error; Failure. */
int failure(const QString &message);

/** Says what is wrong with the command line, and where help is. */
int usageError(const QString &message);

#endif

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

/** The exit status of the process. */
enum ExitStatus {
    Success = 0,
    Failure = 1,
    UsageError = 2,
    /** Files that are needed could not be read. */
    Unreadable = 3,
};

/** A word of the command line and what it does. */
struct Command {
    enum class Interface { Terminal, Window };

    const char *name;
    /** The operands: none, a required one ("NAME"), an optional one ("[FILE]"), or several
     * ("[NAME...]"). */
    const char *operand;
    KLazyLocalizedString summary;
    Interface interface;
    QList<QCommandLineOption> (*options)();
    /** Does the work and returns the exit status; @p operand is the first one, null when there is none. */
    int (*run)(const QCommandLineParser &options, const QString &operand);
    /** An option that has to be given; empty for none. */
    QString requiredOption = {};
};

/** For commands without options. */
QList<QCommandLineOption> noOptions();

/** The name of the option --json, which several commands have. */
QString jsonOption();

/** --help, which every command has. */
QCommandLineOption helpOption();

/**
 * Parses @p arguments, the whole command line, for @p command and runs it. Without @p hasDisplay, a
 * command that needs a window checks its arguments and then fails.
 */
int run(const Command &command, const QStringList &arguments, bool hasDisplay);

/** Reports that no window can be opened; Failure. */
int displayFailure();

/** The help of @p parser, with @p usage as the words that follow the name of the program. */
QString helpText(const QCommandLineParser &parser, const QString &usage);

/** Writes @p text to standard output; Failure, with a message, when that is not possible. */
int print(const QByteArray &text);
int print(const QString &text);

/** Writes a message to standard error, as one line and without characters that could control a terminal. */
void printError(const QString &message);

/** Writes a message to standard error; Failure. */
int failure(const QString &message);

/** Reports an error in the command line, with the command and where to find help; UsageError. */
int usageError(const QString &message);

/** Reports what @p parser does not understand; UsageError. */
int usageError(const QCommandLineParser &parser);

#endif

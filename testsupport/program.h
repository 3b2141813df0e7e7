/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PROGRAM_H
#define PROGRAM_H

#include <QByteArray>
#include <QProcessEnvironment>
#include <QStringList>

/** Runs ormel-users and other programs and waits for their end. */
namespace Program
{
struct Result {
    /** The exit status; -1 if the program could not be started, crashed or took over a minute. */
    int status = -1;
    QByteArray output;
    QByteArray errors;
};

/** The path of ormel-users. */
QString path();

/** The path of another program or library of the build. */
QString builtFile(const QString &name);

/** The environment of the test with the additional @p variables ("NAME=value"). */
QProcessEnvironment environment(const QStringList &variables);

/** Runs ormel-users with @p input on its standard input. */
Result run(const QStringList &arguments, const QByteArray &input = {});

/** Runs @p program with @p variables set in its environment. */
Result run(const QString &program,
           const QStringList &arguments,
           const QByteArray &input = {},
           const QStringList &variables = {});

/** The lines of an output that are not empty. */
QStringList lines(const QByteArray &output);
}

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef RUNPROGRAM_H
#define RUNPROGRAM_H

#include <QByteArray>
#include <QString>
#include <QStringList>

/** What a program left behind. */
struct ProgramResult {
    /** -1 when it crashed or did not start. */
    int exitStatus = -1;
    QByteArray output;
    QByteArray errors;
};

/** Runs @p program to its end; @p variables ("NAME=value") are set in its environment. */
ProgramResult runProgram(const QString &program,
                         const QStringList &arguments,
                         const QByteArray &input = {},
                         const QStringList &variables = {});

/** The path of a program or library that is built here. */
QString builtFile(const QString &name);

#endif

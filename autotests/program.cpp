/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "program.h"

#include <QProcess>

QString Program::path()
{
    return QStringLiteral(ORMEL_USERS);
}

Program::Result Program::run(const QStringList &arguments, const QByteArray &input)
{
    return run(path(), arguments, input);
}

Program::Result Program::run(const QString &program, const QStringList &arguments, const QByteArray &input)
{
    QProcess process;
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    const bool finished = process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit;
    return {finished ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

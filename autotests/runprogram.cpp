/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "runprogram.h"

#include <QCoreApplication>
#include <QProcess>

ProgramResult
runProgram(const QString &program, const QStringList &arguments, const QByteArray &input, const QStringList &variables)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &variable : variables) {
        environment.insert(variable.section(QLatin1Char('='), 0, 0), variable.section(QLatin1Char('='), 1));
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    const bool ended = process.waitForFinished() && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

QString builtFile(const QString &name)
{
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') + name;
}

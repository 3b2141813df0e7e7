/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "program.h"
#include "patience.h"

#include <QCoreApplication>
#include <QProcess>

QString Program::path()
{
    return builtFile(QStringLiteral("ormel-users"));
}

QString Program::builtFile(const QString &name)
{
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') + name;
}

QProcessEnvironment Program::environment(const QStringList &variables)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &variable : variables) {
        environment.insert(variable.section(QLatin1Char('='), 0, 0), variable.section(QLatin1Char('='), 1));
    }
    return environment;
}

Program::Result Program::run(const QStringList &arguments, const QByteArray &input)
{
    return run(path(), arguments, input);
}

Program::Result Program::run(const QString &program,
                             const QStringList &arguments,
                             const QByteArray &input,
                             const QStringList &variables)
{
    QProcess process;
    process.setProcessEnvironment(environment(variables));
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    const bool finished = process.waitForFinished(patience) && process.exitStatus() == QProcess::NormalExit;
    return {finished ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

QStringList Program::lines(const QByteArray &output)
{
    return QString::fromUtf8(output).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

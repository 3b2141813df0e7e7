/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "children.h"

#include <QCoreApplication>
#include <QProcess>

#include <sys/resource.h>

namespace
{
double secondsOfChildren()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}
}

QString Children::builtFile(const QString &directory, const QString &name)
{
    return QStringLiteral("%1/../%2/%3").arg(QCoreApplication::applicationDirPath(), directory, name);
}

QByteArray Children::outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments, QIODevice::ReadOnly);
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        qFatal("%s failed: %s", qPrintable(program), process.readAllStandardError().constData());
    }
    return process.readAllStandardOutput();
}

double Children::secondsOf(const QString &program, const QStringList &arguments)
{
    const double start = secondsOfChildren();
    outputOf(program, arguments);
    return secondsOfChildren() - start;
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "children.h"

#include "processortime.h"

#include <QProcess>

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
    const double start = processorSeconds(RUSAGE_CHILDREN);
    outputOf(program, arguments);
    return processorSeconds(RUSAGE_CHILDREN) - start;
}

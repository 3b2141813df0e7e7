/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "peakmemory.h"

#include <QFile>

void PeakMemory::reset()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (!file.open(QIODevice::WriteOnly) || file.write("5") != 1 || !file.flush()) {
        qFatal("The peak of the memory cannot be reset");
    }
}

qint64 PeakMemory::bytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
        const QList<QByteArray> lines = status.readAll().split('\n');
        for (const QByteArray &line : lines) {
            if (line.startsWith("VmHWM:")) {
                return line.mid(6).replace("kB", "").trimmed().toLongLong() * 1024;
            }
        }
    }
    qFatal("The peak of the memory is unknown");
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

// Prints how many bytes listing the users adds to the peak of the memory.

#include "peakmemory.h"

#include <UserInfo>

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    PeakMemory::reset();
    const qint64 before = PeakMemory::bytes();
    const QList<UserInfo> users = UserInfo::getUsers();
    QTextStream(stdout) << PeakMemory::bytes() - before << '\n';
    return users.isEmpty();
}

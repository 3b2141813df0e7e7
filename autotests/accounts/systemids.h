/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SYSTEMIDS_H
#define SYSTEMIDS_H

#include <QTest>

/** Ids at the borders of the system ids, and @p highest. */
inline void addSystemIds(uint highest)
{
    QTest::addColumn<uint>("id");
    QTest::addColumn<bool>("system");

    for (const uint id : {0u, 1u, 999u, 65534u}) {
        QTest::addRow("%u", id) << id << true;
    }
    for (const uint id : {1000u, 65533u, 65535u, 2147483648u, highest}) {
        QTest::addRow("%u", id) << id << false;
    }
}

#endif

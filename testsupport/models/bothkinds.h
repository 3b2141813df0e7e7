/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef BOTHKINDS_H
#define BOTHKINDS_H

#include "listkinds.h"
#include "sandbox.h"
#include "texts.h"

#include <QPair>
#include <QTest>
#include <QVector>

// Tests of what users and groups have in common are written once and run for both.

/** The rows of initTestCase_data(). */
inline void addBothKinds()
{
    QTest::addColumn<bool>("areUsers");

    QTest::newRow("users") << true;
    QTest::newRow("groups") << false;
}

/** Runs @p test with the kind of the current row. */
template<typename UserKind = Users, typename GroupKind = Groups, typename Test>
void withKind(const Test &test)
{
    QFETCH_GLOBAL(bool, areUsers);
    if (areUsers) {
        test(UserKind());
    } else {
        test(GroupKind());
    }
}

/** Sets users, and groups of the same names and ids. */
inline void setUsersAndGroups(const QVector<QPair<QByteArray, uint>> &accounts)
{
    QByteArray users;
    QByteArray groups;
    for (const auto &[name, number] : accounts) {
        const QByteArray id = QByteArray::number(number);
        users += name + ":x:" + id + ':' + id + "::/:/bin/sh\n";
        groups += name + ":x:" + id + ":\n";
    }
    Sandbox::setAccounts(users, groups);
}

#endif

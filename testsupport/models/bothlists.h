/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef BOTHLISTS_H
#define BOTHLISTS_H

#include "bothkinds.h"
#include "modellog.h"

/** The name that several users or groups share. */
inline QString twin()
{
    return QStringLiteral("twin");
}

/** Sets accounts of which Zed, adam and bob are ordinary; nobody and ormel-admin are not. */
inline void setListedAccounts()
{
    setUsersAndGroups({{"ormel-admin", 27}, {"bob", 1002}, {"adam", 1000}, {"Zed", 1001}, {"nobody", 65534}});
}

/** Runs @p test with a list of the ordinary users or groups. */
template<typename Test>
void withList(const Test &test)
{
    withKind([&test](auto kind) {
        typename decltype(kind)::Model model;
        const TableTester tester(&model);
        model.setFilter(model.Ordinary);
        test(kind, model);
    });
}

/** Runs @p test with check boxes: those of @p checked are checked, that of Zed is locked. */
template<typename Test>
void withBoxes(const QStringList &checked, const Test &test)
{
    withKind([&](auto kind) {
        using Kind = decltype(kind);
        typename Kind::Model model(Kind::lockedBy(QStringLiteral("Zed")), checked);
        const TableTester tester(&model);
        model.setFilter(model.Ordinary);
        test(kind, model);
    });
}

#endif

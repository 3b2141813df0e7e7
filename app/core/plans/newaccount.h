/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef NEWACCOUNT_H
#define NEWACCOUNT_H

#include "plan.h"

#include <QString>

/** An account that is to be created. */
struct NewAccount {
    enum class PrimaryGroup {
        /** A group is created with the name of the user. */
        OfItsName,
        /** A group is created, which is called groupName. */
        New,
        /** groupName is a group that exists. */
        Existing,
    };

    QString userName;
    PrimaryGroup primaryGroup = PrimaryGroup::OfItsName;
    QString groupName;
    /** A number; empty for the next one that is free. */
    QString uid;
    QString fullName;
    QString room;
    QString workPhone;
    QString homePhone;
    QString other;
    /** Further groups, as the library's records name them: each character stands for a byte. */
    QStringList groups;
    /** What the shadow file gets; empty for an account without a password. */
    QString passwordHash;

    /** The commands that create it, with a home directory. */
    Plan plan() const;
};

#endif

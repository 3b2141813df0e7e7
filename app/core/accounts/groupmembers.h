/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GROUPMEMBERS_H
#define GROUPMEMBERS_H

#include <GroupInfo>

/** A group with its members in two lists: those that its line names, and those whose primary group it is. */
struct GroupMembers {
    /** With the members that the line names. */
    GroupInfo group;
    /** The members whose primary group it is; some may be named by the line as well. */
    QStringList primary;

    /** Every member once, the named ones first. */
    QStringList all() const;

    /** The groups of /etc/group, in the order of the file; none when it cannot be read. */
    static QList<GroupMembers> ofAllGroups();

    /** The members of the existing group with the name of @p group. */
    static GroupMembers of(const GroupInfo &group);
};

#endif

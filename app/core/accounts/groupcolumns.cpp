/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "groupcolumns.h"

#include "recordtext.h"

namespace
{
QVariant name(const GroupMembers &members)
{
    return RecordText::decode(members.group.name());
}

QVariant gid(const GroupMembers &members)
{
    return members.group.gid();
}

QVariant allMembers(const GroupMembers &members)
{
    return RecordText::decode(members.all());
}

QVariant explicitMembers(const GroupMembers &members)
{
    return RecordText::decode(members.group.users());
}

QVariant primaryMembers(const GroupMembers &members)
{
    return RecordText::decode(members.primary);
}

QVariant isSystem(const GroupMembers &members)
{
    return members.group.isSystem();
}

using Column = AccountColumn<GroupMembers>;

const Column columns[] = {
    {"name", kli18n("Name"), Column::Word, name},
    {"gid", kli18n("GID"), Column::Number, gid},
    {"members", kli18n("Members"), Column::Text, allMembers},
    {"explicitMembers", kli18n("Explicit members"), Column::Text, explicitMembers},
    {"primaryMembers", kli18n("Primary members"), Column::Text, primaryMembers},
    {"system", kli18n("System"), Column::Word, isSystem},
};
}

AccountColumns<GroupMembers> groupColumns()
{
    return toColumns(columns);
}

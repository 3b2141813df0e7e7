/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "groupmodel.h"

#include "accounticons.h"

namespace
{
const QVector<RecordModel::Column> &groupColumns()
{
    // In the order of GroupModel::Column.
    static const QVector<RecordModel::Column> columns{
        {"name", kli18nc("@title:column of groups", "Group")},
        {"gid", kli18nc("@title:column the number of a group", "GID")},
        {"memberCount", kli18nc("@title:column how many members a group has", "Size")},
        {"members", kli18nc("@title:column of groups", "Members")},
        {"primaryMembers", kli18nc("@title:column users whose primary group it is", "Primary members")},
        {"system",
         kli18nc("@title:column of groups", "Kind"),
         kli18nc("@item the kind of a group", "System group"),
         kli18nc("@item the kind of a group", "Ordinary group")},
    };
    return columns;
}
}

GroupModel::GroupModel(QObject *parent)
    : AccountRecordModel(groupColumns(), AccountIcons::group(), AccountIcons::systemGroup(), parent)
{
}

QVariant GroupModel::value(int record, int column) const
{
    const GroupRecord &group = at(record);
    switch (column) {
    case NameColumn:
        return group.name;
    case GidColumn:
        return group.gid;
    case MemberCountColumn:
        return uint(group.everybody().size());
    case MembersColumn:
        return group.members;
    case PrimaryMembersColumn:
        return group.primaryMembers;
    case KindColumn:
        return group.system;
    default:
        return {};
    }
}

bool GroupModel::passes(int record, int filter) const
{
    const GroupRecord &group = at(record);
    switch (filter) {
    case Ordinary:
        return !group.system;
    case System:
        return group.system;
    default:
        return true;
    }
}

bool GroupModel::contains(int record, const SearchWords::Word &word) const
{
    const GroupRecord &group = at(record);
    return word.isIn(group.name) || word.isIn(group.gid) || word.isIn(group.members) || word.isIn(group.primaryMembers);
}

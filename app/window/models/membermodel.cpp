/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "membermodel.h"

#include "accounticons.h"

#include <QSet>

namespace
{
const QVector<RecordModel::Column> &memberColumns()
{
    // In the order of MemberModel::Column.
    static const QVector<RecordModel::Column> columns{
        {"name", kli18nc("@title:column of the members of a group", "Member")},
        {"listed",
         kli18nc("@title:column whether the line of a group names a user", "Listed"),
         kli18nc("@item whether the line of a group names a user", "Yes"),
         kli18nc("@item whether the line of a group names a user", "No")},
        {"primary",
         kli18nc("@title:column whether a group is the primary group of a user", "Primary group"),
         kli18nc("@item whether a group is the primary group of a user", "Yes"),
         kli18nc("@item whether a group is the primary group of a user", "No")},
        {"fullName", kli18nc("@title:column of users", "Full name")},
        {"uid", kli18nc("@title:column the number of a user", "UID")},
    };
    return columns;
}
}

MemberModel::MemberModel(QObject *parent)
    : RecordModel(memberColumns(), parent)
    , m_icon(AccountIcons::user())
    , m_systemIcon(AccountIcons::systemUser())
    , m_nobodyIcon(AccountIcons::missing())
{
}

void MemberModel::setGroup(const GroupRecord &group, const QVector<UserRecord> &users)
{
    const QSet<QString> listed(group.members.begin(), group.members.end());
    const QSet<QString> primary(group.primaryMembers.begin(), group.primaryMembers.end());
    const QStringList everybody = group.everybody();
    QHash<QString, int> members;
    members.reserve(everybody.size());
    QVector<Member> list;
    list.reserve(everybody.size());
    for (const QString &name : everybody) {
        members.insert(name, list.size());
        list.append({name, {}, 0, false, listed.contains(name), primary.contains(name), false});
    }
    for (const UserRecord &user : users) {
        const auto found = members.constFind(user.name);
        if (found != members.constEnd() && !list.at(*found).user) {
            Member &member = list[*found];
            member.fullName = user.fullName();
            member.uid = user.uid;
            member.system = user.system;
            member.user = true;
        }
    }
    replaceRecords([&] { m_members = list; });
}

int MemberModel::recordCount() const
{
    return m_members.size();
}

QString MemberModel::name(int record) const
{
    return m_members.at(record).name;
}

bool MemberModel::isUser(int record) const
{
    return m_members.at(record).user;
}

QVariant MemberModel::value(int record, int column) const
{
    const Member &member = m_members.at(record);
    switch (column) {
    case NameColumn:
        return member.name;
    case FullNameColumn:
        return member.fullName;
    case UidColumn:
        return member.user ? QVariant(member.uid) : QVariant();
    case ListedColumn:
        return member.listed;
    case PrimaryColumn:
        return member.primary;
    default:
        return {};
    }
}

bool MemberModel::passes(int /*record*/, int /*filter*/) const
{
    return true;
}

bool MemberModel::contains(int record, const SearchWords::Word &word) const
{
    const Member &member = m_members.at(record);
    return word.isIn(member.name) || word.isIn(member.fullName) || word.isIn(member.uid);
}

QVariant MemberModel::icon(int record) const
{
    const Member &member = m_members.at(record);
    if (!member.user) {
        return m_nobodyIcon;
    }
    return member.system ? m_systemIcon : m_icon;
}

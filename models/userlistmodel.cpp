/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "userlistmodel.h"

#include "recordtable_p.h"

#include <KLocalizedString>

#include <QMetaEnum>

template<>
struct RecordTable::Traits<UserListModel> {
    using Record = UserInfo;
    static constexpr auto records = &UserListModel::m_users;
    static constexpr auto rows = &UserListModel::m_filteredUsers;
    static constexpr auto newName = &UserListModel::m_newUserName;
    static constexpr auto icon = &UserListModel::m_userIcon;
    static constexpr auto systemIcon = &UserListModel::m_systemUserIcon;
    static constexpr auto idColumn = UserListModel::UidColumn;

    static uint id(const UserInfo &user)
    {
        return user.uid();
    }

    static QString idHeader()
    {
        return QStringLiteral("UID");
    }

    static QString systemHeader()
    {
        return i18nc("user", "System");
    }

    static bool isLocked(const UserListModel &model, const UserInfo &user)
    {
        return model.m_group.isPrimaryOf(user.name());
    }

    /** The filters that groups do not have. */
    static bool isShown(UserListModel::Filter filter, const UserInfo &user)
    {
        return filter != UserListModel::Administrators || user.isOrmelAdmin();
    }
};

UserListModel::UserListModel(QObject *parent)
    : QAbstractTableModel(parent)
    , m_userIcon(QIcon::fromTheme(QStringLiteral("user")))
    , m_systemUserIcon(QIcon::fromTheme(QStringLiteral("user-system")))
{
    reload();
}

UserListModel::UserListModel(const GroupInfo &group, const QStringList &selectedNames, QObject *parent)
    : QAbstractTableModel(parent)
    , m_selectedNames(RecordTable::toSet(selectedNames))
    , m_userIcon(QIcon::fromTheme(QStringLiteral("user")))
    , m_systemUserIcon(QIcon::fromTheme(QStringLiteral("user-system")))
    , m_group(group)
    , m_selectable(true)
{
    reload();
}

UserListModel::~UserListModel() = default;

int UserListModel::rowCount(const QModelIndex & /*parent*/) const
{
    return RecordTable::rowCount(*this);
}

int UserListModel::columnCount(const QModelIndex & /*parent*/) const
{
    static const int count = QMetaEnum::fromType<Column>().keyCount();
    return count;
}

QVariant UserListModel::data(const QModelIndex &index, int role) const
{
    return RecordTable::data(*this, index, role);
}

bool UserListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    return RecordTable::setData(*this, index, value, role);
}

QVariant UserListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return RecordTable::headerData(*this, section, orientation, role);
}

bool UserListModel::removeRows(int row, int count, const QModelIndex &parent)
{
    return RecordTable::removeRows(*this, row, count, parent);
}

Qt::ItemFlags UserListModel::flags(const QModelIndex &index) const
{
    return RecordTable::flags(*this, index);
}

const UserInfo *UserListModel::user(const QModelIndex &index) const
{
    return RecordTable::record(*this, index);
}

QModelIndex UserListModel::findUser(const QString &name) const
{
    return RecordTable::find(*this, name);
}

bool UserListModel::isEmpty() const
{
    return m_filteredUsers.isEmpty();
}

bool UserListModel::isSelectable() const
{
    return m_selectable;
}

void UserListModel::setSelectable(bool selectable)
{
    RecordTable::setSelectable(*this, selectable);
}

UserListModel::Filter UserListModel::filter() const
{
    return m_filter;
}

void UserListModel::setFilter(Filter filter)
{
    RecordTable::setFilter(*this, filter);
}

void UserListModel::applyFilter()
{
    RecordTable::applyFilter(*this);
}

QStringList UserListModel::selectedUserNames() const
{
    return RecordTable::selectedNames(*this);
}

void UserListModel::setSelectedUserNames(const QStringList &names)
{
    RecordTable::setSelectedNames(*this, names);
}

void UserListModel::setSelectedUserName(const QString &name, bool selected)
{
    RecordTable::setSelectedName(*this, name, selected);
}

QModelIndex UserListModel::setNewUserName(const QString &name)
{
    return RecordTable::setNewName(*this, name);
}

void UserListModel::reload()
{
    RecordTable::setRecords(*this, UserInfo::getUsers());
    applyFilter();
}

void UserListModel::reloadUser(const QString &name)
{
    // The placeholder row has no account that UserInfo::reload() could read.
    if (!name.isEmpty()) {
        RecordTable::reloadRecord(*this, name);
    }
}

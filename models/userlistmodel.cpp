/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "userlistmodel.h"

#include "recordlist_p.h"

#include <KLocalizedString>

#include <QMetaEnum>

UserListModel::UserListModel(QObject *parent)
    : QAbstractTableModel(parent)
    , m_userIcon(QIcon::fromTheme(QStringLiteral("user")))
    , m_systemUserIcon(QIcon::fromTheme(QStringLiteral("user-system")))
{
    reload();
}

UserListModel::UserListModel(const GroupInfo &group, const QStringList &selectedNames, QObject *parent)
    : QAbstractTableModel(parent)
    , m_selectedNames(selectedNames.begin(), selectedNames.end())
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
    return m_filteredUsers.size();
}

int UserListModel::columnCount(const QModelIndex & /*parent*/) const
{
    static const int count = QMetaEnum::fromType<Column>().keyCount();
    return count;
}

QVariant UserListModel::data(const QModelIndex &index, int role) const
{
    const UserInfo *user = RecordList::at(m_filteredUsers, index);
    if (!user) {
        return {};
    }
    if (index.column() == NameColumn && role == Qt::DecorationRole) {
        return user->isSystem() ? m_systemUserIcon : m_userIcon;
    }
    if (index.column() == NameColumn && role == Qt::CheckStateRole && m_selectable) {
        return static_cast<int>(m_selectedNames.contains(user->name()) ? Qt::Checked : Qt::Unchecked);
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (index.column()) {
    case NameColumn:
        return user->isEmpty() ? m_newUserName : user->name();
    case UidColumn:
        return user->uid();
    case SystemColumn:
        return user->isSystem() ? i18n("Yes") : i18n("No");
    default:
        return {};
    }
}

bool UserListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const UserInfo *user = RecordList::at(m_filteredUsers, index);
    if (!user || index.column() != NameColumn || role != Qt::CheckStateRole) {
        return false;
    }
    RecordList::setContained(m_selectedNames, user->name(), value.toInt() == Qt::Checked);
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    return true;
}

QVariant UserListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::DisplayRole) {
        switch (section) {
        case NameColumn:
            return i18n("Name");
        case UidColumn:
            return QStringLiteral("UID");
        case SystemColumn:
            return i18nc("user", "System");
        default:
            break;
        }
    }
    return QAbstractTableModel::headerData(section, orientation, role);
}

bool UserListModel::removeRows(int row, int count, const QModelIndex &parent)
{
    const bool fromNowhere = row < 0 && count > 0;
    if (fromNowhere || qint64(row) + count > m_filteredUsers.size()) {
        return false;
    }
    beginRemoveRows(parent, row, row + count - 1);
    for (int i = 0; i < count; ++i) {
        RecordList::removeAll(m_users, m_filteredUsers.takeAt(row).name());
    }
    endRemoveRows();
    return true;
}

Qt::ItemFlags UserListModel::flags(const QModelIndex &index) const
{
    const UserInfo *user = RecordList::at(m_filteredUsers, index);
    if (!user || m_group.isPrimaryOf(user->name())) {
        return Qt::NoItemFlags;
    }
    if (index.column() != NameColumn) {
        return QAbstractTableModel::flags(index);
    }
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return m_selectable ? flags | Qt::ItemIsUserCheckable : flags;
}

const UserInfo *UserListModel::user(const QModelIndex &index) const
{
    return RecordList::at(m_filteredUsers, index);
}

QModelIndex UserListModel::findUser(const QString &name) const
{
    return index(RecordList::indexOf(m_filteredUsers, name), NameColumn);
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
    if (m_selectable == selectable) {
        return;
    }
    beginResetModel();
    m_selectable = selectable;
    endResetModel();
}

UserListModel::Filter UserListModel::filter() const
{
    return m_filter;
}

void UserListModel::setFilter(Filter filter)
{
    if (m_filter == filter) {
        return;
    }
    m_filter = filter;
    applyFilter();
}

void UserListModel::applyFilter()
{
    const auto isShown = [this](const UserInfo &user) {
        switch (m_filter) {
        case Ordinary:
            return !user.isSystem();
        case System:
            return user.isSystem();
        case Administrators:
            return user.isOrmelAdmin();
        case Selected:
            return m_selectedNames.contains(user.name());
        case Unselected:
            return !m_selectedNames.contains(user.name());
        default:
            return true;
        }
    };
    beginResetModel();
    RecordList::filter(m_users, m_filteredUsers, isShown);
    endResetModel();
}

QStringList UserListModel::selectedUserNames() const
{
    return RecordList::namesAmong(m_users, m_selectedNames);
}

void UserListModel::setSelectedUserNames(const QStringList &names)
{
    m_selectedNames = {names.begin(), names.end()};
    applyFilter();
}

void UserListModel::setSelectedUserName(const QString &name, bool selected)
{
    if (m_selectedNames.contains(name) == selected) {
        return;
    }
    RecordList::setContained(m_selectedNames, name, selected);
    applyFilter();
}

QModelIndex UserListModel::setNewUserName(const QString &name)
{
    if (m_filteredUsers.isEmpty() || !m_filteredUsers.constLast().isEmpty()) {
        const int row = m_filteredUsers.size();
        beginInsertRows(QModelIndex(), row, row);
        m_filteredUsers.append(UserInfo());
        endInsertRows();
    }
    m_newUserName = name;
    const QModelIndex placeholder = index(m_filteredUsers.size() - 1, NameColumn);
    Q_EMIT dataChanged(placeholder, placeholder, {Qt::DisplayRole});
    return placeholder;
}

void UserListModel::reload()
{
    m_users = RecordList::sorted(UserInfo::getUsers());
    applyFilter();
}

void UserListModel::reloadUser(const QString &name)
{
    RecordList::reloadAt(m_users, RecordList::indexOf(m_users, name));
    const int row = RecordList::indexOf(m_filteredUsers, name);
    // The placeholder row, the only one with a null name, has no account that can be read.
    if (row >= 0 && !m_filteredUsers.at(row).name().isNull()) {
        m_filteredUsers[row].reload();
    }
}

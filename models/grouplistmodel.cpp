/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "grouplistmodel.h"

#include "recordlist_p.h"

#include <KLocalizedString>

#include <QMetaEnum>

GroupListModel::GroupListModel(QObject *parent)
    : QAbstractTableModel(parent)
    , m_systemGroupIcon(QIcon::fromTheme(QStringLiteral("group-system")))
    , m_groupIcon(QIcon::fromTheme(QStringLiteral("group")))
{
    reload();
}

GroupListModel::GroupListModel(const QString &userName, const QStringList &selectedNames, QObject *parent)
    : QAbstractTableModel(parent)
    , m_selectedNames(selectedNames.begin(), selectedNames.end())
    , m_userName(userName)
    , m_systemGroupIcon(QIcon::fromTheme(QStringLiteral("group-system")))
    , m_groupIcon(QIcon::fromTheme(QStringLiteral("group")))
    , m_selectable(true)
{
    reload();
}

GroupListModel::~GroupListModel() = default;

int GroupListModel::rowCount(const QModelIndex & /*parent*/) const
{
    return m_filteredGroups.size();
}

int GroupListModel::columnCount(const QModelIndex & /*parent*/) const
{
    static const int count = QMetaEnum::fromType<Column>().keyCount();
    return count;
}

QVariant GroupListModel::data(const QModelIndex &index, int role) const
{
    const GroupInfo *group = RecordList::at(m_filteredGroups, index);
    if (!group) {
        return {};
    }
    if (index.column() == NameColumn && role == Qt::DecorationRole) {
        return group->isSystem() ? m_systemGroupIcon : m_groupIcon;
    }
    if (index.column() == NameColumn && role == Qt::CheckStateRole && m_selectable) {
        return static_cast<int>(m_selectedNames.contains(group->name()) ? Qt::Checked : Qt::Unchecked);
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (index.column()) {
    case NameColumn:
        return group->isEmpty() ? m_newGroupName : group->name();
    case GidColumn:
        return group->gid();
    case SystemColumn:
        return group->isSystem() ? i18n("Yes") : i18n("No");
    default:
        return {};
    }
}

bool GroupListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const GroupInfo *group = RecordList::at(m_filteredGroups, index);
    if (!group || index.column() != NameColumn || role != Qt::CheckStateRole) {
        return false;
    }
    RecordList::setContained(m_selectedNames, group->name(), value.toInt() == Qt::Checked);
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    return true;
}

QVariant GroupListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::DisplayRole) {
        switch (section) {
        case NameColumn:
            return i18n("Name");
        case GidColumn:
            return QStringLiteral("GID");
        case SystemColumn:
            return i18nc("group", "System");
        default:
            break;
        }
    }
    return QAbstractTableModel::headerData(section, orientation, role);
}

bool GroupListModel::removeRows(int row, int count, const QModelIndex &parent)
{
    const bool fromNowhere = row < 0 && count > 0;
    if (fromNowhere || qint64(row) + count > m_filteredGroups.size()) {
        return false;
    }
    beginRemoveRows(parent, row, row + count - 1);
    for (int i = 0; i < count; ++i) {
        RecordList::removeAll(m_groups, m_filteredGroups.takeAt(row).name());
    }
    endRemoveRows();
    return true;
}

Qt::ItemFlags GroupListModel::flags(const QModelIndex &index) const
{
    const GroupInfo *group = RecordList::at(m_filteredGroups, index);
    const bool isLocked = group && !group->isEmpty() && *group == m_primaryGroup;
    if (!group || isLocked) {
        return Qt::NoItemFlags;
    }
    if (index.column() != NameColumn) {
        return QAbstractTableModel::flags(index);
    }
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return m_selectable ? flags | Qt::ItemIsUserCheckable : flags;
}

const GroupInfo *GroupListModel::group(const QModelIndex &index) const
{
    return RecordList::at(m_filteredGroups, index);
}

QModelIndex GroupListModel::findGroup(const QString &name) const
{
    return index(RecordList::indexOf(m_filteredGroups, name), NameColumn);
}

bool GroupListModel::isEmpty() const
{
    return m_filteredGroups.isEmpty();
}

bool GroupListModel::isSelectable() const
{
    return m_selectable;
}

void GroupListModel::setSelectable(bool selectable)
{
    if (m_selectable == selectable) {
        return;
    }
    beginResetModel();
    m_selectable = selectable;
    endResetModel();
}

GroupListModel::Filter GroupListModel::filter() const
{
    return m_filter;
}

void GroupListModel::setFilter(Filter filter)
{
    if (m_filter == filter) {
        return;
    }
    m_filter = filter;
    applyFilter();
}

void GroupListModel::applyFilter()
{
    const auto isShown = [this](const GroupInfo &group) {
        switch (m_filter) {
        case Ordinary:
            return !group.isSystem();
        case System:
            return group.isSystem();
        case Selected:
            return m_selectedNames.contains(group.name());
        case Unselected:
            return !m_selectedNames.contains(group.name());
        default:
            return true;
        }
    };
    beginResetModel();
    RecordList::filter(m_groups, m_filteredGroups, isShown);
    endResetModel();
}

QStringList GroupListModel::selectedGroupNames() const
{
    QStringList names = RecordList::namesAmong(m_groups, m_selectedNames);
    const int own = names.indexOf(m_primaryGroup.name());
    if (own > 0) {
        names.move(own, 0);
    }
    return names;
}

void GroupListModel::setSelectedGroupNames(const QStringList &names)
{
    m_selectedNames = {names.begin(), names.end()};
    applyFilter();
}

void GroupListModel::setSelectedGroupName(const QString &name, bool selected)
{
    if (m_selectedNames.contains(name) == selected) {
        return;
    }
    RecordList::setContained(m_selectedNames, name, selected);
    applyFilter();
}

QModelIndex GroupListModel::setNewGroupName(const QString &name)
{
    if (m_filteredGroups.isEmpty() || !m_filteredGroups.constLast().isEmpty()) {
        const int row = m_filteredGroups.size();
        beginInsertRows(QModelIndex(), row, row);
        m_filteredGroups.append(GroupInfo());
        endInsertRows();
    }
    m_newGroupName = name;
    const QModelIndex placeholder = index(m_filteredGroups.size() - 1, NameColumn);
    Q_EMIT dataChanged(placeholder, placeholder, {Qt::DisplayRole});
    return placeholder;
}

void GroupListModel::reload()
{
    m_groups = RecordList::sorted(GroupInfo::getGroups());
    if (!m_userName.isEmpty()) {
        m_primaryGroup = m_groups.value(RecordList::indexOf(m_groups, m_userName));
    }
    applyFilter();
}

void GroupListModel::reloadGroup(const QString &name)
{
    RecordList::reloadAt(m_groups, RecordList::indexOf(m_groups, name));
    RecordList::reloadAt(m_filteredGroups, RecordList::indexOf(m_filteredGroups, name));
}

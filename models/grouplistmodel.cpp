/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "grouplistmodel.h"

#include "recordtable_p.h"

#include <KLocalizedString>

#include <QMetaEnum>

template<>
struct RecordTable::Traits<GroupListModel> {
    using Record = GroupInfo;
    static constexpr auto records = &GroupListModel::m_groups;
    static constexpr auto rows = &GroupListModel::m_filteredGroups;
    static constexpr auto newName = &GroupListModel::m_newGroupName;
    static constexpr auto icon = &GroupListModel::m_groupIcon;
    static constexpr auto systemIcon = &GroupListModel::m_systemGroupIcon;
    static constexpr auto idColumn = GroupListModel::GidColumn;

    static uint id(const GroupInfo &group)
    {
        return group.gid();
    }

    static QString idHeader()
    {
        return QStringLiteral("GID");
    }

    static QString systemHeader()
    {
        return i18nc("group", "System");
    }

    static bool isLocked(const GroupListModel &model, const GroupInfo &group)
    {
        return !group.isEmpty() && group == model.m_primaryGroup;
    }

    static bool isShown(GroupListModel::Filter /*filter*/, const GroupInfo & /*group*/)
    {
        return true;
    }
};

GroupListModel::GroupListModel(QObject *parent)
    : QAbstractTableModel(parent)
    , m_systemGroupIcon(QIcon::fromTheme(QStringLiteral("group-system")))
    , m_groupIcon(QIcon::fromTheme(QStringLiteral("group")))
{
    reload();
}

GroupListModel::GroupListModel(const QString &userName, const QStringList &selectedNames, QObject *parent)
    : QAbstractTableModel(parent)
    , m_selectedNames(RecordTable::toSet(selectedNames))
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
    return RecordTable::rowCount(*this);
}

int GroupListModel::columnCount(const QModelIndex & /*parent*/) const
{
    static const int count = QMetaEnum::fromType<Column>().keyCount();
    return count;
}

QVariant GroupListModel::data(const QModelIndex &index, int role) const
{
    return RecordTable::data(*this, index, role);
}

bool GroupListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    return RecordTable::setData(*this, index, value, role);
}

QVariant GroupListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return RecordTable::headerData(*this, section, orientation, role);
}

bool GroupListModel::removeRows(int row, int count, const QModelIndex &parent)
{
    return RecordTable::removeRows(*this, row, count, parent);
}

Qt::ItemFlags GroupListModel::flags(const QModelIndex &index) const
{
    return RecordTable::flags(*this, index);
}

const GroupInfo *GroupListModel::group(const QModelIndex &index) const
{
    return RecordTable::record(*this, index);
}

QModelIndex GroupListModel::findGroup(const QString &name) const
{
    return RecordTable::find(*this, name);
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
    RecordTable::setSelectable(*this, selectable);
}

GroupListModel::Filter GroupListModel::filter() const
{
    return m_filter;
}

void GroupListModel::setFilter(Filter filter)
{
    RecordTable::setFilter(*this, filter);
}

void GroupListModel::applyFilter()
{
    RecordTable::applyFilter(*this);
}

QStringList GroupListModel::selectedGroupNames() const
{
    QStringList names = RecordTable::selectedNames(*this);
    const int own = names.indexOf(m_primaryGroup.name());
    if (own > 0) {
        names.move(own, 0);
    }
    return names;
}

void GroupListModel::setSelectedGroupNames(const QStringList &names)
{
    RecordTable::setSelectedNames(*this, names);
}

void GroupListModel::setSelectedGroupName(const QString &name, bool selected)
{
    RecordTable::setSelectedName(*this, name, selected);
}

QModelIndex GroupListModel::setNewGroupName(const QString &name)
{
    return RecordTable::setNewName(*this, name);
}

void GroupListModel::reload()
{
    RecordTable::setRecords(*this, GroupInfo::getGroups());
    if (!m_userName.isEmpty()) {
        m_primaryGroup = RecordTable::firstRecord(*this, m_userName);
    }
    applyFilter();
}

void GroupListModel::reloadGroup(const QString &name)
{
    RecordTable::reloadRecord(*this, name);
}

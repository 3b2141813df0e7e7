/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "groupspage.h"

#include "accountlist.h"
#include "accountstore.h"
#include "details.h"
#include "limitsview.h"
#include "pagelayout.h"
#include "table.h"

#include <GroupInfo>
#include <GroupListModel>

#include <KLocalizedString>

#include <QIcon>
#include <QLabel>
#include <QSet>
#include <QVBoxLayout>

namespace
{
QVector<AccountList::Filter> filters()
{
    return {
        {i18nc("@item:inlistbox", "All groups"), GroupListModel::All},
        {i18nc("@item:inlistbox", "Ordinary groups"), GroupListModel::Ordinary},
        {i18nc("@item:inlistbox", "System groups"), GroupListModel::System},
    };
}
}

GroupsPage::GroupsPage(AccountStore *store, QWidget *parent)
    : QWidget(parent)
    , m_store(store)
    , m_list(new AccountList(i18nc("@title of a list", "Groups"), filters(), this))
    , m_details(new Details(48, this))
    , m_system(m_details->addMark(i18nc("@info mark of a group", "System group")))
    , m_gid(m_details->addField(i18nc("@label the number of a group", "GID:")))
    , m_members(new Table(i18nc("@title of a list", "Members"),
                          {
                              i18nc("@title:column of a group", "Member"),
                              i18nc("@title:column how a user is in a group", "Membership"),
                          },
                          this))
    , m_membersTitle(m_members->createTitleLabel())
    , m_limits(new LimitsView(this))
{
    m_list->setObjectName(QStringLiteral("groupList"));
    m_system->setObjectName(QStringLiteral("systemMark"));
    m_members->setObjectName(QStringLiteral("membersTable"));
    PageLayout::arrange(this, m_list, {createGroupPart(), m_limits});
    showGroup(QModelIndex());
    connect(m_list, &AccountList::currentChanged, this, &GroupsPage::showGroup);
    connect(m_store, &AccountStore::groupsRead, this, &GroupsPage::showAll);
}

QWidget *GroupsPage::createGroupPart()
{
    auto *part = new QWidget;
    auto *layout = new QVBoxLayout(part);
    layout->setContentsMargins({});
    layout->addWidget(m_details);
    layout->addWidget(m_membersTitle);
    layout->addWidget(m_members, 1);
    return part;
}

void GroupsPage::showAll()
{
    m_list->setError(m_store->accountsError());
    m_list->setModel(m_store->groups());
}

void GroupsPage::showGroup(const QModelIndex &index)
{
    const GroupInfo *group = m_store->groups() ? m_store->groups()->group(index) : nullptr;
    const bool known = group && !group->isEmpty();
    m_details->setEnabled(known);
    showDetails(known ? *group : GroupInfo());
    showMembers(known ? *group : GroupInfo());
    if (known) {
        m_limits->show(*group, m_store->limits(), m_store->limitsError());
    } else {
        m_limits->clear();
    }
}

void GroupsPage::showDetails(const GroupInfo &group)
{
    const bool known = !group.isEmpty();
    m_details->setTitle(known ? group.name() : i18n("No group is selected"));
    const QIcon icon = QIcon::fromTheme(group.isSystem() ? QStringLiteral("group-system") : QStringLiteral("group"));
    m_details->setPicture(known ? icon.pixmap(m_details->pictureSize()) : QPixmap());
    m_system->setVisible(known && group.isSystem());
    Details::setText(*m_gid, known ? QString::number(group.gid()) : QString());
}

void GroupsPage::showMembers(const GroupInfo &group)
{
    const QStringList primary = m_store->primaryMembers(group);
    const QSet<QString> primaryMembers(primary.begin(), primary.end());
    const QString primaryGroup = i18nc("@item how a user is in a group", "Primary group");
    const QString member = i18nc("@item how a user is in a group", "Member");
    QList<QTreeWidgetItem *> rows;
    const QStringList &users = group.users();
    for (const QString &user : users) {
        rows.append(Table::row({{user, {}}, {primaryMembers.contains(user) ? primaryGroup : member, {}}}));
    }
    m_membersTitle->setText(i18np("%1 &member", "%1 &members", rows.size()));
    m_members->setRows(rows);
}

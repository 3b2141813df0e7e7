/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "groupspage.h"

#include "accountdialogs.h"
#include "commandsdialog.h"
#include "findaccount.h"
#include "groupdetails.h"
#include "groupmodel.h"
#include "memberlist.h"
#include "memberships.h"
#include "recordview.h"
#include "sessionlimitsview.h"
#include "visibletext.h"
#include "waitcursor.h"

#include <UserSelectDialog>

#include <KLocalizedString>

#include <QVBoxLayout>

namespace
{
RecordList *createList(GroupModel *model)
{
    RecordList::Texts texts;
    texts.name = i18nc("@title of a list", "Groups");
    // In the order of GroupModel::Filter.
    texts.filters = QStringList({
        i18nc("@item:inlistbox", "All groups"),
        i18nc("@item:inlistbox", "Ordinary groups"),
        i18nc("@item:inlistbox", "System groups"),
    });
    texts.noMatch = [] { return i18n("No group matches."); };
    texts.count = [](int shown, int total) {
        return shown == total
            ? i18np("%1 group", "%1 groups", total)
            : i18ncp("@info how many of all groups are shown", "%2 of %1 group", "%2 of %1 groups", total, shown);
    };
    auto *list = new RecordList(QStringLiteral("groupList"), model, texts);
    RecordView *view = list->view();
    view->setShownColumns(
        {GroupModel::NameColumn, GroupModel::GidColumn, GroupModel::MemberCountColumn, GroupModel::KindColumn});
    // Ordinary groups first.
    view->sortByColumn(GroupModel::KindColumn, Qt::AscendingOrder);
    return list;
}
}

GroupsPage::GroupsPage(AccountStore *store, QWidget *parent)
    : GroupsPage(store, new GroupModel, parent)
{
}

GroupsPage::GroupsPage(AccountStore *store, GroupModel *model, QWidget *parent)
    : AccountPage(store, AccountLink::Kind::Group, createList(model), parent)
    , m_model(model)
    , m_details(new GroupDetails(this))
    , m_members(new MemberList(this))
    , m_limits(new SessionLimitsView(this))
{
    m_model->setParent(this);
    addPlanAction(i18nc("@action change the members of a group", "Change Mem&bers…"),
                  QStringLiteral("user-group-properties"),
                  &GroupsPage::changeMembers)
        ->setObjectName(QStringLiteral("changeMembers"));
    m_details->addButtons(actions());
    arrange({createGroupPart(), m_limits});
    GroupsPage::showRecord(-1);
    connect(m_members, &MemberList::followed, this, &AccountPage::followed);
    connect(m_limits, &SessionLimitsView::followed, this, &AccountPage::followed);
    connect(store, &AccountStore::groupsRead, this, &GroupsPage::showGroups);
    connect(store, &AccountStore::usersRead, this, &GroupsPage::showNewMembers);
    connect(store, &AccountStore::limitsRead, this, &GroupsPage::showLimits);
}

QWidget *GroupsPage::createGroupPart()
{
    auto *part = new QWidget;
    auto *layout = new QVBoxLayout(part);
    layout->setContentsMargins({});
    layout->addWidget(m_details);
    layout->addWidget(m_members, 1);
    return part;
}

void GroupsPage::showGroups()
{
    m_model->setNews(store()->changedGroups());
    m_model->setRecords(store()->groups());
}

void GroupsPage::showRecord(int record)
{
    if (record == -1) {
        m_details->showNoGroup();
        m_details->markHits({});
        m_members->clear();
        m_limits->clear();
        return;
    }
    m_details->showGroup(m_model->at(record));
    m_details->markHits(m_model->search());
    m_members->markHits(m_model->search());
    showMembers();
    showLimits();
}

void GroupsPage::showMembers()
{
    m_hasNewUsers = false;
    const int record = list()->view()->currentRecord();
    if (record != -1) {
        m_members->showMembers(m_model->at(record), store()->users());
    }
}

/** Very many members take a while, in which the page that is shown would not answer. */
void GroupsPage::showNewMembers()
{
    if (isVisible()) {
        showMembers();
    } else {
        m_hasNewUsers = true;
    }
}

void GroupsPage::showEvent(QShowEvent *event)
{
    if (m_hasNewUsers) {
        showMembers();
    }
    AccountPage::showEvent(event);
}

void GroupsPage::showLimits()
{
    const int record = list()->view()->currentRecord();
    if (record != -1) {
        const auto member = PamLimits::Account::memberOf(m_model->at(record).gid);
        m_limits->show(store()->limits(), member, store()->limitsError());
    }
}

void GroupsPage::changeMembers()
{
    const QString name = m_model->at(list()->view()->currentRecord()).name;
    const QString shownName = VisibleText::isolated(name);
    Plan plan;
    const GroupInfo group = underWaitCursor([&name] { return FindAccount::group(name); });
    if (group.isEmpty()) {
        plan.notes.append(i18n("There is no group '%1'.", shownName));
    } else {
        const auto dialog = AccountDialogs::makeSelection<UserSelectDialog>(group, group.users(), window());
        if (dialog->exec() != QDialog::Accepted) {
            return;
        }
        plan =
            Memberships::changeMembers(GroupMembers::of(group), dialog->selectedUserNames(), Memberships::localUsers());
    }
    CommandsDialog(i18nc("@title:window", "Change the Members of %1", shownName), plan, window()).exec();
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "userspage.h"

#include "accountdialogs.h"
#include "commandsdialog.h"
#include "findaccount.h"
#include "memberships.h"
#include "recordview.h"
#include "savepicture.h"
#include "sessionaccountof.h"
#include "sessionlimitsview.h"
#include "userdetails.h"
#include "usermodel.h"
#include "visibletext.h"
#include "waitcursor.h"

#include <GroupSelectDialog>
#include <UserInfo>

#include <KLocalizedString>

#include <QMessageBox>

namespace
{
QString noMatch(const AccountStore &store, const UserModel &model)
{
    if (model.filter() == UserModel::Administrators && !store.hasAdministratorsGroup()) {
        return i18n("There is no group ormel-admin, so nobody is an administrator here.");
    }
    return i18n("No user matches.");
}

RecordList *createList(const AccountStore *store, UserModel *model)
{
    RecordList::Texts texts;
    texts.name = i18nc("@title of a list", "Users");
    // In the order of UserModel::Filter.
    texts.filters = QStringList({
        i18nc("@item:inlistbox", "All users"),
        i18nc("@item:inlistbox", "Ordinary users"),
        i18nc("@item:inlistbox", "System accounts"),
        i18nc("@item:inlistbox", "Administrators"),
    });
    texts.noMatch = [store, model] { return noMatch(*store, *model); };
    texts.count = [](int shown, int total) {
        return shown == total
            ? i18np("%1 user", "%1 users", total)
            : i18ncp("@info how many of all users are shown", "%2 of %1 user", "%2 of %1 users", total, shown);
    };
    auto *list = new RecordList(QStringLiteral("userList"), model, texts);
    RecordView *view = list->view();
    view->setShownColumns({
        UserModel::NameColumn,
        UserModel::FullNameColumn,
        UserModel::UidColumn,
        UserModel::KindColumn,
    });
    // Ordinary users first.
    view->sortByColumn(UserModel::KindColumn, Qt::AscendingOrder);
    return list;
}
}

UsersPage::UsersPage(AccountStore *store, QWidget *parent)
    : UsersPage(store, new UserModel, parent)
{
}

UsersPage::UsersPage(AccountStore *store, UserModel *model, QWidget *parent)
    : AccountPage(store, AccountLink::Kind::User, createList(store, model), parent)
    , m_model(model)
    , m_details(new UserDetails(this))
    , m_limits(new SessionLimitsView(this))
{
    m_model->setParent(this);
    addPlanAction(i18nc("@action change the groups of a user", "Change &Groups…"),
                  QStringLiteral("user-group-properties"),
                  &UsersPage::changeGroups)
        ->setObjectName(QStringLiteral("changeGroups"));
    addPlanAction(i18nc("@action cut a picture for a user", "Cut &Picture…"),
                  QStringLiteral("transform-crop"),
                  &UsersPage::cutPicture)
        ->setObjectName(QStringLiteral("cutPicture"));
    m_details->addButtons(actions());
    arrange({m_details, m_limits});
    UsersPage::showRecord(-1);
    connect(m_details, &Details::followed, this, &AccountPage::followed);
    connect(m_limits, &SessionLimitsView::followed, this, &AccountPage::followed);
    connect(store, &AccountStore::usersRead, this, &UsersPage::showUsers);
    connect(store, &AccountStore::limitsRead, this, &UsersPage::showLimits);
}

void UsersPage::showUsers()
{
    m_model->setNews(store()->changedUsers());
    m_model->setRecords(store()->users());
}

void UsersPage::showRecord(int record)
{
    if (record == -1) {
        m_details->showNobody();
        m_details->markHits({});
        m_limits->clear();
        return;
    }
    m_details->showUser(m_model->at(record));
    m_details->markHits(m_model->search());
    showLimits();
}

void UsersPage::showLimits()
{
    const int record = list()->view()->currentRecord();
    if (record != -1) {
        m_limits->show(store()->limits(), sessionAccountOf(m_model->at(record)), store()->limitsError());
    }
}

void UsersPage::changeGroups()
{
    const QString name = m_model->at(list()->view()->currentRecord()).name;
    const QString shownName = VisibleText::isolated(name);
    Plan plan;
    const UserInfo user = underWaitCursor([&name] { return FindAccount::user(name); });
    if (user.isEmpty()) {
        plan.notes.append(i18n("There is no user '%1'.", shownName));
    } else {
        const auto dialog = AccountDialogs::makeSelection<GroupSelectDialog>(user.name(), user.groupNames(), window());
        if (dialog->exec() != QDialog::Accepted) {
            return;
        }
        plan = Memberships::changeGroups(user.name(), dialog->selectedGroupNames(), GroupMembers::ofAllGroups());
    }
    CommandsDialog(i18nc("@title:window", "Change the Groups of %1", shownName), plan, window()).exec();
}

void UsersPage::cutPicture()
{
    const QString name = m_model->at(list()->view()->currentRecord()).name;
    QPixmap picture;
    if (!AccountDialogs::cutIcon(picture, window())) {
        return;
    }
    if (picture.isNull()) {
        QMessageBox::information(window(), i18nc("@title:window", "Save Picture"), i18n("No picture was chosen."));
    } else {
        savePicture(picture, name, window());
    }
}

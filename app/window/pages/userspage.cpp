/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "userspage.h"

#include "accountlist.h"
#include "accountstore.h"
#include "details.h"
#include "limitsview.h"
#include "pagelayout.h"
#include "userpicture.h"

#include <UserListModel>

#include <KLocalizedString>

#include <QIcon>
#include <QLabel>
#include <QTimer>

namespace
{
/** How long a user is current before the picture is read, which takes a process. In milliseconds. */
constexpr int pictureDelay = 50;

QVector<AccountList::Filter> filters()
{
    return {
        {i18nc("@item:inlistbox", "All users"), UserListModel::All},
        {i18nc("@item:inlistbox", "Ordinary users"), UserListModel::Ordinary},
        {i18nc("@item:inlistbox", "System accounts"), UserListModel::System},
        {i18nc("@item:inlistbox", "Administrators"), UserListModel::Administrators},
    };
}
}

UsersPage::UsersPage(AccountStore *store, QWidget *parent)
    : QWidget(parent)
    , m_store(store)
    , m_list(new AccountList(i18nc("@title of a list", "Users"), filters(), this))
    , m_details(new Details(96, this))
    , m_limits(new LimitsView(this))
    , m_picture(new UserPicture(this))
    , m_pictureTimer(new QTimer(this))
{
    m_list->setObjectName(QStringLiteral("userList"));
    m_pictureTimer->setSingleShot(true);
    m_pictureTimer->setInterval(pictureDelay);
    connect(m_pictureTimer, &QTimer::timeout, this, &UsersPage::findPicture);
    connect(m_picture, &UserPicture::found, this, &UsersPage::showPicture);
    addFields();
    PageLayout::arrange(this, m_list, {m_details, m_limits});
    showUser(QModelIndex());
    connect(m_list, &AccountList::currentChanged, this, &UsersPage::showUser);
    connect(m_store, &AccountStore::usersRead, this, &UsersPage::showAll);
}

void UsersPage::addFields()
{
    m_administrator = m_details->addMark(i18nc("@info mark of a user", "Administrator"));
    m_administrator->setObjectName(QStringLiteral("administratorMark"));
    m_system = m_details->addMark(i18nc("@info mark of a user", "System account"));
    m_system->setObjectName(QStringLiteral("systemMark"));

    // The subfields of the GECOS field, in their order.
    m_gecos = {
        m_details->addField(i18nc("@label of a user", "Full name:")),
        m_details->addField(i18nc("@label of a user", "Room:")),
        m_details->addField(i18nc("@label of a user", "Work phone:")),
        m_details->addField(i18nc("@label of a user", "Home phone:")),
        m_details->addField(i18nc("@label other information about a user", "Other:")),
    };
    m_home = m_details->addField(i18nc("@label of a user", "Home directory:"));
    m_shell = m_details->addField(i18nc("@label of a user", "Login shell:"));
    m_uid = m_details->addField(i18nc("@label the number of a user", "UID:"));
    m_gid = m_details->addField(i18nc("@label the number of a group", "GID:"));
    m_primaryGroup = m_details->addField(i18nc("@label of a user", "Primary group:"));
    m_groups = m_details->addLongField(i18nc("@label of a user", "All groups:"));
}

void UsersPage::showAll()
{
    m_list->setError(m_store->accountsError());
    m_list->setModel(m_store->users());
}

void UsersPage::showUser(const QModelIndex &index)
{
    const UserInfo *user = m_store->users() ? m_store->users()->user(index) : nullptr;
    const bool known = user && !user->isEmpty();
    m_details->setEnabled(known);
    showDetails(known ? *user : UserInfo());
    if (known) {
        m_limits->show(*user, m_store->limits(), m_store->limitsError());
    } else {
        m_limits->clear();
    }
}

void UsersPage::showDetails(const UserInfo &user)
{
    const bool known = !user.isEmpty();
    m_details->setTitle(known ? user.name() : i18n("No user is selected"));
    showPictureSoon(user);
    m_administrator->setVisible(user.isOrmelAdmin());
    m_system->setVisible(known && user.isSystem());
    const int last = m_gecos.size() - 1;
    for (int i = 0; i <= last; ++i) {
        Details::setText(*m_gecos.at(i), user.gecos().section(QLatin1Char(','), i, i < last ? i : -1));
    }
    Details::setText(*m_home, user.home());
    Details::setText(*m_shell, user.shell());
    Details::setText(*m_uid, known ? QString::number(user.uid()) : QString());
    Details::setText(*m_gid, known ? QString::number(user.gid()) : QString());
    Details::setText(*m_primaryGroup, user.primaryGroup().name());
    Details::setText(*m_groups, user.groupNames().join(QLatin1String(", ")));
}

void UsersPage::showPictureSoon(const UserInfo &user)
{
    m_details->setPicture(QPixmap());
    m_userToPicture = user;
    m_picture->cancel();
    if (user.isEmpty()) {
        m_pictureTimer->stop();
    } else {
        m_pictureTimer->start();
    }
}

void UsersPage::findPicture()
{
    m_picture->find(m_userToPicture, m_details->pictureSize() * devicePixelRatioF());
}

void UsersPage::showPicture(QImage picture)
{
    if (!picture.isNull()) {
        picture.setDevicePixelRatio(devicePixelRatioF());
        m_details->setPicture(QPixmap::fromImage(picture));
        return;
    }
    const QString name = m_userToPicture.isSystem() ? QStringLiteral("user-system") : QStringLiteral("user");
    m_details->setNoPicture(QIcon::fromTheme(name), i18n("No picture"));
}

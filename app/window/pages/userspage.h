/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERSPAGE_H
#define USERSPAGE_H

#include <UserInfo>

#include <QWidget>

class AccountList;
class AccountStore;
class Details;
class LimitsView;
class QImage;
class QLabel;
class QTimer;
class UserPicture;

/** The users of the machine, and all there is to know of one of them. */
class UsersPage : public QWidget
{
    Q_OBJECT

public:
    explicit UsersPage(AccountStore *store, QWidget *parent = nullptr);

private:
    void addFields();
    void showAll();
    void showUser(const QModelIndex &index);
    void showDetails(const UserInfo &user);
    void showPictureSoon(const UserInfo &user);
    void findPicture();
    void showPicture(QImage picture);

    AccountStore *const m_store;
    AccountList *const m_list;
    Details *const m_details;
    LimitsView *const m_limits;
    UserPicture *const m_picture;
    /** Whose picture is still to be shown. */
    UserInfo m_userToPicture;
    QTimer *const m_pictureTimer;
    QLabel *m_administrator = nullptr;
    QLabel *m_system = nullptr;
    QVector<QLabel *> m_gecos;
    QLabel *m_home = nullptr;
    QLabel *m_shell = nullptr;
    QLabel *m_uid = nullptr;
    QLabel *m_gid = nullptr;
    QLabel *m_primaryGroup = nullptr;
    QLabel *m_groups = nullptr;
};

#endif

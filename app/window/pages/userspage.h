/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERSPAGE_H
#define USERSPAGE_H

#include "accountpage.h"

class SessionLimitsView;
class UserDetails;
class UserModel;

/** The users of the machine, with the details of one of them. */
class UsersPage : public AccountPage
{
    Q_OBJECT

public:
    explicit UsersPage(AccountStore *store, QWidget *parent = nullptr);

protected:
    void showRecord(int record) override;

private:
    UsersPage(AccountStore *store, UserModel *model, QWidget *parent);
    void showUsers();
    void showLimits();
    void changeGroups();
    void cutPicture();

    UserModel *const m_model;
    UserDetails *const m_details;
    SessionLimitsView *const m_limits;
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERDETAILS_H
#define USERDETAILS_H

#include "accountrecords.h"
#include "details.h"
#include "userpicture.h"

#include <QTimer>

/** The details of a user. */
class UserDetails : public Details
{
    Q_OBJECT

public:
    explicit UserDetails(QWidget *parent = nullptr);

    void showUser(const UserRecord &user);
    void showNobody();

private:
    void showFields(const UserRecord &user);
    void findPicture();
    void showPicture(QImage picture);

    UserRecord m_user;
    UserPicture m_picture;
    QTimer m_pictureTimer;
    const QVector<LineLabel *> m_gecos;
    LineLabel *const m_home;
    LineLabel *const m_shell;
    LineLabel *const m_uid;
    LineLabel *const m_gid;
    LinkLabel *const m_primaryGroup;
    LinkLabel *const m_groups;
};

#endif

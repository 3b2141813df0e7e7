/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef HEADEREXAMPLES_H
#define HEADEREXAMPLES_H

#include <GroupInfo>
#include <GroupListModel>
#include <GroupSelectDialog>
#include <LimitsParser>
#include <UserIconDialog>
#include <UserInfo>
#include <UserListModel>
#include <UserSelectDialog>
#include <UserUtils>

#include <QDebug>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QTableView>
#include <QTreeView>

/** The dialog of an account editor that the examples in the public headers assume. */
class ExampleDialog : public QDialog
{
public:
    template<int number>
    void example();

private:
    void setGroups(const QStringList &names);
    void setMembers(const GroupInfo &group, const QStringList &names);
    void setPrimaryGroup(const UserInfo &user, const QString &name);
    void useIcon(const QPixmap &pixmap);

    UserInfo user;
    GroupInfo group;
    QTableView *view = nullptr;
    QLineEdit *nameEdit = nullptr;
    QLineEdit *passwordEdit = nullptr;
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GROUPSPAGE_H
#define GROUPSPAGE_H

#include <QWidget>

class AccountList;
class AccountStore;
class Details;
class GroupInfo;
class LimitsView;
class QLabel;
class Table;

/** The groups of the machine, and all there is to know of one of them. */
class GroupsPage : public QWidget
{
    Q_OBJECT

public:
    explicit GroupsPage(AccountStore *store, QWidget *parent = nullptr);

private:
    QWidget *createGroupPart();
    void showAll();
    void showGroup(const QModelIndex &index);
    void showDetails(const GroupInfo &group);
    void showMembers(const GroupInfo &group);

    AccountStore *const m_store;
    AccountList *const m_list;
    Details *const m_details;
    QLabel *const m_system;
    QLabel *const m_gid;
    Table *const m_members;
    QLabel *const m_membersTitle;
    LimitsView *const m_limits;
};

#endif

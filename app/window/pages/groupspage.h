/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GROUPSPAGE_H
#define GROUPSPAGE_H

#include "accountpage.h"

class GroupDetails;
class GroupModel;
class SessionLimitsView;
class MemberList;

/** The groups of the machine, with the details of one of them. */
class GroupsPage : public AccountPage
{
    Q_OBJECT

public:
    explicit GroupsPage(AccountStore *store, QWidget *parent = nullptr);

protected:
    void showRecord(int record) override;
    void showEvent(QShowEvent *event) override;

private:
    GroupsPage(AccountStore *store, GroupModel *model, QWidget *parent);
    QWidget *createGroupPart();
    void showGroups();
    void showMembers();
    void showNewMembers();
    void showLimits();
    void changeMembers();

    GroupModel *const m_model;
    GroupDetails *const m_details;
    MemberList *const m_members;
    SessionLimitsView *const m_limits;
    /** Whether users were read since the members were shown. */
    bool m_hasNewUsers = false;
};

#endif

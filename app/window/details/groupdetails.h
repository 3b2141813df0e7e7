/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GROUPDETAILS_H
#define GROUPDETAILS_H

#include "accountrecords.h"
#include "details.h"

/** The details of a group, without its members. */
class GroupDetails : public Details
{
    Q_OBJECT

public:
    explicit GroupDetails(QWidget *parent = nullptr);

    void showGroup(const GroupRecord &group);
    void showNoGroup();

private:
    LineLabel *const m_gid;
};

#endif

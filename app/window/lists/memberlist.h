/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef MEMBERLIST_H
#define MEMBERLIST_H

#include "accountlink.h"
#include "accountrecords.h"

#include <QWidget>

class MemberModel;
class QLabel;
class RecordView;
class SearchWords;

/** The members of a group: those that its line names, and separately those whose primary group it is. */
class MemberList : public QWidget
{
    Q_OBJECT

public:
    explicit MemberList(QWidget *parent = nullptr);

    void showMembers(const GroupRecord &group, const QVector<UserRecord> &users);
    void clear();

    /** Marks the words of @p search. */
    void markHits(const SearchWords &search);

Q_SIGNALS:
    void followed(const AccountLink &link);

private:
    void follow(int record);

    MemberModel *const m_model;
    RecordView *const m_view;
    QLabel *const m_title;
};

#endif

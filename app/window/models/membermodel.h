/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef MEMBERMODEL_H
#define MEMBERMODEL_H

#include "accountrecords.h"
#include "recordmodel.h"

#include <QHash>
#include <QIcon>

/** The users of a group, and the members that are not users. */
class MemberModel : public RecordModel
{
    Q_OBJECT

public:
    enum Column { NameColumn, ListedColumn, PrimaryColumn, FullNameColumn, UidColumn };

    explicit MemberModel(QObject *parent = nullptr);

    /** Shows the users of @p group. Their details come from @p users. */
    void setGroup(const GroupRecord &group, const QVector<UserRecord> &users);

    int recordCount() const override;
    QString name(int record) const override;

    /** Whether there is a user of that name. */
    bool isUser(int record) const;

protected:
    QVariant value(int record, int column) const override;
    bool passes(int record, int filter) const override;
    bool contains(int record, const SearchWords::Word &word) const override;
    QVariant icon(int record) const override;

private:
    struct Member {
        QString name;
        QString fullName;
        uint uid;
        bool user;
        bool listed;
        bool primary;
        bool system;
    };

    QVector<Member> m_members;
    const QIcon m_icon;
    const QIcon m_systemIcon;
    const QIcon m_nobodyIcon;
};

#endif

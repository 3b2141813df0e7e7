/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERMODEL_H
#define USERMODEL_H

#include "accountrecords.h"
#include "recordmodel.h"

#include <QIcon>

/** Users. */
class UserModel : public RecordModel
{
    Q_OBJECT

public:
    enum Filter { All, Ordinary, System, Administrators };
    enum Column {
        NameColumn,
        FullNameColumn,
        UidColumn,
        PrimaryGroupColumn,
        GroupsColumn,
        AdministratorColumn,
        ShellColumn,
        KindColumn,
        HomeColumn,
        GidColumn
    };

    explicit UserModel(QObject *parent = nullptr);

    void setUsers(const QVector<UserRecord> &users);
    const UserRecord &user(int record) const;

    int recordCount() const override;
    QString name(int record) const override;

protected:
    QVariant value(int record, int column) const override;
    bool passes(int record, int filter) const override;
    bool contains(int record, const SearchWords::Word &word) const override;
    QVariant icon(int record) const override;

private:
    QVector<UserRecord> m_users;
    const QIcon m_icon;
    const QIcon m_systemIcon;
};

#endif

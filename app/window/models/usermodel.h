/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERMODEL_H
#define USERMODEL_H

#include "accountrecordmodel.h"
#include "accountrecords.h"

/** Users. */
class UserModel : public AccountRecordModel<UserRecord>
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

protected:
    QVariant value(int record, int column) const override;
    bool passes(int record, int filter) const override;
    bool contains(int record, const SearchWords::Word &word) const override;
};

#endif

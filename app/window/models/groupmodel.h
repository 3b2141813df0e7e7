/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GROUPMODEL_H
#define GROUPMODEL_H

#include "accountrecordmodel.h"
#include "accountrecords.h"

/** Groups. */
class GroupModel : public AccountRecordModel<GroupRecord>
{
    Q_OBJECT

public:
    enum Filter { All, Ordinary, System };
    enum Column { NameColumn, GidColumn, MemberCountColumn, MembersColumn, PrimaryMembersColumn, KindColumn };

    explicit GroupModel(QObject *parent = nullptr);

protected:
    QVariant value(int record, int column) const override;
    bool passes(int record, int filter) const override;
    bool contains(int record, const SearchWords::Word &word) const override;
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GROUPMODEL_H
#define GROUPMODEL_H

#include "accountrecords.h"
#include "recordmodel.h"

#include <QIcon>

/** Groups. */
class GroupModel : public RecordModel
{
    Q_OBJECT

public:
    enum Filter { All, Ordinary, System };
    enum Column { NameColumn, GidColumn, MemberCountColumn, MembersColumn, PrimaryMembersColumn, KindColumn };

    explicit GroupModel(QObject *parent = nullptr);

    void setGroups(const QVector<GroupRecord> &groups);
    const GroupRecord &group(int record) const;

    int recordCount() const override;
    QString name(int record) const override;

protected:
    QVariant value(int record, int column) const override;
    bool passes(int record, int filter) const override;
    bool contains(int record, const SearchWords::Word &word) const override;
    QVariant icon(int record) const override;

private:
    QVector<GroupRecord> m_groups;
    const QIcon m_icon;
    const QIcon m_systemIcon;
};

#endif

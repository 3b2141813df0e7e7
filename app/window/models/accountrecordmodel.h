/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTRECORDMODEL_H
#define ACCOUNTRECORDMODEL_H

#include "recordmodel.h"

#include <QIcon>

/** What UserModel and GroupModel have in common: records with a name, and an icon for those of the system. */
template<typename Record>
class AccountRecordModel : public RecordModel
{
public:
    void setRecords(const QVector<Record> &records)
    {
        replaceRecords([&] { m_records = records; });
    }

    const Record &at(int record) const
    {
        return m_records.at(record);
    }

    int recordCount() const override
    {
        return m_records.size();
    }

    QString name(int record) const override
    {
        return m_records.at(record).name;
    }

protected:
    AccountRecordModel(const QVector<Column> &columns, const QIcon &icon, const QIcon &systemIcon, QObject *parent)
        : RecordModel(columns, parent)
        , m_icon(icon)
        , m_systemIcon(systemIcon)
    {
    }

    QVariant icon(int record) const override
    {
        return m_records.at(record).system ? m_systemIcon : m_icon;
    }

private:
    QVector<Record> m_records;
    const QIcon m_icon;
    const QIcon m_systemIcon;
};

#endif

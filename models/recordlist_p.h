/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef RECORDLIST_P_H
#define RECORDLIST_P_H

#include <QList>
#include <QModelIndex>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <iterator>

/** What UserListModel and GroupListModel compute alike on lists of UserInfo or GroupInfo. */
namespace RecordList
{
/** The record in the row of @p index, which may be of any model; null when there is no such row. */
template<typename Record>
const Record *at(const QList<Record> &rows, const QModelIndex &index)
{
    return index.isValid() && index.row() < rows.size() ? &rows.at(index.row()) : nullptr;
}

/** The index of the first record that is called @p name, or -1. */
template<typename Record>
int indexOf(const QList<Record> &records, const QString &name)
{
    const auto hasName = [&name](const Record &record) { return record.name() == name; };
    const auto found = std::find_if(records.begin(), records.end(), hasName);
    return found == records.end() ? -1 : static_cast<int>(found - records.begin());
}

/** The records by name; those of equal names keep their order. */
template<typename Record>
QList<Record> sorted(QList<Record> records)
{
    const auto isBefore = [](const Record &left, const Record &right) { return left.name() < right.name(); };
    std::stable_sort(records.begin(), records.end(), isBefore);
    return records;
}

/** Replaces @p rows by those of @p records for which @p isShown is true, in their order. */
template<typename Record, typename Predicate>
void filter(const QList<Record> &records, QList<Record> &rows, Predicate isShown)
{
    rows.clear();
    std::copy_if(records.begin(), records.end(), std::back_inserter(rows), isShown);
}

/** The names of the records that are among @p names, in the order of the records. */
template<typename Record>
QStringList namesAmong(const QList<Record> &records, const QSet<QString> &names)
{
    QStringList among;
    for (const Record &record : records) {
        if (names.contains(record.name())) {
            among.append(record.name());
        }
    }
    return among;
}

template<typename Record>
void removeAll(QList<Record> &records, const QString &name)
{
    const auto hasName = [&name](const Record &record) { return record.name() == name; };
    records.erase(std::remove_if(records.begin(), records.end(), hasName), records.end());
}

/** Reads the record at @p index again, unless that is -1. */
template<typename Record>
void reloadAt(QList<Record> &records, int index)
{
    if (index >= 0) {
        records[index].reload();
    }
}

/** Puts @p name into @p names or takes it out. */
inline void setContained(QSet<QString> &names, const QString &name, bool contained)
{
    if (contained) {
        names.insert(name);
    } else {
        names.remove(name);
    }
}
}

#endif

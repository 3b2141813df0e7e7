/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CHANGEDNAMES_H
#define CHANGEDNAMES_H

#include <QHash>
#include <QSet>
#include <QString>
#include <QVector>

#include <algorithm>

/** The names of the records in @p now that are missing from @p before or differ there. */
template<typename Record>
QSet<QString> changedNames(const QVector<Record> &before, const QVector<Record> &now)
{
    // A file may have several lines with the same name.
    QMultiHash<QString, const Record *> known;
    known.reserve(before.size());
    for (const Record &record : before) {
        known.insert(record.name, &record);
    }
    QSet<QString> changed;
    for (const Record &record : now) {
        const auto range = known.equal_range(record.name);
        if (std::none_of(range.first, range.second, [&record](const Record *old) { return *old == record; })) {
            changed.insert(record.name);
        }
    }
    return changed;
}

#endif

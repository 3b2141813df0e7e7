/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef IDRANGE_P_H
#define IDRANGE_P_H

#include <QString>

/** The ids that a domain names: "FIRST:LAST", "FIRST:" with no upper end, or ":LAST" for one id. */
struct IdRange {
    QString first;
    QString last;

    bool isSingleId() const
    {
        return first.isEmpty() && !last.isEmpty();
    }

    /** Whether this is the single @p id. */
    bool isId(uint id) const;

    /** Whether @p id is between the ends. No id is in the range of a single one. */
    bool contains(uint id) const;
};

/** The user ids of @p domain; both ends are empty when it names none. */
IdRange userIds(const QString &domain);

/** The group ids of @p domain, "@" before the range; both ends are empty when it names none. */
IdRange groupIds(const QString &domain);

/** Says which users @p ids are; null when there are none. */
QString userIdsToolTip(const IdRange &ids);

/** Says which groups @p ids are; null when there are none. */
QString groupIdsToolTip(const IdRange &ids);

#endif

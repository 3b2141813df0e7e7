/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "idrange_p.h"

#include <KLocalizedString>

#include <QRegularExpression>

namespace
{
IdRange captured(const QRegularExpressionMatch &match)
{
    return {match.captured(1), match.captured(2)};
}

QString toolTip(const IdRange &ids,
                const KLocalizedString &single,
                const KLocalizedString &openRange,
                const KLocalizedString &range)
{
    if (ids.first.isEmpty() && ids.last.isEmpty()) {
        return {};
    }
    if (ids.first.isEmpty()) {
        return single.subs(ids.last).toString();
    }
    if (ids.last.isEmpty()) {
        return openRange.subs(ids.first).toString();
    }
    return range.subs(ids.first).subs(ids.last).toString();
}
}

bool IdRange::isId(uint id) const
{
    return isSingleId() && id == last.toUInt();
}

bool IdRange::contains(uint id) const
{
    return !first.isEmpty() && first.toUInt() <= id && (last.isEmpty() || id <= last.toUInt());
}

// The slashes are there on purpose. A range of plain numbers is taken for the name of an account, and the ends of
// a matching range are not numbers and count as 0. Plain names return early, since a match costs an allocation.

IdRange userIds(const QString &domain)
{
    if (!domain.startsWith(QLatin1String("//"))) {
        return {};
    }
    static const QRegularExpression pattern(QStringLiteral("^(//d*):(//d*)"));
    return captured(pattern.match(domain));
}

IdRange groupIds(const QString &domain)
{
    if (!domain.startsWith(QLatin1String("@//"))) {
        return {};
    }
    static const QRegularExpression pattern(QStringLiteral("^@(//d*):(//d*)"));
    return captured(pattern.match(domain));
}

QString userIdsToolTip(const IdRange &ids)
{
    return toolTip(ids,
                   ki18n("User with UID equal to %1"),
                   ki18n("Users with UID greater than or equal to %1"),
                   ki18n("User UID range from %1 to %2"));
}

QString groupIdsToolTip(const IdRange &ids)
{
    return toolTip(ids,
                   ki18n("Group with GID equal to %1"),
                   ki18n("Groups with GID greater than or equal to %1"),
                   ki18n("Group GID range from %1 to %2"));
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitcandidates.h"

#include <algorithm>

PamLimits::CandidateChooser::CandidateChooser(const Rules &rules)
    : m_rules(rules)
    , m_isFirst(rules.lines().size())
{
    QVector<bool> found(rules.domains().size() * itemCount);
    for (int place = 0; place < rules.lines().size(); ++place) {
        const Line &line = rules.lines().at(place);
        const int slot = int(line.domain) * itemCount + int(line.item);
        if (line.kind == LineKind::Rule && rules.fileOf(line).isRead() && (line.type & Soft) && !found.at(slot)) {
            found[slot] = true;
            m_isFirst[place] = true;
            m_barriers.at(int(line.item)).append(place);
        }
    }
}

void PamLimits::CandidateChooser::startDomain()
{
    m_seen = {};
}

bool PamLimits::CandidateChooser::counts(int place)
{
    const Line &line = m_rules.lines().at(place);
    Seen &seen = m_seen.at(int(line.item));
    if (line.kind != LineKind::Rule) {
        // It says which of two items the value for logins is for.
        const bool isLast = !seen.bad && !seen.soft && kindOf(line.item) == ItemKind::Logins;
        seen.bad = true;
        return isLast;
    }
    const bool isForBoth = line.type == Both;
    const bool isLastSoft = (line.type & Soft) && !seen.soft;
    const bool isLastHard = line.type == Hard && !seen.hard;
    const bool isHardReserve = isForBoth && !seen.hard
        && (seen.nextBoth < 0
            || (hasTwoLimits(kindOf(line.item)) && isBarrierBetween(line.item, place, seen.nextBoth)));
    seen.soft = seen.soft || (line.type & Soft);
    seen.hard = seen.hard || line.type == Hard;
    seen.nextBoth = isForBoth ? place : seen.nextBoth;
    return isLastSoft || isLastHard || isHardReserve || m_isFirst.at(place);
}

bool PamLimits::CandidateChooser::isBarrierBetween(Item item, int place, int next) const
{
    const QVector<int> &barriers = m_barriers.at(int(item));
    const auto found = std::upper_bound(barriers.begin(), barriers.end(), place);
    return found != barriers.end() && *found < next;
}

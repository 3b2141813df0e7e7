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

int PamLimits::CandidateChooser::successorOf(int place) const
{
    const Line &line = m_rules.lines().at(place);
    const Seen &seen = m_seen.at(int(line.item));
    if (line.kind != LineKind::Rule) {
        return -1;
    }
    return line.type & Soft ? seen.soft : std::max(seen.hard, seen.both);
}

bool PamLimits::CandidateChooser::counts(int place)
{
    const Line &line = m_rules.lines().at(place);
    Seen &seen = m_seen.at(int(line.item));
    if (line.kind != LineKind::Rule) {
        // It says which of two items the value for logins is for.
        const bool isLast = !seen.bad && seen.soft < 0 && kindOf(line.item) == ItemKind::Logins;
        seen.bad = true;
        return isLast;
    }
    const bool isForBoth = line.type == Both;
    const bool isLastSoft = (line.type & Soft) && seen.soft < 0;
    const bool isLastHard = line.type == Hard && seen.hard < 0;
    const bool isReplaced =
        seen.both >= 0 && !(hasTwoLimits(kindOf(line.item)) && isBarrierBetween(line.item, place, seen.both));
    const bool isHardReserve = isForBoth && seen.hard < 0 && !isReplaced;
    seen.soft = (line.type & Soft) && seen.soft < 0 ? place : seen.soft;
    seen.hard = isLastHard ? place : seen.hard;
    seen.both = isForBoth ? place : seen.both;
    return isLastSoft || isLastHard || isHardReserve || m_isFirst.at(place);
}

bool PamLimits::CandidateChooser::isBarrierBetween(Item item, int place, int next) const
{
    const QVector<int> &barriers = m_barriers.at(int(item));
    const auto found = std::upper_bound(barriers.begin(), barriers.end(), place);
    return found != barriers.end() && *found < next;
}

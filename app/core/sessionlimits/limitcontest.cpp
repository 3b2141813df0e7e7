/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitcontest.h"

namespace
{
using PamLimits::Half;
using PamLimits::Item;

/** Where the rule for @p item is kept: both items for logins share a place. */
int placeOf(Item item)
{
    return int(item == Item::MaxSysLogins ? Item::MaxLogins : item);
}

bool isMeant(quint8 type, Half half)
{
    return (type & (half == PamLimits::SoftHalf ? PamLimits::Soft : PamLimits::Hard)) != 0;
}
}

PamLimits::Contest::Contest(const Rules &rules, QVector<Outcome> *outcomes)
    : m_rules(rules)
    , m_outcomes(outcomes)
{
}

void PamLimits::Contest::add(int place, Rank rank)
{
    const Line &line = m_rules.lines().at(place);
    const bool isForLogins = line.hasItem && kindOf(line.item) == ItemKind::Logins;
    if (isForLogins) {
        // Even when the rule is lost or has a bad value.
        m_logins = line.item;
    }
    if (line.kind != LineKind::Rule) {
        return;
    }
    Winner candidate{rank, place, -1};
    if (m_outcomes) {
        candidate.outcome = m_outcomes->size();
        m_outcomes->append({place, rank, {}});
    }
    if ((rank == Rank::LoginsOfGroup || rank == Rank::LoginsOfAll) && line.item != Item::MaxLogins) {
        setFate(candidate, SoftHalf, Fate::Invalid, -1);
        setFate(candidate, HardHalf, Fate::Invalid, -1);
        return;
    }
    addRule(line, candidate);
}

void PamLimits::Contest::addRule(const Line &line, const Winner &candidate)
{
    Limit &limit = m_limits.at(placeOf(line.item));
    if (!hasTwoLimits(kindOf(line.item))) {
        take(limit[SoftHalf], candidate, SoftHalf);
        return;
    }
    if (isMeant(line.type, SoftHalf) && !take(limit[SoftHalf], candidate, SoftHalf)) {
        if (isMeant(line.type, HardHalf)) {
            setFate(candidate, HardHalf, Fate::Blocked, limit[SoftHalf].line);
        }
        return;
    }
    if (isMeant(line.type, HardHalf)) {
        take(limit[HardHalf], candidate, HardHalf);
    }
}

bool PamLimits::Contest::take(Winner &winner, const Winner &candidate, Half half)
{
    const ItemKind kind = kindOf(m_rules.lines().at(candidate.line).item);
    const bool countsRank = hasTwoLimits(kind) || kind == ItemKind::Logins;
    if (countsRank && winner.rank < candidate.rank) {
        setFate(candidate, half, Fate::Outranked, winner.line);
        return false;
    }
    const bool isOutranked = countsRank && candidate.rank < winner.rank;
    setFate(winner, half, isOutranked ? Fate::Outranked : Fate::Overridden, candidate.line);
    setFate(candidate, half, Fate::Decides, -1);
    winner = candidate;
    return true;
}

void PamLimits::Contest::setFate(const Winner &loser, Half half, Fate fate, int against)
{
    if (loser.outcome >= 0) {
        (*m_outcomes)[loser.outcome].parts.at(half) = {fate, against};
    }
}

int PamLimits::Contest::winner(Item item, Half half) const
{
    const ItemKind kind = kindOf(item);
    if (kind == ItemKind::Logins && item != m_logins) {
        return -1;
    }
    return m_limits.at(placeOf(item)).at(hasTwoLimits(kind) ? half : SoftHalf).line;
}

void PamLimits::Contest::dismiss(Item item, Half half, Fate fate, int against, int successor)
{
    Winner &winner = m_limits.at(placeOf(item)).at(half);
    setFate(winner, half, fate, against);
    winner.line = successor;
    winner.outcome = -1;
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITCANDIDATES_H
#define LIMITCANDIDATES_H

#include "limitrules.h"

#include <array>

namespace PamLimits
{
/**
 * Finds the lines of a domain that can decide something or keep others from deciding. All lines of a
 * domain have the same rank for an account, so these are
 * - the last one for a soft and the last one for a hard limit of each item,
 * - the first one for a soft limit, which keeps rules of type "-" and lower rank from both limits,
 * - earlier rules of type "-" for hard limits, as far as such a first one stands between them and the next.
 */
class CandidateChooser
{
public:
    explicit CandidateChooser(const Rules &rules);

    /** Takes the lines of a domain from the last to the first; true for those that count. */
    bool counts(int place);

    /** The later line of the domain that overrides one that does not count. */
    int successorOf(int place) const;

    /** Call it before the first line of each domain. */
    void startDomain();

private:
    /** Places of lines that were looked at before, which are later ones; -1 for none. */
    struct Seen {
        int soft = -1;
        int hard = -1;
        int both = -1;
        bool bad = false;
    };

    bool isBarrierBetween(Item item, int place, int next) const;

    const Rules &m_rules;
    /** Whether a line is the first of its domain for the soft limit of its item. */
    QVector<bool> m_isFirst;
    /** The places of these lines, by items. */
    std::array<QVector<int>, itemCount> m_barriers;
    std::array<Seen, itemCount> m_seen;
};
}

#endif

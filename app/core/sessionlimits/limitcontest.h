/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITCONTEST_H
#define LIMITCONTEST_H

#include "limitmatch.h"

#include <array>

namespace PamLimits
{
/** What became of one half of a rule, the soft or the hard limit. */
enum class Fate : quint8 {
    NotMeant, ///< the rule is not for this half
    Decides,
    Outranked, ///< a rule of a higher rank decides
    Overridden, ///< a later rule decides
    Blocked, ///< the hard limit of a rule of type "-" is lost when its soft limit is outranked at this point
    Lowered, ///< the hard limit is below this soft one, and counts for both
    Refused, ///< the kernel takes no hard limit above /proc/sys/fs/nr_open
    Exempt, ///< another line exempts the account from all limits
    Invalid, ///< "%" is for maxlogins only
    NotReached, ///< the session fails before
};

/** The two halves of a limit or of a rule. Items with a single limit have it in the soft half. */
enum Half { SoftHalf, HardHalf };
constexpr int halfCount = 2;

/** How a rule that matches an account came out. */
struct Outcome {
    struct Part {
        Fate fate = Fate::NotMeant;
        /** The place of the line that it lost against; -1 for none. */
        int against = -1;
    };

    /** The place of the line among all. */
    int line = -1;
    Rank rank = Rank::None;
    std::array<Part, halfCount> parts;

    bool decides() const
    {
        return parts[SoftHalf].fate == Fate::Decides || parts[HardHalf].fate == Fate::Decides;
    }
};

/** Compares the rules for one account, in the order in which they are read. */
class Contest
{
public:
    /** @param outcomes receives what became of each rule; null when only the winners count */
    explicit Contest(const Rules &rules, QVector<Outcome> *outcomes = nullptr);

    /** The next rule, by the place of its line. */
    void add(int place, Rank rank);

    /** The place of the line that decides; -1 for none. */
    int winner(Item item, Half half) const;

    /** Takes the win away: sets what became of the winner, and the line that decides instead; -1 for none. */
    void dismiss(Item item, Half half, Fate fate, int against, int successor);

private:
    struct Winner {
        Rank rank = Rank::None;
        int line = -1;
        int outcome = -1;
    };

    using Limit = std::array<Winner, halfCount>;

    void addRule(const Line &line, const Winner &candidate);
    bool take(Winner &winner, const Winner &candidate, Half half);
    void setFate(const Winner &loser, Half half, Fate fate, int against);

    const Rules &m_rules;
    QVector<Outcome> *const m_outcomes;
    std::array<Limit, itemCount> m_limits;
    /** Which of the two items that share a value is limited. */
    Item m_logins = Item::MaxLogins;
};
}

#endif

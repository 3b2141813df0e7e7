/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITUSAGE_H
#define LIMITUSAGE_H

#include "sessionlimits.h"

namespace PamLimits
{
/** What each line of the limits files does for many accounts together. */
class LimitUsage
{
public:
    struct Line {
        /** For how many accounts it decides something, and the first of them. */
        int decides = 0;
        QList<QByteArray> decidesFor;
        /** How many of the counted accounts it is for. */
        int matches = 0;
        /** The place of a line that it loses against, for the first account; -1 for none. */
        int against = -1;
        /** Whether it loses against different lines. */
        bool hasMore = false;
        /** How many accounts it locks out, and the first of them. */
        int lockedOut = 0;
        QByteArray firstLockedOut;
    };

    /** How many accounts are named for a line. */
    static constexpr int maxNames = 12;

    explicit LimitUsage(const SessionLimits &limits);

    /** Counts what the lines do for @p account. */
    void add(const Account &account);

    /** Call it after the last account. */
    void finish();

    const Line &at(int place) const;

    /** Whether an account with this name was counted. */
    bool hasAccount(const QByteArray &name) const;

private:
    void addOutcome(const Outcome &outcome, const Account &account);
    static void addDecision(Line &line, const Account &account);

    SessionLimits m_limits;
    QVector<Line> m_lines;
    QSet<QByteArray> m_names;
};

/** The names of those of @p accounts for which the line at @p place decides something. */
QList<QByteArray> decidedBy(int place, const SessionLimits &limits, const QVector<Account> &accounts);
}

#endif

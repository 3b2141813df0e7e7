/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SESSIONCOMPARISON_H
#define SESSIONCOMPARISON_H

#include "pamsessions.h"

#include "sessionlimits.h"

/** Compares what the application says about a session with a real session. */
class SessionComparison
{
public:
    /** The differences between @p session of @p account and what @p limits says about it, a line each. */
    QStringList differences(const PamSession &session,
                            const PamSession &plain,
                            const PamLimits::SessionLimits &limits,
                            const PamLimits::Account &account);

    /** Like differences(), for the limits that the kernel set. Leaves out those it was not able to raise. */
    QStringList kernelDifferences(const PamSession &session,
                                  const PamSession &plain,
                                  const PamLimits::SessionLimits &limits,
                                  const PamLimits::Account &account);

    /** How many values were compared. */
    int compared() const;

    /** How many values were not compared, because they could not be known. */
    int untold() const;

private:
    void compare(const QString &what, const QString &expected, const QString &found);
    void compareItems(const PamSession &session, const PamSession &plain, const PamLimits::Answer &answer);
    void compareOpening(const PamSession &session,
                        const PamLimits::SessionLimits &limits,
                        const PamLimits::Answer &answer,
                        const PamLimits::Account &account);
    void
    compareRules(const PamSession &session, const PamLimits::SessionLimits &limits, const PamLimits::Account &account);

    QStringList m_differences;
    int m_compared = 0;
    int m_untold = 0;
};

#endif

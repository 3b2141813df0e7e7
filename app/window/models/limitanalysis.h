/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITANALYSIS_H
#define LIMITANALYSIS_H

#include "accountrecords.h"
#include "limitfindings.h"
#include "limitusage.h"

#include <QBitArray>

#include <atomic>
#include <memory>

/** What the lines of the limits files do. Finding out takes long with many lines or users, so it is done once. */
class LimitAnalysis
{
public:
    using Pointer = std::shared_ptr<const LimitAnalysis>;

    /** Set to give up. */
    using Cancelled = std::shared_ptr<std::atomic_bool>;

    /**
     * Analyses each line and, with @p users, what it does for each of them. May run in any thread.
     *
     * @return null when it was cancelled
     */
    static Pointer
    create(const PamLimits::SessionLimits &limits, const QVector<UserRecord> &users, const Cancelled &cancelled);

    const PamLimits::SessionLimits &limits() const;

    /** Whether the line at @p place is a rule or an exemption that PAM understands completely. */
    bool isApplied(int place) const;

    /** Whether the line at @p place is suspicious. */
    bool isProblem(int place) const;

    /** What is suspicious about the line at @p place. */
    QStringList problemsOf(int place) const;

    /** What the line at @p place does for the users; null while users were not looked at. */
    const PamLimits::LimitUsage::Line *usageOf(int place) const;

private:
    explicit LimitAnalysis(const PamLimits::SessionLimits &limits);

    bool countUsers(const QVector<UserRecord> &users, const std::atomic_bool &cancelled);
    bool sortLines(const std::atomic_bool &cancelled);

    PamLimits::SessionLimits m_limits;
    std::unique_ptr<PamLimits::LimitUsage> m_usage;
    std::unique_ptr<PamLimits::Findings> m_findings;
    QBitArray m_applied;
    QBitArray m_problems;
};

#endif

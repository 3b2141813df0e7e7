/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitanalysis.h"

#include "limitwords.h"
#include "sessionaccountof.h"

#include <KLocalizedString>

LimitAnalysis::Pointer LimitAnalysis::create(const PamLimits::SessionLimits &limits,
                                             const QVector<UserRecord> &users,
                                             const Cancelled &cancelled)
{
    const std::shared_ptr<LimitAnalysis> analysis(new LimitAnalysis(limits));
    const bool isDone = analysis->countUsers(users, *cancelled) && analysis->sortLines(*cancelled);
    return isDone ? analysis : nullptr;
}

LimitAnalysis::LimitAnalysis(const PamLimits::SessionLimits &limits)
    : m_limits(limits)
    , m_applied(limits.rules().lines().size())
    , m_problems(limits.rules().lines().size())
{
}

bool LimitAnalysis::countUsers(const QVector<UserRecord> &users, const std::atomic_bool &cancelled)
{
    if (users.isEmpty()) {
        return true;
    }
    m_usage = std::make_unique<PamLimits::LimitUsage>(m_limits);
    for (const UserRecord &user : users) {
        if (cancelled) {
            return false;
        }
        m_usage->add(sessionAccountOf(user));
    }
    m_usage->finish();
    m_findings = std::make_unique<PamLimits::Findings>(m_limits, *m_usage);
    return true;
}

bool LimitAnalysis::sortLines(const std::atomic_bool &cancelled)
{
    const PamLimits::Rules &rules = m_limits.rules();
    for (int place = 0; place < rules.lines().size(); ++place) {
        if (cancelled) {
            return false;
        }
        const PamLimits::Line &line = rules.lines().at(place);
        m_applied.setBit(place, rules.isEffective(line) && LimitWords::problem(rules, line).isEmpty());
        m_problems.setBit(place, !isApplied(place) || !problemsOf(place).isEmpty());
    }
    return true;
}

const PamLimits::SessionLimits &LimitAnalysis::limits() const
{
    return m_limits;
}

bool LimitAnalysis::isApplied(int place) const
{
    return m_applied.testBit(place);
}

bool LimitAnalysis::isProblem(int place) const
{
    return m_problems.testBit(place);
}

QStringList LimitAnalysis::problemsOf(int place) const
{
    const PamLimits::Rules &rules = m_limits.rules();
    const PamLimits::Line &line = rules.lines().at(place);
    const QString ofFile = LimitWords::problem(rules.fileOf(line));
    if (!ofFile.isEmpty()) {
        return {ofFile};
    }
    if (m_findings) {
        return m_findings->statementsOf(place);
    }
    const QString ofLine = LimitWords::problem(rules, line);
    return ofLine.isEmpty() ? QStringList() : QStringList(i18n("PAM ignores this line: %1", ofLine));
}

const PamLimits::LimitUsage::Line *LimitAnalysis::usageOf(int place) const
{
    return m_usage ? &m_usage->at(place) : nullptr;
}

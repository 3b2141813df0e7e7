/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitusage.h"

#include <algorithm>

namespace
{
using PamLimits::HardHalf;
using PamLimits::Outcome;
using PamLimits::SoftHalf;

/** The place of the line that @p outcome lost against; -1 for none. */
int opponent(const Outcome &outcome)
{
    return std::max(outcome.parts[SoftHalf].against, outcome.parts[HardHalf].against);
}
}

PamLimits::LimitUsage::LimitUsage(const SessionLimits &limits)
    : m_limits(limits)
    , m_lines(limits.rules().lines().size())
{
}

void PamLimits::LimitUsage::add(const Account &account)
{
    m_names.insert(account.name);
    QVector<Outcome> outcomes;
    const Answer answer = m_limits.answer(account, &outcomes);
    for (const Outcome &outcome : qAsConst(outcomes)) {
        addOutcome(outcome, account);
    }
    if (answer.exemption >= 0) {
        addDecision(m_lines[answer.exemption], account);
    }
    if (answer.failure.line >= 0) {
        Line &line = m_lines[answer.failure.line];
        line.firstLockedOut = line.lockedOut == 0 ? account.name : line.firstLockedOut;
        ++line.lockedOut;
    }
}

void PamLimits::LimitUsage::addDecision(Line &line, const Account &account)
{
    ++line.decides;
    if (line.decides <= maxNames) {
        line.decidesFor.append(account.name);
    }
}

void PamLimits::LimitUsage::addOutcome(const Outcome &outcome, const Account &account)
{
    Line &line = m_lines[outcome.line];
    ++line.matches;
    if (outcome.decides()) {
        addDecision(line, account);
        return;
    }
    const int against = opponent(outcome);
    if (line.matches > 1 && line.decides == 0 && against != line.against) {
        line.hasMore = true;
    } else {
        line.against = against;
    }
}

void PamLimits::LimitUsage::finish()
{
    for (int place = 0; place < m_lines.size(); ++place) {
        const int successor = m_limits.successorOf(place);
        if (successor >= 0) {
            m_lines[place].matches = m_lines.at(successor).matches;
            m_lines[place].against = successor;
        }
    }
}

const PamLimits::LimitUsage::Line &PamLimits::LimitUsage::at(int place) const
{
    return m_lines.at(place);
}

bool PamLimits::LimitUsage::hasAccount(const QByteArray &name) const
{
    return m_names.contains(name);
}

QList<QByteArray> PamLimits::decidedBy(int place, const SessionLimits &limits, const QVector<Account> &accounts)
{
    QList<QByteArray> names;
    for (const Account &account : accounts) {
        if (limits.decides(place, account)) {
            names.append(account.name);
        }
    }
    return names;
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitindex.h"

#include "limitcandidates.h"

#include <algorithm>

PamLimits::LineIndex::LineIndex(const Rules &rules)
    : m_exemptions(rules.domains().size(), -1)
    , m_successors(rules.lines().size(), -1)
{
    sortByDomain(rules);
    choose(rules);
}

void PamLimits::LineIndex::sortByDomain(const Rules &rules)
{
    const QVector<Line> &lines = rules.lines();
    QVector<int> begins(rules.domains().size() + 1, 0);
    QVector<int> chosen;
    for (int place = 0; place < lines.size(); ++place) {
        const Line &line = lines.at(place);
        const auto domain = int(line.domain);
        if (!rules.fileOf(line).isRead()) {
            continue;
        }
        if (line.hasItem) {
            ++begins[domain + 1];
            chosen.append(place);
        } else if (line.kind == LineKind::Exemption && m_exemptions.at(domain) < 0) {
            m_exemptions[domain] = place;
        }
    }
    for (int i = 1; i < begins.size(); ++i) {
        begins[i] += begins.at(i - 1);
    }
    m_all.begins = begins;
    m_all.numbers.resize(chosen.size());
    for (const int place : qAsConst(chosen)) {
        m_all.numbers[begins[int(lines.at(place).domain)]++] = place;
    }
}

void PamLimits::LineIndex::choose(const Rules &rules)
{
    CandidateChooser chooser(rules);
    m_candidates.begins.append(0);
    for (int domain = 0; domain < rules.domains().size(); ++domain) {
        chooser.startDomain();
        const Places places = all(domain);
        const int begin = m_candidates.numbers.size();
        for (const int *place = places.end(); place != places.begin();) {
            --place;
            const int successor = chooser.successorOf(*place);
            if (chooser.counts(*place)) {
                m_candidates.numbers.append(*place);
            } else {
                m_successors[*place] = successor;
            }
        }
        std::reverse(m_candidates.numbers.begin() + begin, m_candidates.numbers.end());
        m_candidates.begins.append(m_candidates.numbers.size());
    }
}

PamLimits::LineIndex::Places PamLimits::LineIndex::Lists::at(int list) const
{
    return {numbers.constData() + begins.at(list), numbers.constData() + begins.at(list + 1)};
}

PamLimits::LineIndex::Places PamLimits::LineIndex::all(int domain) const
{
    return m_all.at(domain);
}

PamLimits::LineIndex::Places PamLimits::LineIndex::candidates(int domain) const
{
    return m_candidates.at(domain);
}

int PamLimits::LineIndex::exemption(int domain) const
{
    return m_exemptions.at(domain);
}

int PamLimits::LineIndex::successor(int place) const
{
    return m_successors.at(place);
}

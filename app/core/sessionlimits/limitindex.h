/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITINDEX_H
#define LIMITINDEX_H

#include "limitrules.h"

namespace PamLimits
{
/** The lines of each domain. */
class LineIndex
{
public:
    LineIndex() = default;
    explicit LineIndex(const Rules &rules);

    /** Places of lines, in the order in which they are read. */
    struct Places {
        const int *first;
        const int *last;

        const int *begin() const
        {
            return first;
        }
        const int *end() const
        {
            return last;
        }
    };

    /** The lines with an item, of the domain at place @p domain. */
    Places all(int domain) const;

    /** Those of them that a contest can depend on: a few, even among very many. */
    Places candidates(int domain) const;

    /** The first exemption of a domain; -1 when there is none. */
    int exemption(int domain) const;

    /** The candidate of its domain that a line always loses against; -1 for a candidate. */
    int successor(int place) const;

private:
    /** Lists of numbers, one after the other. */
    struct Lists {
        QVector<int> numbers;
        QVector<int> begins;

        Places at(int list) const;
    };

    void sortByDomain(const Rules &rules);
    void choose(const Rules &rules);

    Lists m_all;
    Lists m_candidates;
    QVector<int> m_exemptions;
    QVector<int> m_successors;
};
}

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef TABLE_H
#define TABLE_H

#include "comparison.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

class Results;

/** The comparisons with their results. */
class Table
{
public:
    Table(const Comparisons &comparisons, const Results &results);

    QString toMarkdown() const;
    QByteArray toJson() const;

    /** Whether something takes longer, or grows faster, than is accepted, or nothing was measured at all. */
    bool hasSurprise() const;

private:
    struct Row {
        Comparison comparison;
        QString size;
        double library;
        std::optional<double> peer;
        std::optional<double> limit;
        benchmark::BigO growth;

        /** What the limit is for: the ratio or, without a peer, the Megabytes or the milliseconds. */
        double figure() const;
        double unit() const;
        bool isReached() const;
        bool isAccepted() const;
        bool growsTooFast() const;
        QString reached() const;
        QString growthText() const;
        QString amount(double value) const;
    };

    void add(const Comparison &comparison, const Results &results, std::optional<int64_t> size);

    std::vector<Row> m_rows;
};

#endif

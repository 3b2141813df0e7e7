/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef RESULTS_H
#define RESULTS_H

#include <benchmark/benchmark.h>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

/** Gathers the results of all runs while it shows them. */
class Results : public benchmark::ConsoleReporter
{
public:
    Results();

    void ReportRuns(const std::vector<Run> &runs) override;

    /** The lowest result of a benchmark in any of its runs: seconds, or bytes; nothing when it was not run. */
    std::optional<double> least(const std::string &name) const;

    /** How the time of a benchmark grows, by the best fit over @p sizes sizes; oNone without one. */
    benchmark::BigO growth(const std::string &family, std::size_t sizes) const;

    /** The full names of the benchmarks that take less than a second a run. */
    std::vector<std::string> quickOnes() const;

private:
    struct Result {
        double least;
        bool isTime;
        std::string fullName;
    };

    struct Growth {
        benchmark::BigO order;
        std::size_t sizes;
        double deviation;
    };

    void addTime(const Run &run);
    void addGrowth(const Run &order, const Run &deviation);

    std::map<std::string, Result> m_results;
    std::map<std::string, Growth> m_growths;
    std::map<std::string, std::set<int64_t>> m_sizesToFit; ///< of each family, since it was fitted
};

#endif

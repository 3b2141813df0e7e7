/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "results.h"

#include "comparison.h"

#include <algorithm>

namespace
{
/** The value that a benchmark has reported, in place of its time. */
constexpr char reported[] = "reported";

double valueOf(const benchmark::BenchmarkReporter::Run &run)
{
    const auto value = run.counters.find(reported);
    if (value != run.counters.end()) {
        return value->second;
    }
    const bool given = run.run_name.time_type == "manual_time";
    return (given ? run.real_accumulated_time : run.cpu_accumulated_time) / static_cast<double>(run.iterations);
}
}

void reportBytes(benchmark::State &state, double bytes)
{
    state.counters[reported] = bytes;
}

void reportSeconds(benchmark::State &state, double seconds)
{
    state.counters[reported] = seconds;
}

Results::Results()
    : ConsoleReporter(OO_None)
{
}

void Results::ReportRuns(const std::vector<Run> &runs)
{
    ConsoleReporter::ReportRuns(runs);
    for (const Run &run : runs) {
        if (run.run_type == Run::RT_Iteration) {
            addTime(run);
        }
    }
    // A fit comes as a pair.
    if (runs.size() == 2 && runs[0].report_big_o) {
        addGrowth(runs[0], runs[1]);
    }
}

void Results::addTime(const Run &run)
{
    const std::string &size = run.run_name.args;
    const std::string name = run.run_name.function_name + (size.empty() ? "" : '/' + size);
    const double value = valueOf(run);
    const bool isTime = run.counters.count(reported) == 0;
    Result &result = m_results.emplace(name, Result{value, isTime, run.benchmark_name()}).first->second;
    result.least = std::min(result.least, value);
    m_sizesToFit[run.run_name.function_name].insert(run.complexity_n);
}

void Results::addGrowth(const Run &order, const Run &deviation)
{
    const std::string &family = order.run_name.function_name;
    const Growth growth{order.complexity, m_sizesToFit[family].size(), deviation.cpu_accumulated_time};
    m_sizesToFit.erase(family);
    Growth &best = m_growths.emplace(family, growth).first->second;
    if (growth.sizes > best.sizes || (growth.sizes == best.sizes && growth.deviation < best.deviation)) {
        best = growth;
    }
}

std::optional<double> Results::least(const std::string &name) const
{
    const auto found = m_results.find(name);
    return found == m_results.end() ? std::nullopt : std::optional(found->second.least);
}

benchmark::BigO Results::growth(const std::string &family, std::size_t sizes) const
{
    const auto found = m_growths.find(family);
    return found == m_growths.end() || found->second.sizes < sizes ? benchmark::oNone : found->second.order;
}

std::vector<std::string> Results::quickOnes() const
{
    std::vector<std::string> names;
    for (const auto &[name, result] : m_results) {
        if (result.isTime && result.least < 1) {
            names.push_back(result.fullName);
        }
    }
    return names;
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

// Runs the library beside its peers and writes table.md and table.json into the current directory. Takes the
// options of Google Benchmark, such as --benchmark_filter=getUsers. Fails when something takes longer, or
// grows faster with the size, than is accepted, and when nothing was measured.

#include "comparison.h"
#include "results.h"
#include "table.h"

#include <QApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QTextStream>

namespace
{
/** How often a benchmark is run that takes less than a second; library and peer take turns. */
constexpr int rounds = 9;

/** The shortest time of a run, which has as many iterations as that takes. */
constexpr double leastSeconds = 0.1;

Comparisons allComparisons()
{
    Comparisons all;
    for (const auto &comparisons : {accountComparisons(),
                                    processComparisons(),
                                    modelComparisons(),
                                    dialogComparisons(),
                                    dialogListComparisons(),
                                    limitsComparisons(),
                                    passwordComparisons(),
                                    iconComparisons(),
                                    loadComparisons(),
                                    pageComparisons(),
                                    windowComparisons()}) {
        all.insert(all.end(), comparisons.begin(), comparisons.end());
    }
    return all;
}

void addBenchmark(const Comparison &comparison, const char *side, Comparison::Function *function)
{
    const std::string name = std::string(comparison.name) + '/' + side;
    const bool hasSize = !comparison.sizes.empty();
    auto *const benchmark = benchmark::RegisterBenchmark(name.c_str(), [function, hasSize](benchmark::State &state) {
        function(state);
        if (hasSize) {
            state.SetComplexityN(state.range(0));
        }
    });
    benchmark->Unit(benchmark::kMillisecond);
    for (const int64_t size : comparison.sizes) {
        benchmark->Arg(size);
    }
    if (comparison.growth != benchmark::oNone) {
        benchmark->Complexity();
    }
    switch (comparison.figure) {
    case Figure::Time:
        benchmark->MinTime(leastSeconds)->MeasureProcessCPUTime();
        break;
    case Figure::ChildTime:
        benchmark->MinTime(leastSeconds)->UseManualTime();
        break;
    case Figure::Memory:
    case Figure::Delay:
        benchmark->Iterations(1);
        break;
    }
}

void run(Results &results)
{
    benchmark::RunSpecifiedBenchmarks(&results);
    std::string quickOnes;
    for (const std::string &name : results.quickOnes()) {
        quickOnes += (quickOnes.empty() ? "^(" : "|") + name;
    }
    for (int round = 1; round < rounds && !quickOnes.empty(); ++round) {
        benchmark::RunSpecifiedBenchmarks(&results, quickOnes + ")$");
    }
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("Cannot write %s", qPrintable(path));
    }
}
}

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    // The offscreen platform complains about each window.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    const Comparisons comparisons = allComparisons();
    for (const Comparison &comparison : comparisons) {
        addBenchmark(comparison, "library", comparison.library);
        if (comparison.peer) {
            addBenchmark(comparison, "peer", comparison.peer);
        }
    }
    Results results;
    run(results);

    const Table table(comparisons, results);
    write(QStringLiteral("table.md"), table.toMarkdown().toUtf8());
    write(QStringLiteral("table.json"), table.toJson());
    QTextStream(stdout) << '\n' << table.toMarkdown();
    return table.hasSurprise() ? 1 : 0;
}

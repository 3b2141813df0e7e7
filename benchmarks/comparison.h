/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef COMPARISON_H
#define COMPARISON_H

#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

/** What is measured. */
enum class Figure {
    Time, ///< the processor time of this process
    ChildTime, ///< the time of another process, which the benchmark reports for each iteration
    Memory, ///< what the benchmark reports with reportBytes()
    Delay, ///< what the benchmark reports with reportSeconds()
};

/** What the library may take at most, for sizes from @p from on. */
struct Limit {
    double value = 0; ///< times what the peer takes or, without one, Megabytes or milliseconds; 0 for no limit
    int64_t from = 0;
    double accepted = 0; ///< the same for a missed limit that is explained; 0 if it is never missed
};

/** Something that the library does, and what it is compared with. */
struct Comparison {
    using Function = void(benchmark::State &);

    const char *name; ///< in the names of the benchmarks
    const char *what;
    const char *beside; ///< what the peer does; empty without one
    Limit limit;
    const char *explanation; ///< the heading of docs/performance.md that explains why, such as "#loading"; or empty
    std::vector<int64_t> sizes; ///< passed as range(0); may be empty
    benchmark::BigO growth; ///< how the time may grow with the size at most; oNone when that is not fitted
    Function *library;
    Function *peer = nullptr;
    Figure figure = Figure::Time;
};

using Comparisons = std::vector<Comparison>;

Comparisons accountComparisons();
Comparisons processComparisons();
Comparisons modelComparisons();
Comparisons dialogComparisons();
Comparisons dialogListComparisons();
Comparisons limitsComparisons();
Comparisons passwordComparisons();
Comparisons iconComparisons();
Comparisons loadComparisons();
Comparisons pageComparisons();
Comparisons windowComparisons();

/** Measures the time of @p work. */
template<typename Work>
void measure(benchmark::State &state, const Work &work)
{
    for ([[maybe_unused]] auto iteration : state) {
        benchmark::DoNotOptimize(work());
    }
}

void reportBytes(benchmark::State &state, double bytes);
void reportSeconds(benchmark::State &state, double seconds);

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef RUNTOGETHER_H
#define RUNTOGETHER_H

#include <atomic>
#include <thread>
#include <vector>

/** Runs @p work in several threads that start at the same time. */
template<typename Work>
void runTogether(Work work)
{
    constexpr int threadCount = 4;
    std::atomic<int> waiting{threadCount};
    std::vector<std::thread> threads;
    threads.reserve(threadCount);
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&waiting, &work] {
            --waiting;
            while (waiting > 0) {
                std::this_thread::yield();
            }
            work();
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
}

#endif

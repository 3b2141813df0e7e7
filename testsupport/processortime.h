/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PROCESSORTIME_H
#define PROCESSORTIME_H

#include <QtGlobal>

#include <cstdio>
#include <ctime>
#include <sys/resource.h>

/** The processor time of this process (RUSAGE_SELF) or its children (RUSAGE_CHILDREN) in seconds. */
inline double processorSeconds(int who)
{
    rusage usage{};
    getrusage(who, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/** The processor time of this process in nanoseconds, for work that is too short for the above. */
inline qint64 processorNanoseconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
}

/** Times of a thread so far, in milliseconds. */
struct ThreadTimes {
    qint64 computed = 0;
    /** In which it waited for a processor, which other programs had. */
    qint64 queued = 0;
};

inline ThreadTimes threadTimes()
{
    long long computed = 0;
    long long queued = 0;
    FILE *file = fopen("/proc/thread-self/schedstat", "re");
    if (!file || fscanf(file, "%lld %lld", &computed, &queued) != 2) {
        qFatal("Cannot read /proc/thread-self/schedstat");
    }
    fclose(file);
    return {computed / 1000000, queued / 1000000};
}

inline qint64 queuedMilliseconds()
{
    return threadTimes().queued;
}

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PROCESSORTIME_H
#define PROCESSORTIME_H

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

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

// loadtime LIBRARY...: prints the seconds of processor time that loading the libraries takes until
// they are ready for use.

#include <cstdio>
#include <ctime>

#include <dlfcn.h>

namespace
{
double processorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}
}

int main(int argc, char **argv)
{
    const double start = processorSeconds();
    for (int i = 1; i < argc; ++i) {
        if (!dlopen(argv[i], RTLD_NOW)) {
            std::fprintf(stderr, "%s\n", dlerror());
            return 1;
        }
    }
    std::printf("%.9f\n", processorSeconds() - start);
}

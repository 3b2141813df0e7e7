/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "confinement.h"

#include <QtGlobal>

#include <algorithm>
#include <iterator>

#include <sys/mman.h>
#include <sys/resource.h>

#ifdef HAVE_SECCOMP
#include <seccomp.h>
#endif

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define HAVE_SANITIZER // reserves terabytes of address space
#endif

namespace
{
struct Limit {
    __rlimit_resource resource;
    rlim_t value;
};

constexpr Limit limits[] = {
    {RLIMIT_CORE, 0},
    {RLIMIT_CPU, Confinement::mostTime},
    {RLIMIT_FSIZE, 0},
    {RLIMIT_NOFILE, 0},
#ifndef HAVE_SANITIZER
    {RLIMIT_AS, 1024L * 1024 * 1024},
    {RLIMIT_DATA, Confinement::mostMemory},
#endif
};

bool setLimits()
{
    return std::all_of(std::begin(limits), std::end(limits), [](const Limit &limit) {
        const rlimit both = {limit.value, limit.value};
        return setrlimit(limit.resource, &both) == 0;
    });
}

#ifdef HAVE_SECCOMP
/** What memory, output, clocks, locks and the end of the process need. Other calls fail as not permitted. */
constexpr int systemCalls[] = {
    SCMP_SYS(brk),
    SCMP_SYS(clock_gettime),
    SCMP_SYS(exit),
    SCMP_SYS(exit_group),
    SCMP_SYS(futex),
    SCMP_SYS(madvise),
    SCMP_SYS(mremap),
    SCMP_SYS(munmap),
    SCMP_SYS(rt_sigprocmask),
    SCMP_SYS(rt_sigreturn),
#ifdef HAVE_SANITIZER // asks for the stacks before each longjmp(), as decoders use it for damaged pictures
    SCMP_SYS(sigaltstack),
#endif
    SCMP_SYS(write),
};

bool filterSystemCalls()
{
    void *const filter = seccomp_init(SCMP_ACT_ERRNO(EPERM));
    if (!filter) {
        return false;
    }
    bool complete = std::all_of(std::begin(systemCalls), std::end(systemCalls), [filter](int call) {
        return seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, 0) == 0;
    });
    // Memory, but not executable.
    const scmp_arg_cmp notExecutable = {2, SCMP_CMP_MASKED_EQ, PROT_EXEC, 0};
    for (const int call : {SCMP_SYS(mmap), SCMP_SYS(mprotect)}) {
        complete = complete && seccomp_rule_add_array(filter, SCMP_ACT_ALLOW, call, 1, &notExecutable) == 0;
    }
    complete = complete && seccomp_load(filter) == 0;
    seccomp_release(filter);
    return complete;
}
#else
bool filterSystemCalls()
{
    return true;
}
#endif
}

bool Confinement::begin()
{
    return setLimits() && filterSystemCalls();
}

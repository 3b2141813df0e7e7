/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef STANDIN_H
#define STANDIN_H

#include <dlfcn.h>

/**
 * For a test program that defines a function of the C library itself, exported, so that the library
 * under test calls it: the function it stands in for.
 */
template<typename Function>
Function *original(Function * /*standIn*/, const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

#endif

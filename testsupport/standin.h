/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef STANDIN_H
#define STANDIN_H

#include <dlfcn.h>

/**
 * The function of the C library that the test program replaces by an exported one of its own, which the library
 * under test calls.
 */
template<typename Function>
Function *original(Function * /*standIn*/, const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CALLHOOK_H
#define CALLHOOK_H

#include <functional>

/**
 * The number of calls of read() and of the C library's account functions by @p read. The test program replaces
 * these functions. @p onCall runs before each call and gets the number of previous calls.
 */
int callsOf(
    const std::function<void()> &read, const std::function<void(int)> &onCall = [](int) {});

#endif

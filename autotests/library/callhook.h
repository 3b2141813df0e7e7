/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CALLHOOK_H
#define CALLHOOK_H

#include <functional>

/**
 * How often @p read calls read() and the C library's functions for accounts, which the test program stands
 * in for. Before each call, @p onCall gets the number of calls before it.
 */
int callsOf(
    const std::function<void()> &read, const std::function<void(int)> &onCall = [](int) {});

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PATIENCE_H
#define PATIENCE_H

/**
 * How long a test waits for what must happen, in milliseconds. A busy machine is no fault. But Qt ends a test function
 * after five minutes.
 */
constexpr int patience = 240000;

#endif

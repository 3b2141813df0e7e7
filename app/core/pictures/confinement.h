/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CONFINEMENT_H
#define CONFINEMENT_H

/** Takes rights away from a process that is about to handle hostile data. */
namespace Confinement
{
/** In seconds of processor time. */
constexpr int mostTime = 2;

/** Enough for one decoded picture and its decoder, in bytes. */
constexpr long mostMemory = 80L * 1024 * 1024;

/**
 * From now on the process can compute, allocate memory and write to open files, each within
 * limits, and nothing else. False when this is not possible.
 */
bool begin();
}

#endif

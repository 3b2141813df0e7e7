/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CONFINEMENT_H
#define CONFINEMENT_H

/** Takes rights from a process that is going to work on data of somebody hostile. */
namespace Confinement
{
/** In seconds of processor time. */
constexpr int mostTime = 2;

/** Enough for one decoded picture and its decoder, in bytes. */
constexpr long mostMemory = 80L * 1024 * 1024;

/**
 * From now on the process can compute, take memory and write to files that are open, each within
 * limits, and nothing else. False when that cannot be had.
 */
bool begin();
}

#endif

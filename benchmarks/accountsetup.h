/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTSETUP_H
#define ACCOUNTSETUP_H

#include "generatedaccounts.h"

#include <benchmark/benchmark.h>

using SharedGroups = GeneratedAccounts::SharedGroups;

/** Gives the machine as many generated accounts as the size of the benchmark says. */
void prepareAccounts(const benchmark::State &state, SharedGroups place = SharedGroups::Last);

#endif

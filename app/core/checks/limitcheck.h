/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITCHECK_H
#define LIMITCHECK_H

#include "machinecheck.h"

/** What is wrong with the limits files, which name accounts. The account files have to be readable. */
MachineCheck checkLimits();

#endif

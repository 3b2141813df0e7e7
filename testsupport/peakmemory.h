/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PEAKMEMORY_H
#define PEAKMEMORY_H

#include <QtGlobal>

/** The peak of the resident memory of this process. */
namespace PeakMemory
{
/** Resets the peak to the current resident memory. */
void reset();

/** The peak since reset() or the start of the program. */
qint64 bytes();
}

#endif

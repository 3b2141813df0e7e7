/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PEAKMEMORY_H
#define PEAKMEMORY_H

#include <QtGlobal>

/** The peak of the memory that this process has had resident. */
namespace PeakMemory
{
/** Makes what is resident now the peak. */
void reset();

/** The peak since reset() or the start of the program. */
qint64 bytes();
}

#endif

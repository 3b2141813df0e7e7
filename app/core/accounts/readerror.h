/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef READERROR_H
#define READERROR_H

#include <QStringList>

/** A sentence for each account file that cannot be read, with the reason; empty when all can be read. */
QStringList accountReadErrors();

#endif

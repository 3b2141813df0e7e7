/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef READERROR_H
#define READERROR_H

#include <QStringList>

/** Why each of the account files that cannot be read cannot: a sentence for each; none when all can. */
QStringList accountReadErrors();

#endif

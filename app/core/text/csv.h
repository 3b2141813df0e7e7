/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CSV_H
#define CSV_H

#include <QStringList>

/**
 * A line of comma-separated values, with its end: values are quoted where they have to be. Characters
 * that are none are shown by signs, so that the line can be shown on a terminal.
 */
QString csvLine(const QStringList &values);

#endif

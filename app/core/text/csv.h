/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CSV_H
#define CSV_H

#include <QStringList>

/** @p value in quotes, as a field of comma-separated values. */
QString csvQuoted(const QString &value);

/** The same where it needs quotes, otherwise @p value. */
QString csvField(const QString &value);

/**
 * A line of comma-separated values, with its end. Invisible characters are replaced by
 * signs, so that a terminal can show the line.
 */
QString csvLine(const QStringList &values);

#endif

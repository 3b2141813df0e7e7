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
 * A line of comma-separated values, with its end. Characters
 * that are none are shown by signs, so that the line can be shown on a terminal.
 */
QString csvLine(const QStringList &values);

#endif

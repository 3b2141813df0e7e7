/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef RANKING_H
#define RANKING_H

#include <QVariant>
#include <QVector>

/**
 * The place of each of @p values in their order, the same for equal ones. Numbers and Booleans are
 * compared as such, anything else as text: by the rules of the language, and numbers in it by their value.
 */
QVector<int> ranksOf(const QVector<QVariant> &values);

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SCRIPTFILE_H
#define SCRIPTFILE_H

#include <QString>

struct Plan;

/**
 * Writes the script of @p plan to @p path. Only its owner can read and run it, since it may contain a password hash.
 *
 * @return why it cannot be written; empty on success
 */
QString writeScript(const QString &path, const Plan &plan);

#endif

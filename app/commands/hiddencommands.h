/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef HIDDENCOMMANDS_H
#define HIDDENCOMMANDS_H

#include <optional>

class QString;

/**
 * Runs the command @p name if it is one of those with which this program starts itself to do work in
 * another process. Help does not mention them.
 *
 * @return the exit status; nothing when @p name is another command
 */
std::optional<int> runHiddenCommand(const QString &name, int &argc, char **argv);

#endif

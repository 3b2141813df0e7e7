/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef HIDDENCOMMANDS_H
#define HIDDENCOMMANDS_H

#include <optional>

class QString;

/**
 * Runs the command @p name if it is one that this program starts itself with, to do work in a process of
 * its own; help does not mention them.
 *
 * @return the exit status; none when @p name is another word
 */
std::optional<int> runHiddenCommand(const QString &name, int &argc, char **argv);

#endif

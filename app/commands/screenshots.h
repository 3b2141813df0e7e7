/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SCREENSHOTS_H
#define SCREENSHOTS_H

#include <QString>

/** Draws every page and every dialog into PNG files of @p directory; the exit status. */
int writeScreenshots(const QString &directory);

#endif

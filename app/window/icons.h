/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ICONS_H
#define ICONS_H

/** Icons without a desktop that provides them, and on high-resolution screens. */
namespace Icons
{
/** Scales the window and its icons for high-resolution screens. Call it before the application object exists. */
void useScreenResolution();

/** Takes icons that the desktop's theme lacks from an installed theme that has them. */
void setFallback();

/** Finds the installed themes on a platform that knows none, such as the one without a display. */
void findThemes();
}

#endif

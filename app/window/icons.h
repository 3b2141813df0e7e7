/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ICONS_H
#define ICONS_H

/** Icons, where no desktop sees to them and on screens with small pixels. */
namespace Icons
{
/** Has icons, and all else, drawn as large and as sharp as the screen calls for. Before there is an application. */
void useScreenResolution();

/** Has icons that the desktop's theme lacks taken from a theme that has them, if it is installed. */
void setFallback();

/** Finds the installed themes on a platform that knows of none, such as the one without a display. */
void findThemes();
}

#endif

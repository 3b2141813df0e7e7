/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef DARKPALETTE_H
#define DARKPALETTE_H

#include <QPalette>

/** Light letters on dark ground, as in the dark colour schemes of desktops. */
inline QPalette darkPalette()
{
    QPalette palette(QColor(0x31, 0x36, 0x3b), QColor(0x2a, 0x2e, 0x32));
    const QColor letters(0xfc, 0xfc, 0xfc);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText}) {
        palette.setColor(role, letters);
    }
    palette.setColor(QPalette::Base, QColor(0x1b, 0x1e, 0x20));
    palette.setColor(QPalette::AlternateBase, QColor(0x23, 0x26, 0x29));
    palette.setColor(QPalette::Highlight, QColor(0x1d, 0x5f, 0x8a));
    palette.setColor(QPalette::Link, QColor(0x4d, 0xb3, 0xff));
    return palette;
}

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SVGTEXT_H
#define SVGTEXT_H

class QByteArray;

/**
 * The SVG picture @p svg without what refers to other files: links, style sheets and images. Images
 * that are part of the text stay. Empty when the text is damaged.
 *
 * @param stopsAtEnd whether it does not matter what follows the picture. Qt minds it only in a compressed file.
 */
QByteArray svgWithoutReferences(const QByteArray &svg, bool stopsAtEnd);

#endif

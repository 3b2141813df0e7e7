/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SELECTIONGEOMETRY_P_H
#define SELECTIONGEOMETRY_P_H

#include <QHash>
#include <QRect>

#include <optional>

/**
 * Where an image, the square selected in it and the grips of that square are in a widget.
 *
 * All in whole pixels: divisions truncate toward zero, and right and bottom are the last pixels
 * of a rectangle, as QRect has them. Eight grips, known by their numbers, stand around the square:
 *
 *     0  1  2
 *     3     4
 *     5  6  7
 */
namespace SelectionGeometry
{
/** The place of an image of the size @p image, shown centred and as large as fits into @p widget. */
QRect imageRect(const QSize &image, const QSize &widget);

/** The largest square in the middle of @p rect. */
QRect centredSquare(const QRect &rect);

/** The grips inside @p selection, by number. */
QHash<int, QRect> handles(const QRect &selection);

/** The mouse cursors over the grips, by number. */
QHash<int, Qt::CursorShape> handleCursors();

/**
 * @p selection with its top left corner at @p topLeft, or as near as @p image allows. The last
 * column and the last row of the image are out of reach.
 */
QRect moved(const QRect &selection, const QPoint &topLeft, const QRect &image);

/**
 * @p selection after its grip number @p handle was dragged to @p position.
 *
 * A corner leaves the opposite corner in place. An edge leaves the opposite edge in place
 * and widens or narrows the square on both sides; without room for that there is no
 * result.
 */
std::optional<QRect> resized(const QRect &selection, int handle, const QPoint &position, const QRect &image);

/**
 * The pixels below @p selection of an image of the size @p image that is shown in @p imageRect. There are
 * none when the image is too thin to be shown; width and height are negative then.
 */
QRect inImagePixels(const QRect &selection, const QRect &imageRect, const QSize &image);
}

#endif

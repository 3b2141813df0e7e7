/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "selectiongeometry_p.h"

#include <algorithm>
#include <iterator>

namespace
{
constexpr int handleSide = 12;

/** The smallest distance between two opposite edges that a drag leaves. */
constexpr int smallestSpan = 40;

/** The side of one dimension that a grip holds. */
enum class Side { First, Middle, Last };

struct Handle {
    Side horizontal;
    Side vertical;
    Qt::CursorShape cursor;
};

constexpr Handle handleTable[] = {
    {Side::First, Side::First, Qt::SizeFDiagCursor},
    {Side::Middle, Side::First, Qt::SizeVerCursor},
    {Side::Last, Side::First, Qt::SizeBDiagCursor},
    {Side::First, Side::Middle, Qt::SizeHorCursor},
    {Side::Last, Side::Middle, Qt::SizeHorCursor},
    {Side::First, Side::Last, Qt::SizeBDiagCursor},
    {Side::Middle, Side::Last, Qt::SizeVerCursor},
    {Side::Last, Side::Last, Qt::SizeFDiagCursor},
};
constexpr int handleCount = std::size(handleTable);

/** One dimension of a rectangle. */
struct Span {
    int first;
    int last;

    int length() const
    {
        return last - first;
    }

    void widen(int pixels)
    {
        first -= pixels;
        last += pixels;
    }

    void cut(Side side, int pixels)
    {
        (side == Side::First ? first += pixels : last -= pixels);
    }

    void setEnd(Side side, int position)
    {
        (side == Side::First ? first : last) = position;
    }
};

Span horizontal(const QRect &rect)
{
    return {rect.left(), rect.right()};
}

Span vertical(const QRect &rect)
{
    return {rect.top(), rect.bottom()};
}

QRect rectangle(const Span &horizontal, const Span &vertical)
{
    return {QPoint(horizontal.first, vertical.first), QPoint(horizontal.last, vertical.last)};
}

Span handleSpan(const Span &selection, Side side)
{
    switch (side) {
    case Side::First:
        return {selection.first, selection.first + handleSide - 1};
    case Side::Last:
        return {selection.last - handleSide + 1, selection.last};
    case Side::Middle:
        break;
    }
    const int centre = selection.first + (selection.length() + 1) / 2;
    return {centre - handleSide / 2, centre + handleSide / 2 - 1};
}

/**
 * The place of the end @p side after it is dragged to @p position, with the other end at
 * @p opposite. Without room for everything, the first end stays inside the image and the last one
 * keeps the smallest span.
 */
int limited(Side side, int position, int opposite, const Span &image)
{
    return side == Side::First ? std::max(std::min(position, opposite - smallestSpan), image.first)
                               : std::max(std::min(position, image.last), opposite + smallestSpan);
}

int oppositeEnd(const Span &span, Side side)
{
    return side == Side::First ? span.last : span.first;
}

Span dragged(Span selection, Side side, int position, const Span &image)
{
    selection.setEnd(side, limited(side, position, oppositeEnd(selection, side), image));
    return selection;
}

QRect cornerDragged(const QRect &selection, const Handle &handle, const QPoint &position, const QRect &image)
{
    Span width = dragged(horizontal(selection), handle.horizontal, position.x(), horizontal(image));
    Span height = dragged(vertical(selection), handle.vertical, position.y(), vertical(image));
    const int excess = width.length() - height.length();
    width.cut(handle.horizontal, std::max(excess, 0));
    height.cut(handle.vertical, std::max(-excess, 0));
    return rectangle(width, height);
}

/** A rectangle seen from the edge that is dragged. */
struct View {
    Span along;
    Span across;
};

View sideways(const QRect &rect)
{
    return {horizontal(rect), vertical(rect)};
}

View upright(const QRect &rect)
{
    return {vertical(rect), horizontal(rect)};
}

bool hasRoom(const View &selection, Side side, int position, const View &image)
{
    const bool grows = side == Side::First ? position < selection.along.first : position > selection.along.last;
    const bool touches = selection.across.first == image.across.first || selection.across.last == image.across.last;
    return !grows || !touches;
}

/** Drags the edge @p side to @p position and makes the rectangle square again, inside @p image. */
View edgeDragged(View selection, Side side, int position, int opposite, const View &image)
{
    selection.along.setEnd(side, limited(side, position, opposite, image.along));
    selection.across.widen((selection.along.length() - selection.across.length()) / 2);
    const int overhang =
        std::max(selection.across.last - image.across.last, image.across.first - selection.across.first);
    if (overhang > 0) {
        selection.across.widen(-overhang);
        selection.along.cut(side, 2 * overhang);
    }
    return selection;
}

std::optional<QRect> leftOrRightDragged(const QRect &selection, Side side, int position, const QRect &image)
{
    View view = sideways(selection);
    if (!hasRoom(view, side, position, sideways(image))) {
        return std::nullopt;
    }
    view = edgeDragged(view, side, position, oppositeEnd(view.along, side), sideways(image));
    return rectangle(view.along, view.across);
}

std::optional<QRect> topOrBottomDragged(const QRect &selection, Side side, int position, const QRect &image)
{
    View view = upright(selection);
    if (!hasRoom(view, side, position, upright(image))) {
        return std::nullopt;
    }
    // The top edge keeps its distance from the bottom of the image, not of the selection.
    const int opposite = side == Side::First ? image.bottom() : selection.top();
    view = edgeDragged(view, side, position, opposite, upright(image));
    return rectangle(view.across, view.along);
}

/** How much larger than its image a picture is shown. */
double scaleOf(const QSize &shown, const QSize &image)
{
    return std::min(shown.width() / double(image.width()), shown.height() / double(image.height()));
}
}

QRect SelectionGeometry::imageRect(const QSize &image, const QSize &widget)
{
    const double scale = scaleOf(widget, image);
    const QSize size(int(image.width() * scale), int(image.height() * scale));
    return {QPoint((widget.width() - size.width()) / 2, (widget.height() - size.height()) / 2), size};
}

QRect SelectionGeometry::centredSquare(const QRect &rect)
{
    const int width = rect.width();
    const int height = rect.height();
    if (width < height) {
        return {rect.left(), rect.top() + (height - width) / 2, width, width};
    }
    return {rect.left() + (width - height) / 2, rect.top(), height, height};
}

QHash<int, QRect> SelectionGeometry::handles(const QRect &selection)
{
    QHash<int, QRect> handles;
    for (int number = 0; number < handleCount; ++number) {
        const Handle &handle = handleTable[number];
        handles.insert(number,
                       rectangle(handleSpan(horizontal(selection), handle.horizontal),
                                 handleSpan(vertical(selection), handle.vertical)));
    }
    return handles;
}

QHash<int, Qt::CursorShape> SelectionGeometry::handleCursors()
{
    QHash<int, Qt::CursorShape> cursors;
    for (int number = 0; number < handleCount; ++number) {
        cursors.insert(number, handleTable[number].cursor);
    }
    return cursors;
}

QRect SelectionGeometry::moved(const QRect &selection, const QPoint &topLeft, const QRect &image)
{
    const int left = std::max(std::min(topLeft.x(), image.right() - selection.width()), image.left());
    const int top = std::max(std::min(topLeft.y(), image.bottom() - selection.height()), image.top());
    return {QPoint(left, top), selection.size()};
}

std::optional<QRect>
SelectionGeometry::resized(const QRect &selection, int handle, const QPoint &position, const QRect &image)
{
    const Handle &held = handleTable[handle];
    if (held.vertical == Side::Middle) {
        return leftOrRightDragged(selection, held.horizontal, position.x(), image);
    }
    if (held.horizontal == Side::Middle) {
        return topOrBottomDragged(selection, held.vertical, position.y(), image);
    }
    return cornerDragged(selection, held, position, image);
}

QRect SelectionGeometry::inImagePixels(const QRect &selection, const QRect &imageRect, const QSize &image)
{
    if (image.isEmpty() || imageRect.isEmpty()) {
        return {0, 0, -1, -1};
    }
    const double scale = scaleOf(imageRect.size(), image);
    return {int((selection.left() - imageRect.left()) / scale),
            int((selection.top() - imageRect.top()) / scale),
            int(selection.width() / scale),
            int(selection.height() / scale)};
}

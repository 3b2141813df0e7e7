/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "iconselectwidget_p.h"

#include "selectiongeometry_p.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <optional>

namespace
{
constexpr int noHandle = -1;

const QHash<int, Qt::CursorShape> handleCursors = SelectionGeometry::handleCursors();

/** @p position, but no farther away than a widget can reach: sums with it stay within range. */
QPoint withinReach(const QPoint &position)
{
    return {qBound(-QWIDGETSIZE_MAX, position.x(), QWIDGETSIZE_MAX),
            qBound(-QWIDGETSIZE_MAX, position.y(), QWIDGETSIZE_MAX)};
}
}

IconSelectWidget::IconSelectWidget(QWidget *parent)
    : QWidget(parent)
{
    setMouseTracking(true);
    updateLayout();
}

void IconSelectWidget::setImage(const QImage &image)
{
    m_image = image;
    m_selection = QRect();
    refresh();
}

const QImage &IconSelectWidget::image() const
{
    return m_image;
}

QRect IconSelectWidget::imageSelection() const
{
    return SelectionGeometry::inImagePixels(m_selection, m_imageRect, m_image.size());
}

const QRect &IconSelectWidget::imageRect() const
{
    return m_imageRect;
}

const QRect &IconSelectWidget::selection() const
{
    return m_selection;
}

const QHash<int, QRect> &IconSelectWidget::handles() const
{
    return m_handles;
}

void IconSelectWidget::rotateClockwise()
{
    rotate(90);
}

void IconSelectWidget::rotateCounterClockwise()
{
    rotate(-90);
}

void IconSelectWidget::horizontalMirror()
{
    m_image = m_image.mirrored(true, false);
    refresh();
}

void IconSelectWidget::verticalMirror()
{
    m_image = m_image.mirrored(false, true);
    refresh();
}

void IconSelectWidget::selectAll()
{
    refresh();
}

void IconSelectWidget::mousePressEvent(QMouseEvent *event)
{
    const QPoint position = event->pos();
    const int handle = handleAt(position);
    if (handle != noHandle) {
        m_pressed = true;
        m_moving = false;
        m_pressPos = position;
        m_activeHandle = handle;
    } else if (m_selection.contains(position)) {
        m_pressed = true;
        m_moving = true;
        m_pressPos = position;
        m_grabOffset = position - m_selection.topLeft();
    }
}

void IconSelectWidget::mouseReleaseEvent(QMouseEvent * /*event*/)
{
    m_pressed = false;
    m_activeHandle = noHandle;
    unsetCursor();
}

void IconSelectWidget::mouseMoveEvent(QMouseEvent *event)
{
    if (m_pressed) {
        drag(event->pos());
    } else {
        hover(event->pos());
    }
}

void IconSelectWidget::paintEvent(QPaintEvent * /*event*/)
{
    if (m_image.isNull()) {
        return;
    }
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform | QPainter::LosslessImageRendering);
    painter.drawImage(m_imageRect, m_image);

    // The odd-even fill veils what is outside the circle; the default pen outlines both shapes.
    const QRect frame = m_selection.adjusted(1, 1, -1, -1);
    QPainterPath veil;
    veil.addRect(m_imageRect);
    veil.addEllipse(frame);
    painter.setBrush(QColor(255, 255, 255, 150));
    painter.drawPath(veil);

    painter.setPen(QPen(Qt::green, 3));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame);
    painter.drawEllipse(frame);

    for (const QRect &handle : qAsConst(m_handles)) {
        painter.fillRect(handle, palette().highlight());
    }
}

void IconSelectWidget::resizeEvent(QResizeEvent * /*event*/)
{
    updateLayout();
}

void IconSelectWidget::updateLayout()
{
    if (m_image.isNull()) {
        return;
    }
    m_imageRect = SelectionGeometry::imageRect(m_image.size(), size());
    if (!m_pressed) {
        m_selection = SelectionGeometry::centredSquare(m_imageRect);
    }
    m_handles = SelectionGeometry::handles(m_selection);
}

void IconSelectWidget::refresh()
{
    updateLayout();
    update();
}

void IconSelectWidget::rotate(int degrees)
{
    m_image = m_image.transformed(QTransform().rotate(degrees), Qt::SmoothTransformation);
    refresh();
}

/** The number of the grip at @p position; where grips overlap, the first one in the hash. */
int IconSelectWidget::handleAt(const QPoint &position) const
{
    for (auto handle = m_handles.cbegin(); handle != m_handles.cend(); ++handle) {
        if (handle->contains(position)) {
            return handle.key();
        }
    }
    return noHandle;
}

void IconSelectWidget::hover(const QPoint &position)
{
    unsetCursor();
    const int handle = handleAt(position);
    if (handle != noHandle) {
        setCursor(handleCursors.value(handle, Qt::ArrowCursor));
    } else if (m_selection.contains(position)) {
        setCursor(Qt::SizeAllCursor);
        m_moving = true; // every press decides again
    }
}

void IconSelectWidget::drag(const QPoint &position)
{
    const std::optional<QRect> selection = m_moving
        ? SelectionGeometry::moved(m_selection, withinReach(position) - m_grabOffset, m_imageRect)
        : SelectionGeometry::resized(m_selection, m_activeHandle, position, m_imageRect);
    if (selection) {
        m_selection = *selection;
        refresh();
    }
}

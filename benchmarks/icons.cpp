/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "comparison.h"
#include "iconselectwidget_p.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>

using benchmark::State;

namespace
{
constexpr QSize widgetSize(800, 600);

/** An image of 24 megapixels. */
QImage largeImage()
{
    QImage image(6000, 4000, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            line[x] = qRgb(x * 37 % 256, y * 59 % 256, (x + y) * 11 % 256);
        }
    }
    return image;
}

void showLargeImage(IconSelectWidget &widget)
{
    widget.resize(widgetSize);
    widget.setImage(largeImage());
    widget.show();
    QCoreApplication::processEvents();
}

void send(IconSelectWidget &widget, QEvent::Type type, const QPoint &position)
{
    QMouseEvent event(type, position, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

void drag(State &state)
{
    IconSelectWidget widget;
    showLargeImage(widget);
    const QPoint corner = widget.selection().bottomRight();
    send(widget, QEvent::MouseButtonPress, corner);
    int step = 0;
    measure(state, [&] {
        step = (step + 1) % 100;
        send(widget, QEvent::MouseMove, corner - QPoint(step, step));
        widget.repaint();
        return widget.selection();
    });
}

void drawImage(State &state)
{
    IconSelectWidget widget;
    showLargeImage(widget);
    const QRect rect = widget.imageRect();
    const QImage image = widget.image();
    QImage canvas(widgetSize, QImage::Format_ARGB32_Premultiplied);
    measure(state, [&] {
        QPainter painter(&canvas);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(rect, image);
        return painter.end();
    });
}
}

Comparisons iconComparisons()
{
    return {
        {"drag",
         "a step of dragging the selection of a 24 megapixel image, paint included",
         "drawing the image smoothly into the same rectangle",
         {2},
         "",
         {},
         benchmark::oNone,
         drag,
         drawImage},
    };
}

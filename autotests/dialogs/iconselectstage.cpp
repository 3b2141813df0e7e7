/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "iconselectstage.h"
#include "patience.h"

#include <QCoreApplication>
#include <QTest>
#include <QWindow>

#include <utility>

QImage patterned(const QSize &size, QImage::Format format)
{
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixelColor(x, y, QColor(x * 37 % 256, y * 59 % 256, (x + y) * 11 % 256, 255 - (x * y) % 200));
        }
    }
    return image.convertToFormat(format);
}

Stage::Stage(const QSize &size, const QImage &image)
    : widget(&m_window)
{
    m_window.resize(850, 650);
    widget.move(20, 30);
    widget.resize(size);
    if (!image.isNull()) {
        widget.setImage(image);
    }
    m_window.show();
    if (!QTest::qWaitForWindowExposed(&m_window, patience)) {
        qFatal("The window does not appear");
    }
    move(QPoint(-5, -5)); // a move to the current position would not be delivered
}

void Stage::press(const QPoint &position, Qt::MouseButton button)
{
    QTest::mousePress(m_window.windowHandle(), button, {}, inWindow(position));
}

void Stage::move(const QPoint &position)
{
    QTest::mouseMove(m_window.windowHandle(), inWindow(position));
}

void Stage::release(const QPoint &position, Qt::MouseButton button)
{
    QTest::mouseRelease(m_window.windowHandle(), button, {}, inWindow(position));
}

void Stage::drag(const QPoint &from, const QPoint &to)
{
    press(from);
    move(to);
    release(to);
}

int Stage::cursor() const
{
    return widget.testAttribute(Qt::WA_SetCursor) ? int(widget.cursor().shape()) : noCursor;
}

QPoint Stage::inWindow(const QPoint &position) const
{
    return widget.mapTo(&m_window, position);
}

PaintWatcher::PaintWatcher(QWidget *widget)
{
    QCoreApplication::processEvents();
    widget->installEventFilter(this);
}

bool PaintWatcher::isPainted()
{
    QCoreApplication::processEvents();
    return std::exchange(m_isPainted, false);
}

bool PaintWatcher::waitForPaint()
{
    return QTest::qWaitFor([this] { return isPainted(); });
}

bool PaintWatcher::eventFilter(QObject * /*watched*/, QEvent *event)
{
    m_isPainted = m_isPainted || event->type() == QEvent::Paint;
    return false;
}

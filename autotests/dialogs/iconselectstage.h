/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ICONSELECTSTAGE_H
#define ICONSELECTSTAGE_H

#include "iconselectwidget_p.h"

#include <QWidget>

/** An image in which no two neighbours have the same colour. */
QImage patterned(const QSize &size, QImage::Format format = QImage::Format_RGB32);

/**
 * An IconSelectWidget in a window that gets mouse events like those of the window system. As a child widget it
 * can have any size.
 */
class Stage
{
public:
    static constexpr int noCursor = -1;

    explicit Stage(const QSize &size, const QImage &image = QImage());

    void press(const QPoint &position, Qt::MouseButton button = Qt::LeftButton);
    void move(const QPoint &position);
    void release(const QPoint &position, Qt::MouseButton button = Qt::LeftButton);
    void drag(const QPoint &from, const QPoint &to);

    /** The shape of the widget's cursor; noCursor if it does not set one. */
    int cursor() const;

private:
    QPoint inWindow(const QPoint &position) const;

    QWidget m_window;

public:
    IconSelectWidget widget;
};

/** Detects paint events of a widget. Those that are pending at construction do not count. */
class PaintWatcher : public QObject
{
public:
    explicit PaintWatcher(QWidget *widget);

    /** Whether it was painted since the last call. Handles pending events first. */
    bool isPainted();

    /** Waits until it is painted. */
    bool waitForPaint();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_isPainted = false;
};

#endif

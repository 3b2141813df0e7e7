/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ICONSELECTWIDGET_P_H
#define ICONSELECTWIDGET_P_H

#include <QHash>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QWidget>

/**
 * Shows an image as large as it fits and lets the operator mark a square part of it with the
 * mouse: drag the square to move it, one of its eight grips to resize it.
 *
 * A new image, a turned one and a resize of the widget select the largest square in the middle again.
 * While a grip or the square is held, the selection stays as it is.
 */
class IconSelectWidget : public QWidget
{
    Q_OBJECT

public:
    explicit IconSelectWidget(QWidget *parent = nullptr);

    /** Shows @p image. A null image shows nothing, but the grips of the image before it keep working. */
    void setImage(const QImage &image);
    const QImage &image() const;

    /** The selected square in pixels of the image; because of rounding it can reach beyond the image's edges. */
    QRect imageSelection() const;

    /** In widget coordinates: the shown image, the selected square, and its grips by number. */
    const QRect &imageRect() const;
    const QRect &selection() const;
    const QHash<int, QRect> &handles() const;

public Q_SLOTS:
    void rotateClockwise();
    void rotateCounterClockwise();
    void horizontalMirror();
    void verticalMirror();
    /** Selects the largest square in the middle. */
    void selectAll();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void updateLayout();
    void refresh();
    void rotate(int degrees);
    int handleAt(const QPoint &position) const;
    void hover(const QPoint &position);
    void drag(const QPoint &position);

    QImage m_image;
    QRect m_imageRect;
    QRect m_selection;
    QHash<int, QRect> m_handles;
    bool m_pressed = false;
    bool m_moving = false;
    QPoint m_pressPos;
    QPoint m_grabOffset;
    int m_activeHandle = -1;
};

#endif

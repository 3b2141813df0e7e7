/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ICONSELECTMODEL_H
#define ICONSELECTMODEL_H

#include <QHash>
#include <QRect>
#include <QString>

class IconSelectWidget;

/** The visible state of the widget. */
struct IconSelectState {
    static constexpr int noCursor = -1;

    QRect imageRect;
    QRect selection;
    QHash<int, QRect> handles;
    QRect imageSelection;
    QSize image;
    int cursor = noCursor;

    bool operator==(const IconSelectState &other) const
    {
        return imageRect == other.imageRect && selection == other.selection && handles == other.handles
            && imageSelection == other.imageSelection && image == other.image && cursor == other.cursor;
    }
};

/** The rectangles of @p state in one line, as left, top, right and bottom. */
QString describe(const IconSelectState &state);

IconSelectState stateOf(const IconSelectWidget &widget);

/**
 * A plain model of the widget, written out edge by edge and grip by grip. Capital letters are edges of the
 * image, small letters edges of the selection.
 */
class IconSelectModel
{
public:
    IconSelectState state() const;

    void setImage(const QSize &size);
    void resize(const QSize &size);
    void turn();
    void layOut();
    void press(int x, int y);
    void release();
    void move(int x, int y);

private:
    static int larger(int one, int other);
    static int smaller(int one, int other);
    void placeHandles();
    int cursorAt(int x, int y) const;
    void moveSelection(qint64 left, qint64 top);
    bool drag(int x, int y);

    int m_width = 0;
    int m_height = 0;
    int m_imageWidth = 0;
    int m_imageHeight = 0;
    int L = 0;
    int T = 0;
    int R = -1;
    int B = -1;
    int l = 0;
    int t = 0;
    int r = -1;
    int b = -1;
    QHash<int, QRect> m_handles;
    bool m_pressed = false;
    bool m_moving = false;
    int m_grabX = 0;
    int m_grabY = 0;
    int m_active = -1;
    int m_cursor = IconSelectState::noCursor;
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "iconselectmodel.h"

#include "iconselectwidget_p.h"

#include <cmath>

namespace
{
constexpr int noCursor = IconSelectState::noCursor;

QString text(const QRect &rect)
{
    return QStringLiteral("(%1 %2 %3 %4)").arg(rect.left()).arg(rect.top()).arg(rect.right()).arg(rect.bottom());
}
}

QString describe(const IconSelectState &state)
{
    QString line = QStringLiteral("image %1x%2 in %3, selection %4, in pixels %5, cursor %6, grips")
                       .arg(state.image.width())
                       .arg(state.image.height())
                       .arg(text(state.imageRect), text(state.selection), text(state.imageSelection))
                       .arg(state.cursor);
    for (int number = 0; number < 8; ++number) {
        line += QLatin1Char(' ') + text(state.handles.value(number));
    }
    return line;
}

IconSelectState stateOf(const IconSelectWidget &widget)
{
    return {widget.imageRect(),
            widget.selection(),
            widget.handles(),
            widget.imageSelection(),
            widget.image().size(),
            widget.testAttribute(Qt::WA_SetCursor) ? int(widget.cursor().shape()) : noCursor};
}

IconSelectState IconSelectModel::state() const
{
    IconSelectState state;
    state.imageRect = QRect(QPoint(L, T), QPoint(R, B));
    state.selection = QRect(QPoint(l, t), QPoint(r, b));
    state.handles = m_handles;
    state.image = QSize(m_imageWidth, m_imageHeight);
    state.cursor = m_cursor;

    const int shownWidth = R - L + 1;
    const int shownHeight = B - T + 1;
    if (m_imageWidth == 0 || shownWidth == 0 || shownHeight == 0) {
        state.imageSelection = QRect(0, 0, -1, -1); // nothing to select from
        return state;
    }
    double scale = double(shownWidth) / m_imageWidth;
    if (double(shownHeight) / m_imageHeight < scale) {
        scale = double(shownHeight) / m_imageHeight;
    }
    state.imageSelection = QRect(int(std::trunc((l - L) / scale)),
                                 int(std::trunc((t - T) / scale)),
                                 int(std::trunc((r - l + 1) / scale)),
                                 int(std::trunc((b - t + 1) / scale)));
    return state;
}

void IconSelectModel::setImage(const QSize &size)
{
    m_imageWidth = size.width();
    m_imageHeight = size.height();
    l = t = 0;
    r = b = -1;
    layOut();
}

void IconSelectModel::resize(const QSize &size)
{
    if (size.width() != m_width || size.height() != m_height) {
        m_width = size.width();
        m_height = size.height();
        layOut();
    }
}

void IconSelectModel::turn()
{
    std::swap(m_imageWidth, m_imageHeight);
    layOut();
}

void IconSelectModel::layOut()
{
    if (m_imageWidth == 0) {
        return;
    }
    double scale = double(m_width) / m_imageWidth;
    if (double(m_height) / m_imageHeight < scale) {
        scale = double(m_height) / m_imageHeight;
    }
    const int width = int(std::floor(m_imageWidth * scale));
    const int height = int(std::floor(m_imageHeight * scale));
    L = (m_width - width) / 2;
    T = (m_height - height) / 2;
    R = L + width - 1;
    B = T + height - 1;
    if (!m_pressed) {
        const int side = width < height ? width : height;
        l = width < height ? L : L + (width - height) / 2;
        t = width < height ? T + (height - width) / 2 : T;
        r = l + side - 1;
        b = t + side - 1;
    }
    placeHandles();
}

void IconSelectModel::press(int x, int y)
{
    for (auto handle = m_handles.cbegin(); handle != m_handles.cend(); ++handle) {
        if (handle->contains(x, y)) {
            m_pressed = true;
            m_moving = false;
            m_active = handle.key();
            return;
        }
    }
    if (QRect(QPoint(l, t), QPoint(r, b)).contains(x, y)) {
        m_pressed = true;
        m_moving = true;
        m_grabX = x - l;
        m_grabY = y - t;
    }
}

void IconSelectModel::release()
{
    m_pressed = false;
    m_active = -1;
    m_cursor = noCursor;
}

void IconSelectModel::move(int x, int y)
{
    if (!m_pressed) {
        m_cursor = cursorAt(x, y);
    } else if (m_moving) {
        moveSelection(qint64(x) - m_grabX, qint64(y) - m_grabY);
        layOut();
    } else if (drag(x, y)) {
        layOut();
    }
}

int IconSelectModel::larger(int one, int other)
{
    return one > other ? one : other;
}

int IconSelectModel::smaller(int one, int other)
{
    return one < other ? one : other;
}

void IconSelectModel::placeHandles()
{
    const int cx = l + (r - l + 1) / 2;
    const int cy = t + (b - t + 1) / 2;
    m_handles.clear();
    const auto place = [this](int number, int left, int top, int right, int bottom) {
        m_handles.insert(number, QRect(QPoint(left, top), QPoint(right, bottom)));
    };
    place(0, l, t, l + 11, t + 11);
    place(1, cx - 6, t, cx + 5, t + 11);
    place(2, r - 11, t, r, t + 11);
    place(3, l, cy - 6, l + 11, cy + 5);
    place(4, r - 11, cy - 6, r, cy + 5);
    place(5, l, b - 11, l + 11, b);
    place(6, cx - 6, b - 11, cx + 5, b);
    place(7, r - 11, b - 11, r, b);
}

int IconSelectModel::cursorAt(int x, int y) const
{
    for (auto handle = m_handles.cbegin(); handle != m_handles.cend(); ++handle) {
        if (!handle->contains(x, y)) {
            continue;
        }
        switch (handle.key()) {
        case 0:
        case 7:
            return Qt::SizeFDiagCursor;
        case 2:
        case 5:
            return Qt::SizeBDiagCursor;
        case 1:
        case 6:
            return Qt::SizeVerCursor;
        default:
            return Qt::SizeHorCursor;
        }
    }
    return QRect(QPoint(l, t), QPoint(r, b)).contains(x, y) ? int(Qt::SizeAllCursor) : noCursor;
}

void IconSelectModel::moveSelection(qint64 left, qint64 top)
{
    const int width = r - l + 1;
    const int height = b - t + 1;
    if (left > R - width) {
        left = R - width;
    }
    if (left < L) {
        left = L;
    }
    if (top > B - height) {
        top = B - height;
    }
    if (top < T) {
        top = T;
    }
    l = int(left);
    t = int(top);
    r = l + width - 1;
    b = t + height - 1;
}

bool IconSelectModel::drag(int x, int y)
{
    switch (m_active) {
    case 0: {
        const int top = larger(smaller(y, b - 40), T);
        const int left = larger(smaller(x, r - 40), L);
        const int h = b - top;
        const int w = r - left;
        l = left + larger(w - h, 0);
        t = top + larger(h - w, 0);
        return true;
    }
    case 2: {
        const int top = larger(smaller(y, b - 40), T);
        const int right = larger(l + 40, smaller(x, R));
        const int h = b - top;
        const int w = right - l;
        t = top + larger(h - w, 0);
        r = right - larger(w - h, 0);
        return true;
    }
    case 5: {
        const int bottom = larger(t + 40, smaller(y, B));
        const int left = larger(smaller(x, r - 40), L);
        const int h = bottom - t;
        const int w = r - left;
        l = left + larger(w - h, 0);
        b = bottom - larger(h - w, 0);
        return true;
    }
    case 7: {
        const int bottom = larger(t + 40, smaller(y, B));
        const int right = larger(l + 40, smaller(x, R));
        const int h = bottom - t;
        const int w = right - l;
        r = right - larger(w - h, 0);
        b = bottom - larger(h - w, 0);
        return true;
    }
    case 1: {
        if (y < t && (l == L || r == R)) {
            return false;
        }
        const int top = larger(smaller(y, B - 40), T);
        const int d = ((r - l) - (b - top)) / 2;
        l += d;
        r -= d;
        t = top;
        const int o = larger(r - R, L - l);
        if (o > 0) {
            l += o;
            r -= o;
            t = top + 2 * o;
        }
        return true;
    }
    case 3: {
        if (x < l && (t == T || b == B)) {
            return false;
        }
        const int left = larger(smaller(x, r - 40), L);
        const int d = ((r - left) - (b - t)) / 2;
        t -= d;
        b += d;
        l = left;
        const int o = larger(b - B, T - t);
        if (o > 0) {
            t += o;
            b -= o;
            l = left + 2 * o;
        }
        return true;
    }
    case 4: {
        if (x > r && (t == T || b == B)) {
            return false;
        }
        const int right = larger(smaller(x, R), l + 40);
        const int d = ((right - l) - (b - t)) / 2;
        t -= d;
        b += d;
        r = right;
        const int o = larger(b - B, T - t);
        if (o > 0) {
            t += o;
            b -= o;
            r = right - 2 * o;
        }
        return true;
    }
    case 6: {
        if (y > b && (l == L || r == R)) {
            return false;
        }
        const int bottom = larger(smaller(y, B), t + 40);
        const int d = ((r - l) - (bottom - t)) / 2;
        l += d;
        r -= d;
        b = bottom;
        const int o = larger(r - R, L - l);
        if (o > 0) {
            l += o;
            r -= o;
            b = bottom - 2 * o;
        }
        return true;
    }
    default:
        qFatal("Resized without a grip");
    }
}

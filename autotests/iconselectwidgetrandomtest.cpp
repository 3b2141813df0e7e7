/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "iconselectwidget_p.h"

#include <QMouseEvent>
#include <QTest>

#include <cmath>
#include <random>

namespace
{
constexpr int noCursor = -1;

/** What can be seen of the widget. */
struct State {
    QRect imageRect;
    QRect selection;
    QHash<int, QRect> handles;
    QRect imageSelection;
    QSize image;
    int cursor = noCursor;

    bool operator==(const State &other) const
    {
        return imageRect == other.imageRect && selection == other.selection && handles == other.handles
            && imageSelection == other.imageSelection && image == other.image && cursor == other.cursor;
    }
};

QString text(const QRect &rect)
{
    return QStringLiteral("(%1 %2 %3 %4)").arg(rect.left()).arg(rect.top()).arg(rect.right()).arg(rect.bottom());
}

QString text(const State &state)
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

State stateOf(const IconSelectWidget &widget)
{
    return {widget.imageRect(),
            widget.selection(),
            widget.handles(),
            widget.imageSelection(),
            widget.image().size(),
            widget.testAttribute(Qt::WA_SetCursor) ? int(widget.cursor().shape()) : noCursor};
}

/**
 * The rules of the widget written out edge by edge and grip by grip. Capital letters are edges of
 * the image, small ones of the selection.
 */
class Model
{
public:
    State state() const
    {
        State state;
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

    void setImage(const QSize &size)
    {
        m_imageWidth = size.width();
        m_imageHeight = size.height();
        l = t = 0;
        r = b = -1;
        layOut();
    }

    void resize(const QSize &size)
    {
        if (size.width() != m_width || size.height() != m_height) {
            m_width = size.width();
            m_height = size.height();
            layOut();
        }
    }

    void turn()
    {
        std::swap(m_imageWidth, m_imageHeight);
        layOut();
    }

    void layOut()
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

    void press(int x, int y)
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

    void release()
    {
        m_pressed = false;
        m_active = -1;
        m_cursor = noCursor;
    }

    void move(int x, int y)
    {
        if (!m_pressed) {
            m_cursor = cursorAt(x, y);
        } else if (m_moving) {
            moveSelection(x - m_grabX, y - m_grabY);
            layOut();
        } else if (drag(x, y)) {
            layOut();
        }
    }

private:
    static int larger(int one, int other)
    {
        return one > other ? one : other;
    }

    static int smaller(int one, int other)
    {
        return one < other ? one : other;
    }

    void placeHandles()
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

    int cursorAt(int x, int y) const
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

    void moveSelection(int left, int top)
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
        l = left;
        t = top;
        r = left + width - 1;
        b = top + height - 1;
    }

    bool drag(int x, int y)
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
    int m_cursor = noCursor;
};

/** Does the same to a widget and to the model of it, at random. */
class Operator
{
public:
    explicit Operator(unsigned seed)
        : m_random(seed)
        , m_widget(&m_window)
    {
        m_window.resize(600, 600);
        m_window.show(); // a hidden widget learns of its size only when it is shown
        resize();
        setImage();
    }

    /** Does one thing and tells what it was. */
    QString act()
    {
        const int choice = below(100);
        if (choice < 20) {
            return press();
        }
        if (choice < 70) {
            return move();
        }
        if (choice < 84) {
            return release();
        }
        if (choice < 90) {
            return resize();
        }
        if (choice < 94) {
            return setImage();
        }
        return callSlot();
    }

    State expected() const
    {
        return m_model.state();
    }

    State actual() const
    {
        return stateOf(m_widget);
    }

private:
    int below(int bound)
    {
        return static_cast<int>(m_random() % static_cast<unsigned>(bound));
    }

    int between(int first, int last)
    {
        return first + below(last - first + 1);
    }

    /** A coordinate in one dimension of the widget: near a grip, anywhere inside, or far outside. */
    int coordinate(int first, int last, int size)
    {
        const int places[] = {first, first + 11, (first + last) / 2, last - 11, last};
        switch (below(8)) {
        case 0:
            return between(-1000, 1600);
        case 1:
        case 2:
            return below(size + 1);
        case 3:
            return between(first, first > last ? first : last);
        default:
            return places[below(5)] + between(-3, 3);
        }
    }

    QPointF position()
    {
        const QRect selection = m_widget.selection();
        const qreal fractions[] = {0, 0, 0, 0.25, 0.5, 0.75};
        const qreal x = coordinate(selection.left(), selection.right(), m_widget.width()) + fractions[below(6)];
        const qreal y = coordinate(selection.top(), selection.bottom(), m_widget.height()) + fractions[below(6)];
        return {x, y};
    }

    static int rounded(qreal coordinate)
    {
        return int(std::floor(coordinate + 0.5));
    }

    QString send(QEvent::Type type, const QPointF &position)
    {
        QMouseEvent event(type, position, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_widget, &event);
        return QStringLiteral(" %1, %2").arg(position.x()).arg(position.y());
    }

    QString press()
    {
        const QPointF point = position();
        m_model.press(rounded(point.x()), rounded(point.y()));
        return QLatin1String("press") + send(QEvent::MouseButtonPress, point);
    }

    QString move()
    {
        const QPointF point = position();
        m_model.move(rounded(point.x()), rounded(point.y()));
        return QLatin1String("move") + send(QEvent::MouseMove, point);
    }

    QString release()
    {
        const QPointF point = position();
        m_model.release();
        return QLatin1String("release") + send(QEvent::MouseButtonRelease, point);
    }

    QString resize()
    {
        const QSize sizes[] = {
            {between(0, 3), between(0, 300)},
            {between(1, 60), between(1, 60)},
            {between(200, 500), between(200, 500)},
            {between(200, 500), between(200, 500)},
            {250, 250},
        };
        const QSize size = sizes[below(5)];
        m_model.resize(size);
        m_widget.resize(size);
        return QStringLiteral("resize %1x%2").arg(size.width()).arg(size.height());
    }

    QString setImage()
    {
        const QSize sizes[] = {
            {0, 0},
            {1, 1},
            {1, between(1, 3000)},
            {between(1, 3000), 1},
            {between(2, 9), between(500, 4000)},
            {between(500, 4000), between(2, 9)},
            {49, 49},
            {between(1, 60), between(1, 60)},
            {between(100, 700), between(100, 700)},
            {between(100, 700), between(100, 700)},
            {1200, 900},
        };
        const QSize size = sizes[below(11)];
        m_model.setImage(size);
        m_widget.setImage(QImage(size, QImage::Format_Grayscale8));
        return QStringLiteral("setImage %1x%2").arg(size.width()).arg(size.height());
    }

    QString callSlot()
    {
        switch (below(5)) {
        case 0:
            m_model.turn();
            m_widget.rotateClockwise();
            return QStringLiteral("rotateClockwise");
        case 1:
            m_model.turn();
            m_widget.rotateCounterClockwise();
            return QStringLiteral("rotateCounterClockwise");
        case 2:
            m_model.layOut();
            m_widget.horizontalMirror();
            return QStringLiteral("horizontalMirror");
        case 3:
            m_model.layOut();
            m_widget.verticalMirror();
            return QStringLiteral("verticalMirror");
        default:
            m_model.layOut();
            m_widget.selectAll();
            return QStringLiteral("selectAll");
        }
    }

    std::mt19937 m_random;
    Model m_model;
    QWidget m_window;
    IconSelectWidget m_widget;
};
}

class IconSelectWidgetRandomTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void agreesWithRulesWrittenOut_data();
    void agreesWithRulesWrittenOut();
};

void IconSelectWidgetRandomTest::agreesWithRulesWrittenOut_data()
{
    QTest::addColumn<unsigned>("firstSeed");

    for (unsigned seed = 0; seed < 4000; seed += 500) {
        QTest::addRow("seeds %u to %u", seed, seed + 499) << seed;
    }
}

void IconSelectWidgetRandomTest::agreesWithRulesWrittenOut()
{
    QFETCH(unsigned, firstSeed);

    for (unsigned seed = firstSeed; seed < firstSeed + 500; ++seed) {
        Operator random(seed);
        QStringList events{QStringLiteral("seed %1").arg(seed)};
        for (int i = 0; i < 60; ++i) {
            events.append(random.act());
            const State expected = random.expected();
            const State actual = random.actual();
            if (!(actual == expected)) {
                QFAIL(qPrintable(events.join(QLatin1Char('\n')) + QLatin1String("\nActual   ") + text(actual)
                                 + QLatin1String("\nExpected ") + text(expected)));
            }
        }
    }
}

QTEST_MAIN(IconSelectWidgetRandomTest)

#include "iconselectwidgetrandomtest.moc"

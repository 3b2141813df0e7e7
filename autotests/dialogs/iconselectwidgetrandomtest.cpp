/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "iconselectmodel.h"
#include "iconselectwidget_p.h"

#include <QMouseEvent>
#include <QTest>

#include <cmath>
#include <random>

namespace
{
/** Does the same random operations to a widget and to its model. */
class Operator
{
public:
    explicit Operator(unsigned seed)
        : m_random(seed)
        , m_widget(&m_window)
    {
        m_window.resize(600, 600);
        m_window.show(); // a hidden widget gets its resize event only when it is shown
        resize();
        setImage();
    }

    /** Does one random operation and describes it. */
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

    IconSelectState expected() const
    {
        return m_model.state();
    }

    IconSelectState actual() const
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

    /** A coordinate in one dimension: near a grip, anywhere inside, or far outside the widget. */
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
    IconSelectModel m_model;
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
            const IconSelectState expected = random.expected();
            const IconSelectState actual = random.actual();
            if (!(actual == expected)) {
                QFAIL(qPrintable(events.join(QLatin1Char('\n')) + QLatin1String("\nActual   ") + describe(actual)
                                 + QLatin1String("\nExpected ") + describe(expected)));
            }
        }
    }
}

QTEST_MAIN(IconSelectWidgetRandomTest)

#include "iconselectwidgetrandomtest.moc"

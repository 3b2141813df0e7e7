/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "fuzzing.h"
#include "iconselectmodel.h"
#include "iconselectwidget_p.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <cstdlib>
#include <functional>
#include <limits>
#include <memory>

using Fuzzing::Command;
using Fuzzing::require;

// An input is a script. Its commands are the names of the slots and those of Stage::commands.

namespace
{
constexpr int mostCommands = 200;
constexpr int mostPixels = 1 << 18;
constexpr int longestSide = 5000;
constexpr int largestWidget = 4000;
constexpr int farAway = std::numeric_limits<int>::max();

/** Does the same to a widget and to its model. */
class Stage
{
public:
    Stage()
        : m_widget(&m_window)
    {
        m_window.resize(600, 600);
        m_window.show(); // a hidden widget learns of its size only when it is shown
        m_model.resize(m_widget.size());
    }

    void act(const Command &command)
    {
        using Action = void (Stage::*)(const Command &);
        static const QHash<QByteArray, Action> commands{
            {"image", &Stage::setImage},
            {"resize", &Stage::resize},
            {"press", &Stage::press},
            {"doubleClick", &Stage::doubleClick},
            {"move", &Stage::move},
            {"release", &Stage::release},
            {"key", &Stage::key},
            {"paint", &Stage::paint},
        };
        if (const Action action = commands.value(command.verb())) {
            (this->*action)(command);
        } else {
            callSlot(command.verb());
        }
    }

    void check(const QByteArray &deed) const
    {
        const IconSelectState actual = stateOf(m_widget);
        const QString about = QString::fromLatin1(deed) + QLatin1String(": ") + describe(actual);
        require(actual == m_model.state(), about + QLatin1String("\nExpected ") + describe(m_model.state()));

        require(std::abs(actual.selection.width() - actual.selection.height()) <= 1, about);
        if (m_startsAnew && !actual.image.isEmpty()) {
            require(actual.imageRect.contains(actual.selection) || actual.imageRect.isEmpty(), about);
            require(actual.selection.width() == std::min(actual.imageRect.width(), actual.imageRect.height()), about);
        }
    }

private:
    void setImage(const Command &command)
    {
        const int width = command.number(0, 0, longestSide);
        const QSize size(width, command.number(1, 0, std::min(longestSide, mostPixels / std::max(width, 1))));
        const QImage image(size, QImage::Format_Grayscale8);
        m_model.setImage(image.size());
        m_widget.setImage(image);
        m_startsAnew = !m_held;
    }

    void resize(const Command &command)
    {
        const QSize size(command.number(0, 0, largestWidget), command.number(1, 0, largestWidget));
        m_startsAnew = m_widget.size() == size ? m_startsAnew : !m_held;
        m_model.resize(size);
        m_widget.resize(size);
    }

    void press(const Command &command)
    {
        const QPoint position = sendMouse(QEvent::MouseButtonPress, command);
        m_model.press(position.x(), position.y());
        m_held = true; // perhaps: until the release nothing is certain
        m_startsAnew = false;
    }

    void doubleClick(const Command &command)
    {
        const QPoint position = sendMouse(QEvent::MouseButtonDblClick, command);
        m_model.press(position.x(), position.y());
        m_held = true;
        m_startsAnew = false;
    }

    void move(const Command &command)
    {
        const QPoint position = sendMouse(QEvent::MouseMove, command);
        m_model.move(position.x(), position.y());
    }

    void release(const Command &command)
    {
        sendMouse(QEvent::MouseButtonRelease, command);
        m_model.release();
        m_held = false;
    }

    void key(const Command &command)
    {
        QKeyEvent event(QEvent::KeyPress, command.number(0, 0, 0x0200'0000), Qt::NoModifier, command.text(1));
        QCoreApplication::sendEvent(&m_widget, &event);
    }

    void paint(const Command & /*command*/)
    {
        const QSize size = m_widget.size().boundedTo(QSize(300, 300));
        if (!size.isEmpty()) {
            QImage target(size, QImage::Format_ARGB32_Premultiplied);
            m_widget.render(&target, QPoint(), QRect(QPoint(), size));
        }
    }

    void callSlot(const QByteArray &name)
    {
        using Change = void (IconSelectModel::*)();
        static const QHash<QByteArray, Change> changes{
            {"rotateClockwise", &IconSelectModel::turn},
            {"rotateCounterClockwise", &IconSelectModel::turn},
            {"horizontalMirror", &IconSelectModel::layOut},
            {"verticalMirror", &IconSelectModel::layOut},
            {"selectAll", &IconSelectModel::layOut},
        };
        if (const Change change = changes.value(name)) {
            QMetaObject::invokeMethod(&m_widget, name.constData());
            (m_model.*change)();
            m_startsAnew = !m_held;
        }
    }

    QPoint sendMouse(QEvent::Type type, const Command &command)
    {
        const QPoint position(command.number(0, -farAway, farAway), command.number(1, -farAway, farAway));
        const Qt::MouseButton button = command.argumentCount() > 2 ? Qt::RightButton : Qt::LeftButton;
        QMouseEvent event(type, position, button, button, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_widget, &event);
        return position;
    }

    QWidget m_window;
    IconSelectWidget m_widget;
    IconSelectModel m_model;
    bool m_held = false;
    bool m_startsAnew = true;
};
}

void Target::prepare()
{
}

void Target::run(const QByteArray &input)
{
    Stage stage;
    const QList<Command> commands = Fuzzing::commands(input, mostCommands);
    for (const Command &command : commands) {
        stage.act(command);
        stage.check(command.verb());
    }
}

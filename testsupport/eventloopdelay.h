/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef EVENTLOOPDELAY_H
#define EVENTLOOPDELAY_H

#include "processortime.h"

#include <QElapsedTimer>
#include <QTimer>

/**
 * Measures how long the event loop of this thread keeps a timer waiting. Time in which the thread
 * waits for a processor, because of other programs, does not count.
 */
class EventLoopDelay
{
public:
    EventLoopDelay()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { measure(); });
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.start(interval);
        m_clock.start();
        m_queued = queuedMilliseconds();
    }

    /** The longest delay so far, in milliseconds. */
    qint64 longest()
    {
        measure();
        return m_longest;
    }

private:
    static constexpr int interval = 50;

    void measure()
    {
        const qint64 queued = queuedMilliseconds();
        m_longest = qMax(m_longest, m_clock.restart() - interval - (queued - m_queued));
        m_queued = queued;
    }

    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_queued = 0;
    qint64 m_longest = 0;
};

#endif

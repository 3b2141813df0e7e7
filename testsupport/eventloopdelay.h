/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef EVENTLOOPDELAY_H
#define EVENTLOOPDELAY_H

#include "processortime.h"

#include <QElapsedTimer>
#include <QTimer>

#include <utility>

/**
 * Measures how long the event loop of this thread keeps a timer waiting. Time in which the thread
 * waits for a processor, because of other programs, does not count.
 */
class EventLoopDelay
{
public:
    /** In milliseconds. */
    struct Longest {
        qint64 delay = 0;
        /** The part of a delay in which the thread computed. It may also wait, for a disk or for another process. */
        qint64 work = 0;
    };

    EventLoopDelay()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { measure(); });
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.start(interval);
        m_clock.start();
        m_before = threadTimes();
    }

    /** The longest delay so far, in milliseconds. */
    qint64 longest()
    {
        measure();
        return m_longest.delay;
    }

    /** The longest so far, which is forgotten then. */
    Longest takeLongest()
    {
        measure();
        return std::exchange(m_longest, {});
    }

private:
    static constexpr int interval = 20;

    void measure()
    {
        const ThreadTimes now = threadTimes();
        const qint64 delay = m_clock.restart() - interval - (now.queued - m_before.queued);
        m_longest.delay = qMax(m_longest.delay, delay);
        m_longest.work = qMax(m_longest.work, now.computed - m_before.computed - interval);
        m_before = now;
    }

    QTimer m_timer;
    QElapsedTimer m_clock;
    ThreadTimes m_before;
    Longest m_longest;
};

#endif

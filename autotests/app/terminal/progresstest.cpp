/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "progress.h"
#include "patience.h"

#include <QElapsedTimer>
#include <QTest>

#include <array>

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

namespace
{
/** In milliseconds. Progress is shown after half a second. */
constexpr int shortTime = 500;
constexpr int longTime = 700;

/** Two connected descriptors: what is written to the second can be read from the first. */
using Channel = std::array<int, 2>;

Channel terminal()
{
    Channel ends{};
    if (openpty(ends.data(), ends.data() + 1, nullptr, nullptr, nullptr) != 0) {
        qFatal("Cannot open a terminal");
    }
    return ends;
}

Channel pipe()
{
    Channel ends{};
    if (::pipe(ends.data()) != 0) {
        qFatal("Cannot open a pipe");
    }
    return ends;
}

/** Makes one end of a channel the standard error of this process during its lifetime. */
class StandardError
{
public:
    explicit StandardError(const Channel &channel)
        : m_channel(channel)
        , m_original(dup(STDERR_FILENO))
    {
        dup2(m_channel[1], STDERR_FILENO);
        fcntl(m_channel[0], F_SETFL, O_NONBLOCK);
    }

    ~StandardError()
    {
        dup2(m_original, STDERR_FILENO);
        for (const int descriptor : {m_original, m_channel[0], m_channel[1]}) {
            close(descriptor);
        }
    }

    /** What was written since it was last called. */
    QByteArray written() const
    {
        std::array<char, 256> buffer{};
        const ssize_t count = read(m_channel[0], buffer.data(), buffer.size());
        return QByteArray(buffer.data(), int(qMax<ssize_t>(count, 0)));
    }

private:
    Q_DISABLE_COPY(StandardError)

    const Channel m_channel;
    const int m_original;
};
}

class ProgressTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsPercentOfLongTask();
    void showsNothingOfShortTask();
    void showsNothingInFiles();
};

void ProgressTest::showsPercentOfLongTask()
{
    const StandardError error(terminal());
    QElapsedTimer time;
    time.start();
    {
        Progress progress;
        QByteArray shown;
        while (shown.isEmpty() && !time.hasExpired(patience)) {
            progress.show(42);
            shown = error.written();
        }
        QCOMPARE(shown, QByteArray("\r 42 %"));
        QVERIFY(time.hasExpired(shortTime - 1));
        progress.show(43);
        progress.show(44);
        QVERIFY(error.written().size() <= shown.size()); // not so soon again
    }
    QVERIFY(error.written().endsWith("\r     \r"));
}

void ProgressTest::showsNothingOfShortTask()
{
    const StandardError error(terminal());
    QElapsedTimer time;
    QByteArray shown;
    do { // again where this process had to wait for a processor
        time.start();
        {
            Progress progress;
            progress.show(1);
            progress.show(99);
        }
        shown = error.written();
    } while (time.hasExpired(shortTime - 1));
    QCOMPARE(shown, QByteArray());
}

void ProgressTest::showsNothingInFiles()
{
    const StandardError error(pipe());
    QElapsedTimer time;
    time.start();
    {
        Progress progress;
        while (!time.hasExpired(longTime)) {
            progress.show(42);
        }
    }
    QCOMPARE(error.written(), QByteArray());
}

QTEST_GUILESS_MAIN(ProgressTest)

#include "progresstest.moc"

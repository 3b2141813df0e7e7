/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountsetup.h"
#include "comparison.h"
#include "dialogsetup.h"
#include "eventloopdelay.h"
#include "limitsfixtures.h"
#include "mainwindow.h"
#include "recordlist.h"
#include "recordview.h"

#include <UserInfo>

#include <QCoreApplication>
#include <QLineEdit>
#include <QTabWidget>

#include <memory>

using benchmark::State;

namespace
{
constexpr int ruleCount = 100000;

RecordView &usersView(const MainWindow &window)
{
    return *window.findChild<RecordView *>(QStringLiteral("userListView"));
}

template<typename Condition>
void waitFor(const Condition &condition)
{
    while (!condition()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void paintFirst(State &state)
{
    prepareAccounts(state);
    for ([[maybe_unused]] auto iteration : state) {
        auto window = std::make_unique<MainWindow>();
        waitUntilPainted(*usersView(*window).viewport(), [&window] { window->show(); });
        state.PauseTiming();
        window.reset();
        state.ResumeTiming();
    }
}

/** The processor time of this process and its children that have ended. */
double secondsOfAll()
{
    return processorSeconds(RUSAGE_SELF) + processorSeconds(RUSAGE_CHILDREN);
}

template<typename Work>
void measureAll(State &state, const Work &work)
{
    prepareAccounts(state);
    for ([[maybe_unused]] auto iteration : state) {
        const double before = secondsOfAll();
        work();
        state.SetIterationTime(secondsOfAll() - before);
    }
}

void showUsers(State &state)
{
    measureAll(state, [] {
        MainWindow window;
        window.show();
        const RecordView &view = usersView(window);
        waitFor([&view] { return view.model()->rowCount() > 0; });
        waitUntilPainted(*view.viewport(), [] {});
    });
}

void getUsers(State &state)
{
    measureAll(state, [] { benchmark::DoNotOptimize(UserInfo::getUsers()); });
}

/** Rules for all users, and as many more for nobody. */
void writeRules(int users)
{
    QByteArray rules;
    for (int i = 0; i < ruleCount; ++i) {
        rules += "user" + QByteArray::number(i % (2 * users)) + (i % 2 ? " soft nofile 1024\n" : " hard nproc 100\n");
    }
    clearLimits();
    Sandbox::write(limitsPath(), rules);
}

void reload(MainWindow &window)
{
    bool isRead = false;
    const auto connection = QObject::connect(&window, &MainWindow::reloaded, [&isRead] { isRead = true; });
    window.reload();
    waitFor([&isRead] { return isRead; });
    QObject::disconnect(connection);
}

void useList(const RecordList &list)
{
    RecordView &view = *list.view();
    auto *search = list.findChild<QLineEdit *>(QStringLiteral("searchField"));
    const QVector<int> columns = view.shownColumns();
    for (const int column : columns) {
        view.sortByColumn(column, Qt::DescendingOrder);
        QCoreApplication::processEvents();
    }
    for (const char *text : {"9", "99", ""}) {
        search->setText(QString::fromLatin1(text));
        QCoreApplication::processEvents();
    }
}

void keepBusy(State &state)
{
    prepareAccounts(state);
    writeRules(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto iteration : state) {
        MainWindow window;
        EventLoopDelay delay;
        window.show();
        reload(window);
        for (int page = window.pages()->count() - 1; page >= 0; --page) {
            window.pages()->setCurrentIndex(page);
            QCoreApplication::processEvents();
            if (const auto *list = window.pages()->widget(page)->findChild<RecordList *>()) {
                useList(*list);
            }
        }
        reload(window);
        reportSeconds(state, static_cast<double>(delay.longest()) / 1000);
    }
    clearLimits();
}
}

Comparisons windowComparisons()
{
    return {
        {"windowPaint", "first paint of the window", "", {}, "", {10000}, benchmark::oNone, paintFirst},
        {"windowUsers",
         "the window until it shows the users, with the processes that it starts",
         "`UserInfo::getUsers()`",
         {1.5, 10000},
         "#the-window",
         {1000, 10000},
         benchmark::oNone,
         showUsers,
         getUsers,
         Figure::ChildTime},
        {"windowDelay",
         "longest delay of a timer while the window reads twice, with 100,000 rules, sorts and searches its lists",
         "",
         {50},
         "#the-window",
         {10000},
         benchmark::oNone,
         keepBusy,
         nullptr,
         Figure::Delay},
    };
}

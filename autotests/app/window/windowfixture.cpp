/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "windowfixture.h"

#include "accountfixtures.h"
#include "dialogparts.h"
#include "limitsfixtures.h"
#include "listpage.h"
#include "mainwindow.h"
#include "patience.h"
#include "recordview.h"

#include <QFile>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <algorithm>

QString settingsPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QLatin1String("/ormel-users/window.ini");
}

void prepareWindow()
{
    // In the sandbox of an ordinary user, /root belongs to nobody.
    Sandbox::setAccounts("root:x:0:0:root:/nonexistent:/bin/bash\n"
                         "ada:x:1000:50:Ada:/home/ada:/bin/sh\n"
                         "bob:x:1001:50:Bob:/home/bob:/bin/sh\n",
                         "root:x:0:\normel-admin:x:27:ada\nstaff:x:50:\n");
    clearLimits();
    Sandbox::write(limitsPath(), "* soft core 0\n* both nproc some\n");
    QFile::remove(settingsPath());
}

bool waitUntilRead(MainWindow &window)
{
    QSignalSpy reloaded(&window, &MainWindow::reloaded);
    return reloaded.isValid() && reloaded.wait(patience);
}

bool waitUntilShown(const QWidget &window)
{
    const auto timers = window.findChildren<QTimer *>();
    const auto isDelay = [](const QTimer *timer) { return timer->isActive() && timer->isSingleShot(); };
    return QTest::qWaitFor([&] { return std::none_of(timers.begin(), timers.end(), isDelay); });
}

bool open(MainWindow &window)
{
    window.show();
    return waitUntilRead(window) && QTest::qWaitForWindowActive(&window, patience) && waitUntilShown(window);
}

RecordView *accountsView(const MainWindow &window)
{
    const auto *page = qobject_cast<ListPage *>(window.pages()->currentWidget());
    if (!page) {
        qFatal("The page has no list of accounts");
    }
    return page->list()->view();
}

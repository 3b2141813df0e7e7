/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "about.h"
#include "accountfixtures.h"
#include "limitsfixtures.h"
#include "mainwindow.h"
#include "pageparts.h"
#include "windowfixture.h"
#include "windowparts.h"

#include <KLocalizedString>

#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

namespace
{
/** The mnemonics of @p actions; an empty text where one has none. */
QStringList actionMnemonics(const QList<QAction *> &actions)
{
    QStringList keys;
    for (const QAction *action : actions) {
        if (!action->isSeparator()) {
            keys.append(QKeySequence::mnemonic(action->text()).toString());
        }
    }
    return keys;
}

QStringList repeated(QStringList keys)
{
    const QStringList all = keys;
    keys.removeDuplicates();
    QStringList rest = all;
    for (const QString &key : qAsConst(keys)) {
        rest.removeOne(key);
    }
    return rest;
}
}

class WindowLanguagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void hasRoomAndMnemonics_data();
    void hasRoomAndMnemonics();
    void cleanup();
};

void WindowLanguagesTest::initTestCase()
{
    for (const char *domain : {"ormel-users", "ormel_kcm_users"}) {
        KLocalizedString::addDomainLocaleDir(domain, QStringLiteral(LOCALE_DIR));
    }
    About::setApplicationData();
    Sandbox::setAccounts("root:x:0:0:root:/root:/bin/bash\nada:x:1000:50:Ada:/home/ada:/bin/sh\n",
                         "root:x:0:\normel-admin:x:27:ada\nstaff:x:50:\n");
    clearLimits();
    Sandbox::write(limitsPath(), "* soft core 0\n* both nproc some\n");
}

void WindowLanguagesTest::hasRoomAndMnemonics_data()
{
    QTest::addColumn<QString>("title");

    QTest::newRow("ar") << QStringLiteral("المستخدمون");
    QTest::newRow("de") << QStringLiteral("Benutzer");
    QTest::newRow("es") << QStringLiteral("Usuarios");
    QTest::newRow("fr") << QStringLiteral("Utilisateurs");
    QTest::newRow("ja") << QStringLiteral("ユーザー");
    QTest::newRow("pl") << QStringLiteral("Użytkownicy");
    QTest::newRow("pt_BR") << QStringLiteral("Usuários");
    QTest::newRow("ru") << QStringLiteral("Пользователи");
    QTest::newRow("uk") << QStringLiteral("Користувачі");
    QTest::newRow("zh_CN") << QStringLiteral("用户");
}

void WindowLanguagesTest::hasRoomAndMnemonics()
{
    QFETCH(QString, title);

    const QString language = QString::fromLatin1(QTest::currentDataTag());
    KLocalizedString::setLanguages({language});
    QApplication::setLayoutDirection(language == QLatin1String("ar") ? Qt::RightToLeft : Qt::LeftToRight);
    MainWindow window;
    QSignalSpy reloaded(&window, &MainWindow::reloaded);
    window.show();
    QVERIFY(reloaded.wait());
    QTabWidget *pages = window.pages();
    QCOMPARE(pages->tabText(0), title);

    const QList<QAction *> menus = window.menuBar()->actions();
    QStringList windowKeys = actionMnemonics(menus);
    QVERIFY(!windowKeys.contains(QString()));
    const QList<QAction *> viewActions = menus.at(1)->menu()->actions();
    for (const QAction *action : viewActions) {
        windowKeys.append(action->shortcut().toString());
    }
    windowKeys.removeAll(QString());
    QVERIFY(windowKeys.contains(QStringLiteral("Alt+5")));
    for (int page = 0; page < pages->count(); ++page) {
        pages->setCurrentIndex(page);
        QCoreApplication::processEvents();
        const QStringList pageKeys = mnemonics(*pages->currentWidget());
        QCOMPARE(pageKeys.size(), mnemonicCounts[page]);
        QCOMPARE(repeated(windowKeys + pageKeys), QStringList());
        QCOMPARE(clippedTexts(window).join(QLatin1Char('|')), QString());
    }
    for (const QAction *menu : menus) {
        const QStringList keys = actionMnemonics(menu->menu()->actions());
        QVERIFY(!keys.contains(QString()));
        QCOMPARE(repeated(keys), QStringList());
    }
}

void WindowLanguagesTest::cleanup()
{
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

QTEST_MAIN(WindowLanguagesTest)

#include "windowlanguagestest.moc"

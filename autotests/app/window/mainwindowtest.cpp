/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "mainwindow.h"
#include "about.h"
#include "accountfixtures.h"
#include "accountstore.h"
#include "dialogparts.h"
#include "icons.h"
#include "icontheme.h"
#include "limitsfixtures.h"
#include "patience.h"
#include "recordview.h"
#include "sandbox.h"
#include "texts.h"
#include "windowfixture.h"
#include "windowparts.h"
#include "windowstate.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QSplitter>
#include <QTabWidget>
#include <QTest>

namespace
{
/** Moves the mouse from a widget by @p way with the button held. */
void drag(QWidget &widget, const QPoint &way)
{
    const QPoint from = widget.rect().center();
    QTest::mousePress(&widget, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, from + way, widget.mapToGlobal(from + way), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&widget, &move);
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, from + way);
}

QStringList menuEntries(const QMenu &menu)
{
    QStringList entries;
    const QList<QAction *> actions = menu.actions();
    for (const QAction *action : actions) {
        const QString entry = action->text() + QLatin1Char(' ') + action->shortcut().toString();
        entries.append(action->isSeparator() ? text("-") : entry.trimmed());
    }
    return entries;
}
}

class MainWindowTest : public QObject
{
    Q_OBJECT

public:
    static void initMain();

private Q_SLOTS:
    void initTestCase();
    void init();
    void paintsBeforeItReads();
    void readsAgainAtF5();
    void readsBeforeFirstPaintWhenTold();
    void readsNameRulesAgain();
    void startsInList();
    void startsOnPageWithoutList_data();
    void startsOnPageWithoutList();
    void hasMenus();
    void leadsToPagesByKeys();
    void leadsToSearch();
    void hasNoSearchOnOtherPages();
    void hasNoEditMenuOnOtherPages();
    void tellsAboutItself();
    void quits();
    void startsWithoutSettings();
    void remembersState();
    void worksWithoutAccounts();
};

void MainWindowTest::initMain()
{
    Icons::useScreenResolution();
}

void MainWindowTest::initTestCase()
{
    About::setApplicationData();
}

void MainWindowTest::init()
{
    prepareWindow();
}

void MainWindowTest::paintsBeforeItReads()
{
    MainWindow window;
    auto *store = window.findChild<AccountStore *>();
    QSignalSpy started(store, &AccountStore::started);
    QTest::qWait(50);
    QCOMPARE(started.size(), 0);
    QVERIFY(open(window));
    QCOMPARE(started.size(), 1);
}

void MainWindowTest::readsAgainAtF5()
{
    MainWindow window;
    QVERIFY(open(window));
    QCOMPARE(shownRows(*accountsView(window)).size(), 3);
    Sandbox::setAccounts("eve:x:1002:50::/:/bin/sh\n", "staff:x:50:\n");
    QTest::keyClick(&window, Qt::Key_F5);
    QVERIFY(waitUntilRead(window));
    QCOMPARE(shownRows(*accountsView(window)), QStringList(text("eve||1002|Ordinary user")));
    window.pages()->setCurrentIndex(1);
    QCOMPARE(shownRows(*accountsView(window)), QStringList(text("staff|50|1|System group")));
}

void MainWindowTest::readsBeforeFirstPaintWhenTold()
{
    MainWindow window;
    window.reload();
    QVERIFY(waitUntilRead(window));
    QSignalSpy again(&window, &MainWindow::reloaded);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window, patience));
    QTest::qWait(200);
    QCOMPARE(again.size(), 0);
    QCOMPARE(shownRows(*accountsView(window)).size(), 3);
}

void MainWindowTest::readsNameRulesAgain()
{
    Sandbox::remove(text("/etc/adduser.conf"));
    MainWindow window;
    QVERIFY(open(window));
    window.pages()->setCurrentIndex(4);
    QWidget *page = window.pages()->currentWidget();
    QTest::keyClicks(part<QLineEdit>(*page, "userNameEdit"), text("new"));
    const auto *note = part<QLabel>(*page, "userNameEditNote");
    QVERIFY(!note->isVisible());
    Sandbox::write(text("/etc/adduser.conf"), "NAME_REGEX=\"[0-9]+\"\n");
    window.reload();
    QVERIFY(waitUntilRead(window));
    QVERIFY(note->isVisible());
    QVERIFY(note->text().contains(text("[0-9]+")));
    Sandbox::remove(text("/etc/adduser.conf"));
}

void MainWindowTest::startsInList()
{
    MainWindow window;
    QVERIFY(open(window));
    QCOMPARE(QApplication::focusWidget(), accountsView(window));
}

void MainWindowTest::startsOnPageWithoutList_data()
{
    QTest::addColumn<int>("page");

    QTest::newRow("limits") << 2;
    QTest::newRow("new account") << 3;
}

void MainWindowTest::startsOnPageWithoutList()
{
    QFETCH(int, page);

    MainWindow window;
    window.pages()->setCurrentIndex(page);
    QVERIFY(open(window));
    QVERIFY(window.pages()->isAncestorOf(QApplication::focusWidget()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(window.pages()->currentWidget()->isAncestorOf(QApplication::focusWidget()));
}

void MainWindowTest::hasMenus()
{
    const MainWindow window;
    QStringList titles;
    QList<QStringList> menus;
    const QList<QAction *> actions = window.menuBar()->actions();
    for (const QAction *action : actions) {
        titles.append(action->text());
        menus.append(menuEntries(*action->menu()));
    }
    QCOMPARE(titles, QStringList({text("&File"), text("&Edit"), text("&View"), text("&Help")}));
    QCOMPARE(menus.at(0),
             QStringList({text("&Reload F5"),
                          text("&Cancel Reading Esc"),
                          text("-"),
                          QStringLiteral(u"&Export\u2026"),
                          text("-"),
                          text("&Quit Ctrl+Q")}));
    QCOMPARE(menus.at(1),
             QStringList({text("&Copy Ctrl+C"),
                          text("Copy as C&SV"),
                          text("Copy as &JSON"),
                          text("Select &All Ctrl+A"),
                          text("-"),
                          QStringLiteral(u"Change &Groups\u2026"),
                          QStringLiteral(u"Cut &Picture\u2026")}));
    QCOMPARE(menus.at(2),
             QStringList({text("&Users Alt+1"),
                          text("&Groups Alt+2"),
                          text("&Limits Alt+3"),
                          text("&Problems Alt+4"),
                          text("&New Account Alt+5"),
                          text("-"),
                          text("&Search Ctrl+F"),
                          text("-"),
                          text("&Back Alt+Left"),
                          text("&Forward Alt+Right")}));
    QCOMPARE(menus.at(3),
             QStringList({text("&Help on This Page F1"), text("-"), text("&About Ormel Users"), text("About &Qt")}));
}

void MainWindowTest::leadsToPagesByKeys()
{
    MainWindow window;
    QVERIFY(open(window));
    const QList<QAction *> actions = window.menuBar()->actions().at(2)->menu()->actions();
    for (int page = window.pages()->count() - 1; page >= 0; --page) {
        QTest::keyClick(&window, Qt::Key(Qt::Key_1 + page), Qt::AltModifier);
        QCOMPARE(window.pages()->currentIndex(), page);
        QVERIFY(actions.at(page)->isChecked());
        QVERIFY(window.pages()->isAncestorOf(QApplication::focusWidget()));
    }
}

void MainWindowTest::leadsToSearch()
{
    MainWindow window;
    QVERIFY(open(window));
    for (int page = 0; page < 2; ++page) {
        window.pages()->setCurrentIndex(page);
        QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), part<QLineEdit>(*window.pages()->currentWidget(), "searchField"));
    }
}

void MainWindowTest::hasNoSearchOnOtherPages()
{
    MainWindow window;
    const QAction *filter = window.menuBar()->actions().at(2)->menu()->actions().at(window.pages()->count() + 1);
    QVERIFY(filter->isEnabled());
    window.pages()->setCurrentIndex(2);
    QVERIFY(!filter->isEnabled());
    window.pages()->setCurrentIndex(1);
    QVERIFY(filter->isEnabled());
}

void MainWindowTest::hasNoEditMenuOnOtherPages()
{
    const MainWindow window;
    const QAction *edit = window.menuBar()->actions().at(1);
    QVERIFY(edit->isVisible());
    window.pages()->setCurrentIndex(2);
    QVERIFY(!edit->isVisible());
    window.pages()->setCurrentIndex(1);
    QVERIFY(edit->isVisible());
}

void MainWindowTest::tellsAboutItself()
{
    const IconTheme theme({text("ormel-users")}, 64);
    About::setApplicationData();
    MainWindow window;
    QVERIFY(open(window));
    window.menuBar()->actions().at(3)->menu()->actions().at(2)->trigger();
    QPointer<QMessageBox> dialog = window.findChild<QMessageBox *>();
    QVERIFY(dialog);
    QVERIFY(dialog->text().startsWith(text("Ormel Users ")));
    QVERIFY(dialog->informativeText().contains(text("GNU Lesser General Public License")));
    QCOMPARE(dialog->iconPixmap().toImage().pixelColor(32, 32), QColor(Qt::blue));
    QTest::keyClick(dialog, Qt::Key_Escape);
    QTRY_VERIFY_WITH_TIMEOUT(!dialog, patience);
}

void MainWindowTest::quits()
{
    MainWindow window;
    QVERIFY(open(window));
    QTest::keyClick(&window, Qt::Key_Q, Qt::ControlModifier);
    QTRY_VERIFY_WITH_TIMEOUT(!window.isVisible(), patience);
}

void MainWindowTest::startsWithoutSettings()
{
    MainWindow window;
    const QSize size = window.size();
    WindowState::restore(window);
    QCOMPARE(window.size(), size);
    QCOMPARE(window.pages()->currentIndex(), 0);
    QVERIFY(open(window));
    QCOMPARE(shownRows(*accountsView(window)).size(), 3);
    QCOMPARE(shownRows(*accountsView(window)).constFirst(), text("ada|Ada|1000|Ordinary user"));
}

void MainWindowTest::remembersState()
{
    QList<int> sizes;
    {
        MainWindow window;
        QVERIFY(open(window));
        window.resize(800, 650);
        window.pages()->setCurrentIndex(1);
        QTest::keyClick(part<QComboBox>(*window.pages()->currentWidget(), "filterComboBox"), Qt::Key_End);
        accountsView(window)->sortByColumn(1, Qt::DescendingOrder);
        clickText(*accountsView(window), text("ormel-admin"));
        auto *splitter = part<QSplitter>(window, "groupListColumns");
        drag(*splitter->handle(1), QPoint(-40, 0));
        sizes = splitter->sizes();
        QVERIFY(sizes != part<QSplitter>(window, "userListColumns")->sizes());
        WindowState::save(window);
    }
    QVERIFY(QFile::exists(settingsPath()));
    MainWindow window;
    WindowState::restore(window);
    QCOMPARE(window.size(), QSize(800, 650));
    QCOMPARE(window.pages()->currentIndex(), 1);
    QVERIFY(open(window));
    QCOMPARE(part<QSplitter>(window, "groupListColumns")->sizes(), sizes);
    QCOMPARE(
        shownRows(*accountsView(window)),
        QStringList(
            {text("staff|50|2|System group"), text("ormel-admin|27|1|System group"), text("root|0|1|System group")}));
    QCOMPARE(part<QLabel>(*window.pages()->currentWidget(), "title")->text(), text("ormel-admin"));
}

void MainWindowTest::worksWithoutAccounts()
{
    Sandbox::remove(passwdPath());
    Sandbox::remove(groupPath());
    Sandbox::clear(text("/etc/security"));
    MainWindow window;
    QVERIFY(open(window));
    for (int page = 0; page < window.pages()->count(); ++page) {
        window.pages()->setCurrentIndex(page);
        QCoreApplication::processEvents();
        QCOMPARE(clippedTexts(window).join(QLatin1Char('|')), QString());
    }
}

QTEST_MAIN(MainWindowTest)

#include "mainwindowtest.moc"

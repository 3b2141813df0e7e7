/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "mainwindow.h"
#include "about.h"
#include "accountfixtures.h"
#include "accountlist.h"
#include "accountstore.h"
#include "dialogparts.h"
#include "generatedaccounts.h"
#include "icons.h"
#include "icontheme.h"
#include "limitsfixtures.h"
#include "modellog.h"
#include "pageparts.h"
#include "sandbox.h"
#include "windowfixture.h"
#include "windowparts.h"
#include "windowstate.h"

#include <UserListModel>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QSignalSpy>
#include <QSplitter>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>

#include <memory>

namespace
{
QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/** Notes what is painted and what is read, in their order. */
class Log : public QObject
{
public:
    explicit Log(MainWindow &window)
        : m_progress(part<QLabel>(window, "progress"))
    {
        m_progress->installEventFilter(this);
        auto *store = window.findChild<AccountStore *>();
        connect(store, &AccountStore::limitsRead, this, [this] { note(text("limits")); });
        connect(store, &AccountStore::usersRead, this, [this] { note(text("users")); });
        connect(store, &AccountStore::groupsRead, this, [this] { note(text("groups")); });
    }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            note(m_progress->text());
        }
        return false;
    }

    QStringList entries;

private:
    void note(const QString &entry)
    {
        if (entries.isEmpty() || entries.constLast() != entry) {
            entries.append(entry);
        }
    }

    QLabel *m_progress;
};

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

#ifdef __SANITIZE_ADDRESS__ // which makes lookups slow
constexpr int manyAccounts = 2000;
const QLatin1String lastOfMany("user999");
#else
constexpr int manyAccounts = 10000;
const QLatin1String lastOfMany("user9999");
#endif
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
    void paintsEachStepBeforeIt();
    void showsBusyCursorWhileReading();
    void readsAgainAtF5();
    void readsOnceAtATime();
    void readsBeforeFirstPaintWhenTold();
    void canBeClosedWhileReading();
    void listsNewAccountOnItsPageOnly();
    void readsNameRulesAgain();
    void startsInList();
    void startsOnPageWithoutList_data();
    void startsOnPageWithoutList();
    void hasMenus();
    void leadsToPagesByKeys();
    void leadsToNameFilter();
    void hasNoNameFilterOnOtherPages();
    void tellsAboutItself();
    void quits();
    void startsWithoutSettings();
    void remembersState();
    void survivesSettingsOfOthers();
    void showsManyAccounts();
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
    const Log log(window);
    QVERIFY(!window.findChild<UserListModel *>());
    QSignalSpy reloaded(&window, &MainWindow::reloaded);
    QVERIFY(reloaded.isValid());
    window.show();
    QTRY_COMPARE(reloaded.size(), 1);
    QCOMPARE(log.entries.constFirst(), QStringLiteral(u"Reading the limits\u2026"));
    QVERIFY(window.findChild<UserListModel *>());
}

void MainWindowTest::paintsEachStepBeforeIt()
{
    MainWindow window;
    const Log log(window);
    window.show();
    QVERIFY(waitUntilRead(window));
    const QStringList expected{
        QStringLiteral(u"Reading the limits\u2026"),
        text("limits"),
        QStringLiteral(u"Reading the users\u2026"),
        text("users"),
        QStringLiteral(u"Reading the groups\u2026"),
        text("groups"),
    };
    QCOMPARE(log.entries.mid(0, expected.size()), expected);
    QVERIFY(part<QLabel>(window, "progress")->text().startsWith(text("Read at ")));
}

void MainWindowTest::showsBusyCursorWhileReading()
{
    MainWindow window;
    const auto busy = std::make_shared<int>(0);
    auto *store = window.findChild<AccountStore *>();
    connect(store, &AccountStore::usersRead, &window, [busy, &window] {
        *busy += isCursorShown(Qt::BusyCursor) && !window.pages()->isEnabled();
    });
    window.show();
    QVERIFY(waitUntilRead(window));
    QCOMPARE(*busy, 1);
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(window.pages()->isEnabled());
}

void MainWindowTest::readsAgainAtF5()
{
    MainWindow window;
    QVERIFY(open(window));
    QCOMPARE(shownRows(*accountsView(window)).size(), 3);
    Sandbox::setAccounts("eve:x:1002:50::/:/bin/sh\n", "staff:x:50:\n");
    QTest::keyClick(&window, Qt::Key_F5);
    QVERIFY(waitUntilRead(window));
    QCOMPARE(shownRows(*accountsView(window)), QStringList(text("eve|1002|No")));
    window.pages()->setCurrentIndex(1);
    QCOMPARE(shownRows(*accountsView(window)), QStringList(text("staff|50|Yes")));
}

void MainWindowTest::readsOnceAtATime()
{
    MainWindow window;
    QVERIFY(open(window));
    QSignalSpy reloaded(&window, &MainWindow::reloaded);
    for (int i = 0; i < 3; ++i) {
        window.reload();
    }
    QVERIFY(reloaded.wait());
    QTest::qWait(100);
    QCOMPARE(reloaded.size(), 1);
    QVERIFY(!QApplication::overrideCursor());
}

void MainWindowTest::readsBeforeFirstPaintWhenTold()
{
    MainWindow window;
    window.reload();
    QVERIFY(waitUntilRead(window));
    QSignalSpy again(&window, &MainWindow::reloaded);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTest::qWait(200);
    QCOMPARE(again.size(), 0);
    QCOMPARE(shownRows(*accountsView(window)).size(), 3);
}

void MainWindowTest::canBeClosedWhileReading()
{
    {
        MainWindow window;
        window.reload();
        QVERIFY(QApplication::overrideCursor());
    }
    QVERIFY(!QApplication::overrideCursor());
    QCoreApplication::processEvents();
}

void MainWindowTest::listsNewAccountOnItsPageOnly()
{
    MainWindow window;
    QVERIFY(open(window));
    auto *filter = part<QComboBox>(*window.pages()->currentWidget(), "filterComboBox");
    QTest::keyClick(filter, Qt::Key_Down);
    const QStringList ordinary = shownRows(*accountsView(window));
    QCOMPARE(ordinary, QStringList({text("ada|1000|No"), text("bob|1001|No")}));

    QTest::keyClick(&window, Qt::Key_4, Qt::AltModifier);
    QWidget *page = window.pages()->currentWidget();
    QTest::keyClicks(part<QLineEdit>(*page, "userNameEdit"), text("new"));
    auto *existing = part<QTreeView>(*page, "usersView");
    QCOMPARE(shownNames(*existing->model()), text("ada bob root new"));

    QTest::keyClick(&window, Qt::Key_1, Qt::AltModifier);
    QCOMPARE(shownRows(*accountsView(window)), ordinary);
    QTest::keyClick(filter, Qt::Key_End);
    QCOMPARE(shownRows(*accountsView(window)), QStringList(text("ada|1000|No")));
    QCOMPARE(shownNames(*existing->model()), text("ada bob root new"));

    Sandbox::setAccounts("eve:x:1002:50::/:/bin/sh\n", "staff:x:50:\n");
    window.reload();
    QVERIFY(waitUntilRead(window));
    QCOMPARE(shownNames(*existing->model()), text("eve"));
    window.pages()->setCurrentWidget(page);
    QCOMPARE(shownNames(*existing->model()), text("eve new"));
}

void MainWindowTest::readsNameRulesAgain()
{
    Sandbox::remove(text("/etc/adduser.conf"));
    MainWindow window;
    QVERIFY(open(window));
    window.pages()->setCurrentIndex(3);
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
    QTest::newRow("choose") << 4;
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
    QCOMPARE(titles, QStringList({text("&File"), text("&View"), text("&Help")}));
    QCOMPARE(menus.at(0), QStringList({text("&Reload F5"), text("-"), text("&Quit Ctrl+Q")}));
    QCOMPARE(menus.at(1),
             QStringList({text("&Users Alt+1"),
                          text("&Groups Alt+2"),
                          text("&Limits Alt+3"),
                          text("&New Account Alt+4"),
                          text("&Choose Alt+5"),
                          text("-"),
                          text("&Filter by Name Ctrl+F")}));
    QCOMPARE(menus.at(2), QStringList({text("&About Ormel Users"), text("About &Qt")}));
}

void MainWindowTest::leadsToPagesByKeys()
{
    MainWindow window;
    QVERIFY(open(window));
    const QList<QAction *> actions = window.menuBar()->actions().at(1)->menu()->actions();
    for (int page = window.pages()->count() - 1; page >= 0; --page) {
        QTest::keyClick(&window, Qt::Key(Qt::Key_1 + page), Qt::AltModifier);
        QCOMPARE(window.pages()->currentIndex(), page);
        QVERIFY(actions.at(page)->isChecked());
        QVERIFY(window.pages()->isAncestorOf(QApplication::focusWidget()));
    }
}

void MainWindowTest::leadsToNameFilter()
{
    MainWindow window;
    QVERIFY(open(window));
    for (int page = 0; page < 2; ++page) {
        window.pages()->setCurrentIndex(page);
        QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), part<QLineEdit>(*window.pages()->currentWidget(), "filterLineEdit"));
    }
}

void MainWindowTest::hasNoNameFilterOnOtherPages()
{
    MainWindow window;
    const QAction *filter = window.menuBar()->actions().at(1)->menu()->actions().constLast();
    QVERIFY(filter->isEnabled());
    window.pages()->setCurrentIndex(2);
    QVERIFY(!filter->isEnabled());
    window.pages()->setCurrentIndex(1);
    QVERIFY(filter->isEnabled());
}

void MainWindowTest::tellsAboutItself()
{
    const IconTheme theme({text("ormel-users")}, 64);
    About::setApplicationData();
    MainWindow window;
    QVERIFY(open(window));
    window.menuBar()->actions().at(2)->menu()->actions().constFirst()->trigger();
    QPointer<QMessageBox> dialog = window.findChild<QMessageBox *>();
    QVERIFY(dialog);
    QVERIFY(dialog->text().startsWith(text("Ormel Users ")));
    QVERIFY(dialog->informativeText().contains(text("GNU Lesser General Public License")));
    QCOMPARE(dialog->iconPixmap().toImage().pixelColor(32, 32), QColor(Qt::blue));
    QTest::keyClick(dialog, Qt::Key_Escape);
    QTRY_VERIFY(!dialog);
}

void MainWindowTest::quits()
{
    MainWindow window;
    QVERIFY(open(window));
    QTest::keyClick(&window, Qt::Key_Q, Qt::ControlModifier);
    QTRY_VERIFY(!window.isVisible());
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
    QCOMPARE(shownRows(*accountsView(window)).constFirst(), text("ada|1000|No"));
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
        splitter->setSizes({300, splitter->width() - 300 - splitter->handleWidth()});
        sizes = splitter->sizes();
        WindowState::save(window);
    }
    QVERIFY(QFile::exists(settingsPath()));
    MainWindow window;
    WindowState::restore(window);
    QCOMPARE(window.size(), QSize(800, 650));
    QCOMPARE(window.pages()->currentIndex(), 1);
    QVERIFY(open(window));
    QCOMPARE(part<QSplitter>(window, "groupListColumns")->sizes(), sizes);
    QCOMPARE(shownRows(*accountsView(window)),
             QStringList({text("staff|50|Yes"), text("ormel-admin|27|Yes"), text("root|0|Yes")}));
    QCOMPARE(part<QLabel>(*window.pages()->currentWidget(), "title")->text(), text("ormel-admin"));
}

void MainWindowTest::survivesSettingsOfOthers()
{
    QDir().mkpath(QFileInfo(settingsPath()).path());
    QFile file(settingsPath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[General]\ngeometry=nonsense\npage=77\n"
               "[userList]\nfilter=99\nsortColumn=-4\nsortOrder=9\n[splitters]\nuserListColumns=x\n");
    file.close();
    MainWindow window;
    WindowState::restore(window);
    QCOMPARE(window.pages()->currentIndex(), 0);
    QVERIFY(open(window));
    QCOMPARE(shownRows(*accountsView(window)).size(), 3);
    QCOMPARE(part<QComboBox>(window, "filterComboBox")->currentIndex(), 0);
}

void MainWindowTest::showsManyAccounts()
{
    GeneratedAccounts::write(manyAccounts);
    MainWindow window;
    const Log log(window);
    QVERIFY(open(window));
    QCOMPARE(log.entries.constFirst(), QStringLiteral(u"Reading the limits\u2026"));
    QCOMPARE(accountsView(window)->model()->rowCount(), manyAccounts);
    QTest::keyClick(accountsView(window), Qt::Key_End);
    QCOMPARE(part<QLabel>(*window.pages()->currentWidget(), "title")->text(), lastOfMany);
    QTest::keyClick(&window, Qt::Key_2, Qt::AltModifier);
    QCOMPARE(accountsView(window)->model()->rowCount(), manyAccounts + GeneratedAccounts::sharedGroups + 1);
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

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "accountstore.h"
#include "dialogparts.h"
#include "generatedaccounts.h"
#include "mainwindow.h"
#include "patience.h"
#include "recordmodel.h"
#include "recordview.h"
#include "sandbox.h"
#include "texts.h"
#include "windowfixture.h"
#include "windowparts.h"

#include <KMessageWidget>

#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

#include <memory>

#include <sys/stat.h>

namespace
{
/** Makes the reading of the users wait for ever. */
void blockUsers()
{
    Sandbox::remove(passwdPath());
    if (mkfifo(QFile::encodeName(passwdPath()).constData(), 0644) != 0) {
        qFatal("Cannot make a pipe");
    }
}

void replaceUsers(const QByteArray &lines)
{
    const QString other = passwdPath() + QLatin1Char('+');
    Sandbox::write(other, lines);
    if (rename(QFile::encodeName(other).constData(), QFile::encodeName(passwdPath()).constData()) != 0) {
        qFatal("Cannot replace the users");
    }
}

QStringList namesIn(const RecordView &view)
{
    QStringList names;
    const QStringList rows = shownRows(view);
    for (const QString &row : rows) {
        names.append(row.section(QLatin1Char('|'), 0, 0));
    }
    return names;
}

/** A window and its parts. */
struct Window {
    bool isProgressShown() const
    {
        return bar->isVisible() && cancel->isVisible();
    }

    RecordView *users() const
    {
        return part<RecordView>(window, "userListView");
    }

    MainWindow window;
    QLabel *progress = part<QLabel>(window, "progress");
    QProgressBar *bar = part<QProgressBar>(window, "progressBar");
    QPushButton *cancel = part<QPushButton>(window, "cancelButton");
};
}

/** The window while accounts are being read, and when they change. */
class ReadingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void showsProgress();
    void canBeUsedWhileReading();
    void cancels_data();
    void cancels();
    void clearsSearchBeforeItCancels();
    void readsFromTheBeginningAtF5();
    void canBeClosedWhileReading();
    void showsGroupsBeforeUsers();
    void showsNewUsersLive();
    void keepsPlaceWhenUsersChange();
    void tellsThatUsersCannotBeRead();
    void showsManyUsers();
};

void ReadingTest::init()
{
    prepareWindow();
}

void ReadingTest::cleanup()
{
    Sandbox::remove(passwdPath());
}

void ReadingTest::showsProgress()
{
    Window window;
    QVERIFY(open(window.window));
    QVERIFY(!window.isProgressShown());
    QVERIFY(window.progress->text().startsWith(text("Read at ")));
    blockUsers();
    window.window.reload();
    QVERIFY(window.isProgressShown());
    QCOMPARE(window.progress->text(), QStringLiteral(u"Reading the groups\u2026"));
    window.window.close();
}

void ReadingTest::canBeUsedWhileReading()
{
    Window window;
    QVERIFY(open(window.window));
    blockUsers();
    window.window.reload();
    QVERIFY(!QApplication::overrideCursor());
    QTest::keyClick(window.users(), Qt::Key_Down);
    QCOMPARE(part<QLabel>(*window.window.pages()->widget(0), "title")->text(), text("bob"));
    QTest::keyClick(&window.window, Qt::Key_3, Qt::AltModifier);
    QCOMPARE(window.window.pages()->currentIndex(), 2);
    QVERIFY(window.isProgressShown());
}

void ReadingTest::cancels_data()
{
    QTest::addColumn<bool>("byKey");

    QTest::newRow("key") << true;
    QTest::newRow("button") << false;
}

void ReadingTest::cancels()
{
    QFETCH(bool, byKey);

    Window window;
    QVERIFY(open(window.window));
    const QString before = window.progress->text();
    blockUsers();
    window.window.reload();
    if (byKey) {
        QTest::keyClick(window.users(), Qt::Key_Escape);
    } else {
        QTest::mouseClick(window.cancel, Qt::LeftButton);
    }
    QVERIFY(!window.isProgressShown());
    QCOMPARE(window.progress->text(), before);
    QCOMPARE(namesIn(*window.users()), QStringList({text("ada"), text("bob"), text("root")}));
}

void ReadingTest::clearsSearchBeforeItCancels()
{
    Window window;
    QVERIFY(open(window.window));
    blockUsers();
    window.window.reload();
    auto *search = part<QLineEdit>(*window.window.pages()->widget(0), "searchField");
    search->setFocus();
    QTest::keyClicks(search, text("ada"));
    QTest::keyClick(search, Qt::Key_Escape);
    QCOMPARE(search->text(), QString());
    QVERIFY(window.isProgressShown());
    QTest::keyClick(search, Qt::Key_Escape);
    QVERIFY(!window.isProgressShown());
}

void ReadingTest::readsFromTheBeginningAtF5()
{
    Window window;
    QVERIFY(open(window.window));
    blockUsers();
    window.window.reload();
    QTest::qWait(50);
    replaceUsers("eve:x:1002:50::/:/bin/sh\n");
    QTest::keyClick(&window.window, Qt::Key_F5);
    QVERIFY(waitUntilRead(window.window));
    QCOMPARE(namesIn(*window.users()), QStringList(text("eve")));
}

void ReadingTest::canBeClosedWhileReading()
{
    auto window = std::make_unique<Window>();
    QVERIFY(open(window->window));
    blockUsers();
    window->window.reload();
    QVERIFY(window->window.close());
    window.reset();
}

void ReadingTest::showsGroupsBeforeUsers()
{
    // Without users there are no primary members to be read for the groups.
    Window window;
    const auto *store = window.window.findChild<AccountStore *>();
    const QAbstractItemModel *groups = part<RecordView>(window.window, "groupListView")->model();
    const QAbstractItemModel *users = window.users()->model();
    const auto *progress = window.progress;
    const auto shown = std::make_shared<QStringList>();
    connect(store, &AccountStore::groupsRead, this, [=] {
        shown->append({QString::number(groups->rowCount()), QString::number(users->rowCount()), progress->text()});
    });
    connect(store, &AccountStore::usersRead, this, [=] { shown->append(text("users")); });
    QVERIFY(open(window.window));
    QCOMPARE(*shown, QStringList({text("3"), text("0"), QStringLiteral(u"Reading the users\u2026"), text("users")}));
}

void ReadingTest::showsNewUsersLive()
{
    Window window;
    QVERIFY(open(window.window));
    QFile passwd(passwdPath());
    QVERIFY(passwd.open(QIODevice::ReadOnly));
    const QByteArray before = passwd.readAll();
    const RecordView &users = *window.users();
    replaceUsers(before + "carl:x:1003:50:Carl:/home/carl:/bin/sh\n");
    QTRY_COMPARE_WITH_TIMEOUT(namesIn(users).join(QLatin1Char(' ')), text("ada bob carl root"), patience);
    const QModelIndex carl = users.recordModel()->find(text("carl"));
    QVERIFY(carl.data(RecordModel::NewsRole).toBool());
    QVERIFY(!carl.sibling(0, 0).data(RecordModel::NewsRole).toBool());
    QCOMPARE(users.currentName(), text("ada"));
    replaceUsers(before);
    QTRY_COMPARE_WITH_TIMEOUT(namesIn(users).join(QLatin1Char(' ')), text("ada bob root"), patience);
    QCOMPARE(users.currentName(), text("ada"));
}

void ReadingTest::keepsPlaceWhenUsersChange()
{
    const QByteArray many = manyUsers(300);
    Sandbox::write(passwdPath(), many);
    Window window;
    QVERIFY(open(window.window));
    RecordView &users = *window.users();
    users.setCurrentName(text("user200"));
    users.verticalScrollBar()->setValue(100);
    const QString top = users.indexAt({}).data().toString();
    QSignalSpy reloaded(&window.window, &MainWindow::reloaded);
    replaceUsers("aaa:x:999:50::/:/bin/sh\naab:x:1999:50::/:/bin/sh\n" + many);
    QVERIFY(reloaded.wait(patience));
    QCOMPARE(users.model()->rowCount(), 302);
    QCOMPARE(users.currentName(), text("user200"));
    QCOMPARE(users.indexAt({}).data().toString(), top);
}

void ReadingTest::tellsThatUsersCannotBeRead()
{
    Window window;
    QVERIFY(open(window.window));
    const auto *message = part<KMessageWidget>(*window.window.pages()->widget(0), "listError");
    QVERIFY(!message->isVisible());
    QSignalSpy reloaded(&window.window, &MainWindow::reloaded);
    Sandbox::remove(passwdPath());
    QVERIFY(reloaded.wait(patience));
    QVERIFY(message->isVisible());
    QCOMPARE(message->text(), text("<qt>Cannot read '/etc/passwd': No such file or directory</qt>"));
    QCOMPARE(namesIn(*window.users()).size(), 3);
    replaceUsers("eve:x:1002:50::/:/bin/sh\n");
    QVERIFY(reloaded.wait(patience));
    QVERIFY(!message->isVisible());
    QCOMPARE(namesIn(*window.users()), QStringList(text("eve")));
}

void ReadingTest::showsManyUsers()
{
    constexpr int count = 2000;
    GeneratedAccounts::write(count);
    Window window;
    QVERIFY(open(window.window));
    QCOMPARE(window.users()->model()->rowCount(), count);
    QTest::keyClick(window.users(), Qt::Key_End);
    QCOMPARE(part<QLabel>(*window.window.pages()->widget(0), "title")->text(), text("user1999"));
    QTest::keyClick(&window.window, Qt::Key_2, Qt::AltModifier);
    QCOMPARE(accountsView(window.window)->model()->rowCount(), count + GeneratedAccounts::sharedGroups + 1);
}

QTEST_MAIN(ReadingTest)

#include "readingtest.moc"

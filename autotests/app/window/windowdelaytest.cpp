/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "dialogparts.h"
#include "eventloopdelay.h"
#include "generatedaccounts.h"
#include "limitsfixtures.h"
#include "mainwindow.h"
#include "patience.h"
#include "recordmodel.h"
#include "recordview.h"
#include "texts.h"
#include "windowfixture.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

#include <algorithm>
#include <memory>

namespace
{
#ifdef __SANITIZE_ADDRESS__ // which takes time of its own, so delays are not compared
constexpr int accountCount = 1000;
#else
constexpr int accountCount = 10000;
#endif
constexpr int ruleCount = 10 * accountCount;

/** How late a timer of the window may be. In milliseconds. */
constexpr qint64 longestDelay = 50;

/** Whether nothing else runs on the machine. Then accounts are read that take as long as possible. */
bool isMeasurement()
{
    return qEnvironmentVariableIsSet("ORMEL_TEST_MEASURE");
}

void writeAccounts()
{
    if (isMeasurement()) {
        GeneratedAccounts::write(accountCount);
    } else {
        Sandbox::setAccounts(manyUsers(accountCount), "ormel-admin:x:27:user1\nstaff:x:50:\n" + manyGroups(1000));
        Sandbox::removeExtraAccounts();
    }
}

/**
 * Ten rules for each user. But each hundredth is for a group, each hundredth has no item, and every other one is for
 * somebody who is gone.
 */
void writeLimits()
{
    static const char *const items[] = {"core", "nofile", "nproc", "memlock", "stack"};
    QByteArray rules;
    for (int i = 0; i < ruleCount; ++i) {
        const QByteArray number = QByteArray::number(i % accountCount);
        const char *user = i % 2 ? "gone" : "user";
        const char *item = i % 100 == 1 ? "none" : items[i / accountCount % 5];
        rules += (i % 100 == 2 ? "@group" : user) + number + (i < ruleCount / 2 ? " soft " : " hard ") + item + ' '
            + QByteArray::number(1024 + i % 100) + '\n';
    }
    clearLimits();
    Sandbox::write(limitsPath(), rules);
}

/** A window with everything in it. */
class Window
{
public:
    MainWindow &window()
    {
        return m_window;
    }

    bool isRead()
    {
        return waitUntilRead(m_window) && waitUntilShown(m_window);
    }

    void goTo(int page)
    {
        key(m_window, Qt::Key(Qt::Key_1 + page), Qt::AltModifier);
        QCOMPARE(m_window.pages()->currentIndex(), page);
    }

    template<typename Widget>
    Widget &partOfPage(const char *name)
    {
        return *part<Widget>(*m_window.pages()->currentWidget(), name);
    }

    /** As the operator does it, who waits for what happens. */
    void key(QWidget &widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&widget, key, modifiers);
        QCoreApplication::processEvents();
    }

private:
    MainWindow m_window;
};
}

/** How long the window does not answer while it works on many accounts and rules. Prints the rows of a table. */
class WindowDelayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void opensAndReads();
    void goesThroughPages();
    void sorts_data();
    void sorts();
    void searches_data();
    void searches();
    void filters_data();
    void filters();
    void scrolls_data();
    void scrolls();
    void selectsAll();
    void showsGroupOfMany();
    void entersNewAccount();
    void readsAgain();
    void showsChanges();
    void cancels();
    void closesWhileReading();

private:
    /** Whether the window has answered all the time since the last call. */
    bool isInTime(const QString &what);

    std::unique_ptr<EventLoopDelay> m_delay;
    std::unique_ptr<Window> m_window;
    /** What was done, in the order in which it was, and the longest delays. */
    QVector<QPair<QString, qint64>> m_delays;
};

bool WindowDelayTest::isInTime(const QString &what)
{
    QCoreApplication::processEvents();
    const EventLoopDelay::Longest longest = m_delay->takeLongest();
    if (m_delays.isEmpty() || m_delays.constLast().first != what) {
        m_delays.append({what, 0});
    }
    m_delays.last().second = qMax(m_delays.constLast().second, longest.delay);
#ifdef __SANITIZE_ADDRESS__
    return true;
#else
    // Beside other tests, the window may wait for the disk and the display, which they use.
    const qint64 counted = isMeasurement() ? longest.delay : longest.work;
    if (counted > longestDelay) {
        qWarning("%s: no answer for %lld ms", qPrintable(what), counted);
    }
    return counted <= longestDelay;
#endif
}

void WindowDelayTest::initTestCase()
{
    qRegisterMetaType<QList<QPersistentModelIndex>>();
    qRegisterMetaType<QAbstractItemModel::LayoutChangeHint>();
    prepareWindow();
    writeAccounts();
    writeLimits();
}

void WindowDelayTest::cleanupTestCase()
{
    for (const auto &[what, delay] : qAsConst(m_delays)) {
        qInfo("| %s | %lld ms |", qPrintable(what), delay);
    }
}

void WindowDelayTest::opensAndReads()
{
    m_window = std::make_unique<Window>();
    m_delay = std::make_unique<EventLoopDelay>();
    m_window->window().show();
    QVERIFY(isInTime(text("opening the window")));
    QVERIFY(m_window->isRead());
    QVERIFY(isInTime(text("reading")));
    QVERIFY(QTest::qWaitForWindowActive(&m_window->window(), patience));
}

void WindowDelayTest::goesThroughPages()
{
    m_delay->takeLongest();
    for (int page = 1; page <= 5; ++page) {
        m_window->goTo(page % 5);
        QVERIFY(isInTime(text("going to another page")));
    }
}

void WindowDelayTest::sorts_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("list");

    QTest::newRow("users") << 0 << text("userListView");
    QTest::newRow("groups") << 1 << text("groupListView");
    QTest::newRow("problems") << 3 << text("problemListView");
}

void WindowDelayTest::sorts()
{
    QFETCH(int, page);
    QFETCH(QString, list);

    m_window->goTo(page);
    auto &view = m_window->partOfPage<RecordView>(qPrintable(list));
    QVector<int> columns = view.shownColumns();
    std::reverse(columns.begin(), columns.end());
    QSignalSpy sorted(view.model(), &QAbstractItemModel::layoutChanged);
    for (const int column : qAsConst(columns)) {
        for (const Qt::SortOrder order : {Qt::DescendingOrder, Qt::AscendingOrder}) {
            sorted.clear();
            view.sortByColumn(column, order);
            QTRY_VERIFY_WITH_TIMEOUT(!sorted.isEmpty(), patience);
            QVERIFY(isInTime(text("sorting the ") + text(QTest::currentDataTag())));
        }
    }
}

void WindowDelayTest::searches_data()
{
    sorts_data();
}

void WindowDelayTest::searches()
{
    QFETCH(int, page);

    m_window->goTo(page);
    auto &search = m_window->partOfPage<QLineEdit>("searchField");
    search.setFocus();
    for (const Qt::Key key : {Qt::Key_1, Qt::Key_2, Qt::Key_Backspace, Qt::Key_Backspace, Qt::Key_X, Qt::Key_Escape}) {
        m_window->key(search, key);
        QVERIFY(isInTime(text("searching the ") + text(QTest::currentDataTag())));
    }
    QCOMPARE(search.text(), QString());
}

void WindowDelayTest::filters_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("box");

    QTest::newRow("users") << 0 << text("filterComboBox");
    QTest::newRow("groups") << 1 << text("filterComboBox");
    QTest::newRow("limits") << 2 << text("lineFilter");
    QTest::newRow("problems") << 3 << text("filterComboBox");
}

void WindowDelayTest::filters()
{
    QFETCH(int, page);
    QFETCH(QString, box);

    m_window->goTo(page);
    auto &comboBox = m_window->partOfPage<QComboBox>(qPrintable(box));
    for (int i = comboBox.count() - 1; i >= 0; --i) {
        comboBox.setCurrentIndex(i);
        QVERIFY(isInTime(text("filtering the ") + text(QTest::currentDataTag())));
    }
}

void WindowDelayTest::scrolls_data()
{
    sorts_data();
    QTest::newRow("limits") << 2 << text("linesTable");
}

void WindowDelayTest::scrolls()
{
    QFETCH(int, page);
    QFETCH(QString, list);

    m_window->goTo(page);
    auto &view = m_window->partOfPage<QTreeView>(qPrintable(list));
    const QString what = text("scrolling the ") + text(QTest::currentDataTag());
    view.setFocus();
    for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_End, Qt::Key_Up, Qt::Key_Home}) {
        m_window->key(view, key);
        QVERIFY(isInTime(what));
    }
    for (int i = 1; i <= 10; ++i) {
        view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() / 10 * i);
        QVERIFY(isInTime(what));
    }
}

void WindowDelayTest::selectsAll()
{
    m_window->goTo(0);
    auto &view = m_window->partOfPage<RecordView>("userListView");
    view.setFocus();
    m_window->key(view, Qt::Key_A, Qt::ControlModifier);
    QVERIFY(isInTime(text("selecting all users")));
    view.sortByColumn(1, Qt::AscendingOrder);
    QVERIFY(isInTime(text("sorting all users, selected")));
    m_window->key(m_window->window(), Qt::Key_F5);
    QVERIFY(m_window->isRead());
    QCOMPARE(view.selectionModel()->selectedRows().size(), accountCount);
    QVERIFY(isInTime(text("reading again while all are selected")));
    m_window->key(view, Qt::Key_Down);
    QCOMPARE(view.selectionModel()->selectedRows().size(), 1);
    QVERIFY(isInTime(text("selecting one of them")));
}

void WindowDelayTest::showsGroupOfMany()
{
    m_window->goTo(1);
    auto &view = m_window->partOfPage<RecordView>("groupListView");
    view.sortByColumn(2, Qt::DescendingOrder);
    m_window->key(view, Qt::Key_Down);
    m_window->key(view, Qt::Key_Home);
    QVERIFY(m_window->partOfPage<RecordView>("membersView").model()->rowCount() > accountCount / 20);
    QVERIFY(isInTime(text("showing a group of many")));
}

void WindowDelayTest::entersNewAccount()
{
    m_window->goTo(4);
    auto &name = m_window->partOfPage<QLineEdit>("userNameEdit");
    for (const Qt::Key key : {Qt::Key_U, Qt::Key_S, Qt::Key_E, Qt::Key_R, Qt::Key_1}) {
        m_window->key(name, key);
        QVERIFY(isInTime(text("entering a new account")));
    }
}

void WindowDelayTest::readsAgain()
{
    m_window->goTo(3);
    m_window->key(m_window->window(), Qt::Key_F5);
    QVERIFY(m_window->isRead());
    QVERIFY(isInTime(text("reading again")));
}

void WindowDelayTest::showsChanges()
{
    m_window->goTo(0);
    const auto &users = *m_window->partOfPage<RecordView>("userListView").recordModel();
    QFile passwd(passwdPath());
    QVERIFY(passwd.open(QIODevice::Append));
    passwd.write("aaa:x:1:50::/:/bin/sh\n");
    passwd.close();
    QVERIFY(m_window->isRead());
    QVERIFY(users.hasRecord(text("aaa")));
    QVERIFY(isInTime(text("showing what has changed")));
}

void WindowDelayTest::cancels()
{
    m_window->key(m_window->window(), Qt::Key_F5);
    auto &cancel = *part<QPushButton>(m_window->window(), "cancelButton");
    QVERIFY(cancel.isVisible());
    QTest::mouseClick(&cancel, Qt::LeftButton);
    QVERIFY(!cancel.isVisible());
    QVERIFY(isInTime(text("cancelling")));
}

void WindowDelayTest::closesWhileReading()
{
    m_window->key(m_window->window(), Qt::Key_F5);
    QVERIFY(m_window->window().close());
    QVERIFY(isInTime(text("closing the window while it reads")));
    m_window.reset();
}

QTEST_MAIN(WindowDelayTest)

#include "windowdelaytest.moc"

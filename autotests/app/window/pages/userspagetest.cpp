/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "shownuserspage.h"

#include "generatedaccounts.h"
#include "patience.h"
#include "program.h"
#include "writeaccounts.h"

#include <KMessageWidget>

#include <QAbstractItemModelTester>
#include <QLabel>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace
{
/** The titles of the fields that are marked. */
QString markedTitles(const QWidget &page)
{
    QStringList titles;
    const QList<QLabel *> labels = page.findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->autoFillBackground() && label->backgroundRole() == QPalette::Highlight) {
            titles.append(label->text());
        }
    }
    return titles.join(QLatin1Char(' '));
}
}

class UsersPageTest : public QObject
{
    Q_OBJECT

public:
    static void initMain();

private Q_SLOTS:
    void init();
    void isEmptyBeforeAccountsAreRead();
    void listsOrdinaryUsersFirst();
    void filtersByKind();
    void marksFieldsWithHits();
    void tellsWhyNobodyIsShown();
    void followsKeyboard();
    void keepsCurrentUserOnReload();
    void showsUserOfLastTimeInView();
    void reportsFilesThatCannotBeRead();
    void tellsThatReadingFailed_data();
    void tellsThatReadingFailed();
    void worksWithoutAccountsAndGroups();
};

void UsersPageTest::initMain()
{
    qputenv("LC_ALL", "en_US.UTF-8");
}

void UsersPageTest::init()
{
    Sandbox::setAccounts(usersFile, groupsFile);
    clearLimits();
}

void UsersPageTest::isEmptyBeforeAccountsAreRead()
{
    AccountStore store;
    UsersPage page(&store);
    page.show();
    QCOMPARE(part<QLabel>(page, "title")->text(), QStringLiteral("No user is selected"));
    QCOMPARE(page.list()->view()->model()->rowCount(), 0);
}

void UsersPageTest::listsOrdinaryUsersFirst()
{
    ShownUsersPage page;
    QCOMPARE(shownRows(*page.view),
             QStringList({
                 QStringLiteral(u"ada|Ada \u00d6st|1000|Ordinary user"),
                 QStringLiteral("bob|<b>Bob</b> &amp; co|1001|Ordinary user"),
                 QStringLiteral("lost||1002|Ordinary user"),
                 QStringLiteral("nobody|nobody|65534|System account"),
                 QStringLiteral("root|root|0|System account"),
             }));
    QCOMPARE(part<QLabel>(page.page, "count")->text(), QStringLiteral("5 users"));
    QCOMPARE(page.title(), QStringLiteral("ada"));
}

void UsersPageTest::filtersByKind()
{
    ShownUsersPage page;
    const QStringList expected{
        QStringLiteral("All users: ada bob lost nobody root"),
        QStringLiteral("Ordinary users: ada bob lost"),
        QStringLiteral("System accounts: nobody root"),
        QStringLiteral("Administrators: ada"),
    };
    QCOMPARE(page.filter->count(), expected.size());
    for (const QString &names : expected) {
        QCOMPARE(page.filter->currentText() + QStringLiteral(": ") + page.names().join(QLatin1Char(' ')), names);
        QTest::keyClick(page.filter, Qt::Key_Down);
    }
}

void UsersPageTest::marksFieldsWithHits()
{
    ShownUsersPage page;
    QCOMPARE(markedTitles(page.page), QString());
    page.search->setText(QStringLiteral("Audio"));
    QCOMPARE(page.title(), QStringLiteral("ada"));
    QCOMPARE(markedTitles(page.page), QStringLiteral("All groups:"));
    page.search->setText(QStringLiteral("555-0142 home"));
    QCOMPARE(markedTitles(page.page), QStringLiteral("Work phone: Home directory:"));
    page.search->setText(QStringLiteral("no such user"));
    QCOMPARE(markedTitles(page.page), QString());
    page.search->setText(QStringLiteral("staff"));
    QCOMPARE(page.title(), QStringLiteral("bob"));
    QCOMPARE(markedTitles(page.page), QStringLiteral("Primary group: All groups:"));
    page.search->clear();
    QCOMPARE(markedTitles(page.page), QString());
}

void UsersPageTest::tellsWhyNobodyIsShown()
{
    Sandbox::setAccounts(usersFile, "root:x:0:\n");
    ShownUsersPage page;
    const auto *reason = part<QLabel>(page.page, "noMatch");
    QTest::keyClicks(page.search, QStringLiteral("no such user"));
    QCOMPARE(reason->text(), QStringLiteral("No user matches."));
    QCOMPARE(part<QLabel>(page.page, "count")->text(), QStringLiteral("0 of 5 users"));
    QCOMPARE(page.title(), QStringLiteral("No user is selected"));
    page.search->clear();
    QTest::keyClick(page.filter, Qt::Key_End);
    QVERIFY(reason->isVisible());
    QCOMPARE(reason->text(), QStringLiteral("There is no group ormel-admin, so nobody is an administrator here."));
}

void UsersPageTest::followsKeyboard()
{
    ShownUsersPage page;
    page.view->setFocus();
    QTest::keyClick(page.view, Qt::Key_Down);
    QCOMPARE(page.title(), QStringLiteral("bob"));
    QTest::keyClick(page.view, Qt::Key_End);
    QCOMPARE(page.title(), QStringLiteral("root"));
    QTest::keyClick(page.view, Qt::Key_L);
    QCOMPARE(page.title(), QStringLiteral("lost"));
}

void UsersPageTest::keepsCurrentUserOnReload()
{
    ShownUsersPage page;
    page.select("bob");
    Sandbox::setAccounts("aaa:x:1005:50::/:/bin/sh\nbob:x:1001:50:Robert:/home/bob:/bin/sh\n", groupsFile);
    page.reload();
    QCOMPARE(page.names().join(QLatin1Char(' ')), QStringLiteral("aaa bob"));
    QCOMPARE(page.title(), QStringLiteral("bob"));
    QCOMPARE(fieldText(page.page, "Full name:"), QStringLiteral("Robert"));
}

void UsersPageTest::showsUserOfLastTimeInView()
{
    GeneratedAccounts::write(200);
    const QTemporaryDir directory;
    QSettings settings(directory.filePath(QStringLiteral("window.ini")), QSettings::IniFormat);
    settings.setValue(QStringLiteral("userListView/current"), QStringLiteral("user99"));
    AccountStore store;
    UsersPage page(&store);
    page.list()->restoreState(settings);
    QVERIFY(readAccounts(store));
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page, patience));
    QCOMPARE(part<QLabel>(page, "title")->text(), QStringLiteral("user99"));
    const RecordView *view = page.list()->view();
    const QRect current = view->visualRect(view->currentIndex());
    QVERIFY(current.isValid() && view->viewport()->rect().contains(current));
}

void UsersPageTest::reportsFilesThatCannotBeRead()
{
    QFile::setPermissions(passwdPath(), {});
    ShownUsersPage page;
    const auto *message = part<KMessageWidget>(page.page, "listError");
    QVERIFY(message->isVisible());
    QCOMPARE(message->text(), QStringLiteral("<qt>Cannot read '/etc/passwd': Permission denied</qt>"));
    QCOMPARE(page.title(), QStringLiteral("No user is selected"));

    QFile::setPermissions(passwdPath(), QFile::ReadOwner | QFile::WriteOwner);
    Sandbox::remove(groupPath());
    page.reload();
    QCOMPARE(message->text(), QStringLiteral("<qt>Cannot read '/etc/group': No such file or directory</qt>"));
    QCOMPARE(page.names().size(), 5);

    Sandbox::remove(passwdPath());
    page.reload();
    QCOMPARE(message->text(),
             QStringLiteral("<qt>Cannot read '/etc/group': No such file or directory<br>"
                            "Cannot read '/etc/passwd': No such file or directory</qt>"));

    Sandbox::setAccounts(usersFile, groupsFile);
    page.reload();
    QVERIFY(!message->isVisible());
}

void UsersPageTest::tellsThatReadingFailed_data()
{
    QTest::addColumn<QString>("failure");
    QTest::addColumn<QString>("message");

    QTest::newRow("ends") << QStringLiteral("exit 1") << QStringLiteral("has ended early");
    QTest::newRow("is killed") << QStringLiteral("kill -9 $$") << QStringLiteral("has ended early");
    QTest::newRow("hangs") << QStringLiteral("exec sleep 1000") << QStringLiteral("does not answer");
    QTest::newRow("prints garbage") << QStringLiteral("echo Segmentation fault")
                                    << QStringLiteral("sends something unexpected");
}

void UsersPageTest::tellsThatReadingFailed()
{
    QFETCH(QString, failure);
    QFETCH(QString, message);

    // The program works the first and the third time.
    Sandbox::write(QStringLiteral("/tmp/runs"), {});
    const QString script = QStringLiteral("echo >>/tmp/runs; test $(wc -l </tmp/runs) = 2 && { %1; exit; }; exec %2 %3")
                               .arg(failure, Program::path(), writeAccountsCommand());
    AccountStore store(nullptr, {QStringLiteral("/bin/sh"), {QStringLiteral("-c"), script}, std::chrono::seconds(5)});
    UsersPage page(&store);
    page.show();
    QVERIFY(readAccounts(store));
    const auto *error = part<KMessageWidget>(page, "listError");
    QVERIFY(!error->isVisible());

    QVERIFY(readAccounts(store));
    QVERIFY(error->isVisible());
    QVERIFY2(error->text().contains(message), qPrintable(error->text()));
    QCOMPARE(page.list()->view()->model()->rowCount(), 5);

    QVERIFY(readAccounts(store));
    QVERIFY(!error->isVisible());
    QCOMPARE(page.list()->view()->model()->rowCount(), 5);
}

void UsersPageTest::worksWithoutAccountsAndGroups()
{
    Sandbox::setAccounts("", "");
    ShownUsersPage page;
    QCOMPARE(page.names(), QStringList());
    QCOMPARE(page.title(), QStringLiteral("No user is selected"));
    Sandbox::setAccounts(usersFile, "");
    page.reload();
    QCOMPARE(page.title(), QStringLiteral("ada"));
    QCOMPARE(fieldText(page.page, "All groups:"), QStringLiteral(u"\u2013"));
}

QTEST_MAIN(UsersPageTest)

#include "userspagetest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "problemspage.h"

#include "accountstore.h"
#include "dialogparts.h"
#include "eventloopdelay.h"
#include "patience.h"
#include "problemaccounts.h"
#include "problemstore.h"
#include "recordview.h"
#include "rowactions.h"
#include "rowtable.h"
#include "texts.h"
#include "windowfixture.h"
#include "windowparts.h"

#include <KMessageWidget>

#include <QComboBox>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace ProblemAccounts;

namespace
{
// In milliseconds. Sanitizers take their time.
#ifdef __SANITIZE_ADDRESS__
constexpr qint64 longestDelay = 3000;
#else
constexpr qint64 longestDelay = 300;
#endif

/** Two errors, two warnings and a note. */
void breakMachine()
{
    addProblems("bob:x:1000:77:Bob:/nonexistent:/bin/sh\n", "crew:x:51:eve\n");
    Sandbox::write(text("/etc/shadow"), "root:*:1::::::\nada:*:1::::::\nbob:*:1::::::\n");
    Sandbox::write(text("/etc/gshadow"), "root:*::\nstaff:*::\ncrew:*::eve\n");
}

struct Page {
    explicit Page(const PacketSource &source = ProblemReader::ownProgram())
        : problems(&accounts, nullptr, source)
    {
        page.show();
    }

    /** Reads the accounts and checks the machine. */
    void check()
    {
        QSignalSpy ended(&problems, &ProblemStore::ended);
        accounts.read();
        if (!ended.wait(patience)) {
            qFatal("The machine was not checked");
        }
    }

    QString label(const char *name) const
    {
        return part<QLabel>(page, name)->text();
    }

    /** What is shown instead of a list; null where there is a list. */
    QString hint() const
    {
        const auto *label = part<QLabel>(page, "noMatch");
        return label->isVisible() ? label->text() : QString();
    }

    QString message(const char *name) const
    {
        const auto *message = part<KMessageWidget>(page, name);
        return message->isVisible() ? message->text() : QString();
    }

    void select(const char *problem) const
    {
        view->setCurrentIndex({});
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            if (view->model()->index(row, 1).data().toString().contains(QLatin1String(problem))) {
                view->setCurrentIndex(view->model()->index(row, 0));
            }
        }
    }

    AccountStore accounts;
    ProblemStore problems;
    ProblemsPage page{&problems};
    RecordView *view = page.list()->view();
};
}

class ProblemsPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void isEmptyBeforeMachineIsChecked();
    void tellsThatThereAreNone();
    void listsProblems();
    void sortsBySeverity();
    void explainsCurrentProblem();
    void searchesAndFilters();
    void copiesRows();
    void tellsWhatIsNotChecked();
    void tellsWhatCannotBeRead();
    void tellsThatCheckHasFailed();
    void showsTextAsItIs();
    void staysUsableWithManyProblems();
    void checksAgainWhenFilesChange_data();
    void checksAgainWhenFilesChange();
};

void ProblemsPageTest::init()
{
    prepareWindow();
    Sandbox::setAccounts(goodUsers, goodGroups);
    Sandbox::remove(text("/etc/shadow"));
    Sandbox::write(text("/etc/shadow"), "root:*:1::::::\nada:*:1::::::\n");
    Sandbox::write(text("/etc/gshadow"), "root:*::\nstaff:*::\n");
    clearLimits();
}

void ProblemsPageTest::isEmptyBeforeMachineIsChecked()
{
    Page page;
    QCOMPARE(page.view->model()->rowCount(), 0);
    QCOMPARE(page.hint(), QString());
    QVERIFY(!part<QLabel>(page.page, "problemText")->isVisible());
}

void ProblemsPageTest::tellsThatThereAreNone()
{
    Page page;
    page.check();
    QCOMPARE(page.hint(), text("No problems found."));
    QVERIFY(!part<QPushButton>(page.page, "clearButton")->isVisible());
    QCOMPARE(page.label("count"), text("0 problems"));

    Sandbox::setAccounts(goodUsers, QByteArray(goodGroups) + "\n");
    page.check();
    QCOMPARE(page.hint(), QString());
    QCOMPARE(page.label("count"), text("1 problem"));
}

void ProblemsPageTest::listsProblems()
{
    breakMachine();
    Page page;
    page.check();
    QCOMPARE(shownRows(*page.view),
             QStringList({
                 text("error|User 'bob' has the same UID as user 'ada': 1000|bob|/etc/passwd:3"),
                 text("error|The primary group of user 'bob' does not exist: 77|bob|/etc/passwd:3"),
                 text("warning|Group 'crew' has the member 'eve', but there is no such user.|crew|/etc/group:3"),
                 text("warning|Group 'crew' has the member 'eve', but there is no such user.|crew|/etc/gshadow:3"),
                 text("warning|'ghost soft core 0': is for nobody: there is no user "
                      "'ghost'||/etc/security/limits.conf:2"),
                 text("note|The line is empty or a comment.||/etc/group:4"),
             }));
}

void ProblemsPageTest::sortsBySeverity()
{
    breakMachine();
    Page page;
    page.check();
    page.view->sortByColumn(0, Qt::DescendingOrder);
    QCOMPARE(shownRows(*page.view).constFirst(), text("note|The line is empty or a comment.||/etc/group:4"));
    page.view->sortByColumn(3, Qt::AscendingOrder);
    QCOMPARE(shownRows(*page.view).at(1), text("note|The line is empty or a comment.||/etc/group:4"));
}

void ProblemsPageTest::explainsCurrentProblem()
{
    breakMachine();
    Page page;
    page.check();
    page.select("same UID");
    QCOMPARE(page.label("problemText"), text("User 'bob' has the same UID as user 'ada': 1000"));
    QCOMPARE(page.label("problemMeaning"),
             text("To the system both are the same user, with the same files and processes."));
    QCOMPARE(page.label("problemRemedy"),
             text("Give one of them another UID with 'usermod --uid', and change the owner of its files with chown."));
    QCOMPARE(fieldText(page.page, "User:"), text("bob"));
    page.select("has the member");
    QCOMPARE(fieldText(page.page, "Group:"), text("crew"));
    page.select("ghost");
    QCOMPARE(fieldText(page.page, "Line:"), text("/etc/security/limits.conf:2"));
    page.select("empty or a comment");
    QVERIFY(!part<QLabel>(page.page, "problemLink")->isVisible());
}

void ProblemsPageTest::searchesAndFilters()
{
    breakMachine();
    Page page;
    page.check();
    auto *search = part<QLineEdit>(page.page, "searchField");
    auto *filter = part<QComboBox>(page.page, "filterComboBox");
    const struct {
        const char *search;
        int filter;
        int rows;
    } cases[] = {
        {"", 0, 6},
        {"", 1, 5},
        {"", 2, 2},
        {"", 3, 1},
        {"BOB", 0, 2},
        {"duplicate-uid", 0, 1},
        {"limits.conf", 0, 1},
        {"crew eve", 0, 2},
        {"bob", 3, 0},
    };
    for (const auto &oneCase : cases) {
        search->setText(text(oneCase.search));
        filter->setCurrentIndex(oneCase.filter);
        QCOMPARE(page.view->model()->rowCount(), oneCase.rows);
    }
    QCOMPARE(page.hint(), text("No problem matches."));
    QTest::mouseClick(part<QPushButton>(page.page, "clearButton"), Qt::LeftButton);
    QCOMPARE(page.view->model()->rowCount(), 6);
}

void ProblemsPageTest::copiesRows()
{
    breakMachine();
    Page page;
    page.check();
    page.select("same UID");
    const RowTable rows = page.page.list()->rowActions()->selectedRows();
    QCOMPARE(rows.toText(), text("error\tUser 'bob' has the same UID as user 'ada': 1000\tbob\t/etc/passwd:3"));
    QCOMPARE(rows.toCsv(),
             text("Severity,Problem,Account,Line\r\n"
                  "error,User 'bob' has the same UID as user 'ada': 1000,bob,/etc/passwd:3\r\n"));
    const QJsonObject object{
        {text("severity"), text("error")},
        {text("text"), text("User 'bob' has the same UID as user 'ada': 1000")},
        {text("account"), text("bob")},
        {text("place"), text("/etc/passwd:3")},
    };
    QCOMPARE(QJsonDocument::fromJson(rows.toJson()).array(), QJsonArray{object});
}

void ProblemsPageTest::tellsWhatIsNotChecked()
{
    QVERIFY(QFile::setPermissions(text("/etc/shadow"), {}));
    Page page;
    page.check();
    QVERIFY(page.message("uncheckedFiles").contains(text("'/etc/shadow' is not checked: Permission denied")));
    QCOMPARE(page.message("listError"), QString());
    QCOMPARE(page.hint(), text("No problems found."));
}

void ProblemsPageTest::tellsWhatCannotBeRead()
{
    Sandbox::remove(text("/etc/group"));
    Page page;
    page.check();
    QVERIFY(page.message("listError").contains(text("Cannot read '/etc/group': No such file or directory")));
    QCOMPARE(page.hint(), QString());
}

void ProblemsPageTest::tellsThatCheckHasFailed()
{
    Page page({text("/bin/false"), {}});
    page.check();
    QVERIFY(page.message("listError").contains(text("the program that checks it has failed")));
    QCOMPARE(page.hint(), QString());
}

void ProblemsPageTest::showsTextAsItIs()
{
    Sandbox::setAccounts(goodUsers, QByteArray(goodGroups) + "<b>\x1b[2J:x:52:\n");
    Sandbox::remove(text("/etc/gshadow"));
    Page page;
    page.check();
    page.select("<b>");
    QCOMPARE(part<QLabel>(page.page, "problemText")->textFormat(), Qt::PlainText);
    QVERIFY(page.label("problemText").contains(text("<b>")));
    QVERIFY(!page.label("problemText").contains(QChar(0x1b)));
    QVERIFY(page.label("problemLink").contains(text("&lt;b&gt;")));
}

void ProblemsPageTest::staysUsableWithManyProblems()
{
    constexpr int count = 10000;
    QByteArray users;
    for (int i = 0; i < count; ++i) {
        users += "user" + QByteArray::number(i) + ":x:" + QByteArray::number(2000 + i) + ":50::/nowhere:/bin/sh\n";
    }
    Sandbox::setAccounts(users, goodGroups);
    Page page;
    EventLoopDelay delay;
    page.check();
    // They are shown when they are sorted.
    QVERIFY(QTest::qWaitFor([&page] { return page.view->model()->rowCount() >= count; }, patience));
    const qint64 reading = delay.takeLongest().work;
    QVERIFY2(reading <= longestDelay, qPrintable(QString::number(reading)));
    qRegisterMetaType<QList<QPersistentModelIndex>>();
    qRegisterMetaType<QAbstractItemModel::LayoutChangeHint>();
    QSignalSpy sorted(page.view->model(), &QAbstractItemModel::layoutChanged);
    page.page.list()->view()->sortByColumn(1, Qt::AscendingOrder);
    QVERIFY(QTest::qWaitFor([&sorted] { return !sorted.isEmpty(); }, patience));
    part<QLineEdit>(page.page, "searchField")->setText(text("user4711"));
    QCOMPARE(shownRows(*page.view).constFirst().section(QLatin1Char('|'), 2, 2), text("user4711"));
    const qint64 sorting = delay.takeLongest().work;
    QVERIFY2(sorting <= longestDelay, qPrintable(QString::number(sorting)));
}

void ProblemsPageTest::checksAgainWhenFilesChange_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("users") << text("/etc/passwd") << QByteArray(goodUsers) + "\n";
    QTest::newRow("shadow") << text("/etc/shadow") << QByteArray("root:*:1::::::\nada:!:1::::::\n");
    QTest::newRow("limits") << limitsPath() << QByteArray("ghost soft core 0\n");
    QTest::newRow("drop-in") << dropInPath(text("a.conf")) << QByteArray("ghost soft core 0\n");
}

void ProblemsPageTest::checksAgainWhenFilesChange()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, content);

    Page page;
    page.check();
    QCOMPARE(page.view->model()->rowCount(), 0);
    Sandbox::write(path, content);
    QVERIFY(QTest::qWaitFor([&page] { return page.view->model()->rowCount() == 1; }, patience));
}

QTEST_MAIN(ProblemsPageTest)

#include "problemspagetest.moc"

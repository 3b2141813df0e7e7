/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitspage.h"
#include "accountstore.h"
#include "dialogparts.h"
#include "eventloopdelay.h"
#include "limitsfixtures.h"
#include "patience.h"
#include "texts.h"
#include "windowparts.h"

#include <KMessageWidget>

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

#include <memory>

namespace
{
const char rules[] = "# comment\n"
                     "* soft core 0\n"
                     "\n"
                     "@staff\t- memlock unlimited\n"
                     "<i>x</i> hard nproc 7\n"
                     "ada both data 1\n"
                     "* soft core 1\n";

QString line(int number)
{
    return text("/etc/security/limits.conf:%1").arg(number);
}

/** The page and its parts, after everything was read. */
struct Page {
    /** @param isModelTested whether the model is checked after each change, which takes long for many lines */
    explicit Page(bool isModelTested = true)
    {
        if (isModelTested) {
            tester = std::make_unique<QAbstractItemModelTester>(table->model());
        }
        page.resize(900, 600);
        page.show();
        read();
    }

    void read()
    {
        QSignalSpy ended(&store, &AccountStore::ended);
        store.read();
        if (!ended.wait(30000)) {
            qFatal("The accounts cannot be read");
        }
    }

    /** Waits until @p count lines are shown and the analysis of the users has ended. */
    bool isCounted(int count) const
    {
        return QTest::qWaitFor(
            [=] { return table->model()->rowCount() == count && label("lineDecides") != QStringLiteral("\u2026"); },
            patience);
    }

    QString label(const char *name) const
    {
        return shownText(*part<QLabel>(page, name));
    }

    /** The first columns of the rows. */
    QStringList lines() const
    {
        QStringList lines;
        const QStringList rows = shownRows(*table);
        for (const QString &row : rows) {
            lines.append(row.section(QLatin1Char('|'), 0, 0));
        }
        return lines;
    }

    void select(int row) const
    {
        table->setCurrentIndex(table->model()->index(row, 0));
    }

    AccountStore store;
    LimitsPage page{&store};
    QTreeView *table = part<QTreeView>(page, "linesTable");
    QComboBox *filter = part<QComboBox>(page, "lineFilter");
    std::unique_ptr<QAbstractItemModelTester> tester;
};
}

class LimitsPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listsLinesOfAllFiles();
    void hasRoomForPlacesOutOfSight();
    void showsLinesByFilter();
    void explainsSelectedLine();
    void namesManyAccounts();
    void explainsLineThatDoesNothing();
    void showsToolTipsAsPlainText();
    void reportsFileThatCannotBeRead();
    void readsAgain();
    void keepsCurrentLine();
    void keepsFilterAndLineWhenUsersChange();
    void holdsManyLines();
};

void LimitsPageTest::init()
{
    Sandbox::setNameService("files");
    Sandbox::setAccounts("root:x:0:0::/:\nada:x:1000:1000::/:\nbob:x:1001:50::/:\n",
                         "root:x:0:\nada:x:1000:\nstaff:x:50:\normel-admin:x:27:\n");
    clearLimits();
    Sandbox::write(limitsPath(), rules);
}

void LimitsPageTest::listsLinesOfAllFiles()
{
    Sandbox::write(dropInPath(text("later.conf")), "bob - nproc 9\nada -\n");
    Sandbox::write(dropInPath(text("old")), "* hard nproc 9\n");
    const Page page;
    QVERIFY(page.isCounted(8));
    QCOMPARE(
        shownRows(*page.table),
        QStringList({
            line(2)
                + text("|* soft core 0|never decides anything: overridden by /etc/security/limits.d/later.conf:2 "
                       "and other lines"),
            line(4)
                + text("|@staff\\t- memlock unlimited|PAM applies this; programs that read it through LimitsParser "
                       "do not see it: columns that are not separated by spaces"),
            line(5) + text("|<i>x</i> hard nproc 7|is for nobody: there is no user '<i>x</i>'"),
            line(6) + text("|ada both data 1|PAM ignores this line: the type 'both' is not soft, hard or -"),
            line(7) + text("|* soft core 1|All users: Maximum core file size."),
            text("/etc/security/limits.d/later.conf:1|bob - nproc 9|"
                 "User name: \"bob\": Maximum number of processes."),
            text("/etc/security/limits.d/later.conf:2|ada -|PAM applies this; programs that read it through "
                 "LimitsParser do not see it: an exemption from all limits"),
            text("/etc/security/limits.d/old:1|* hard nproc 9|"
                 "PAM does not read this file: its name does not end in .conf"),
        }));
}

void LimitsPageTest::hasRoomForPlacesOutOfSight()
{
    Sandbox::write(limitsPath(), QByteArray("* soft core 0\n").repeated(80));
    Sandbox::write(dropInPath(text("50-accounting.conf")), "* soft core 0\n");
    const Page page;
    QVERIFY(page.isCounted(81));
    const QModelIndex last = page.table->model()->index(80, 0);
    QVERIFY(page.table->columnWidth(0) >= page.table->itemDelegate(last)->sizeHint({}, last).width());
}

void LimitsPageTest::showsLinesByFilter()
{
    Sandbox::write(dropInPath(text("old")), "* hard nproc 9\n");
    const Page page;
    QVERIFY(page.isCounted(6));
    const QSignalSpy reset(page.table->model(), &QAbstractItemModel::modelReset);
    page.filter->setCurrentText(text("Lines that PAM applies"));
    QCOMPARE(page.lines(), QStringList({line(2), line(4), line(5), line(7)}));
    QCOMPARE(reset.size(), 1);
    page.filter->setCurrentText(text("Lines with problems"));
    QCOMPARE(page.lines(), QStringList({line(2), line(4), line(5), line(6), text("/etc/security/limits.d/old:1")}));
    page.filter->setCurrentText(text("All lines"));
    QCOMPARE(page.lines().size(), 6);
}

void LimitsPageTest::explainsSelectedLine()
{
    const Page page;
    QVERIFY(page.isCounted(5));
    QVERIFY(page.table->selectionModel()->isRowSelected(0, QModelIndex()));
    page.table->setFocus();
    QTest::keyClick(page.table, Qt::Key_Down);
    QCOMPARE(page.label("lineMeaning"), text("Group name: \"staff\": Maximum locked-in-memory address space."));
    QVERIFY(page.label("lineProblem").startsWith(text("PAM applies this; programs that read it")));
    QCOMPARE(page.label("lineDecides"), text("bob"));
    page.select(4);
    QCOMPARE(page.label("lineMeaning"), text("All users: Maximum core file size."));
    QCOMPARE(page.label("lineProblem"), QString());
    const auto *problem = part<QLabel>(page.page, "lineProblem");
    QVERIFY(!problem->isVisible() && !labelOf(*problem)->isVisible());
    QCOMPARE(page.label("lineDecides"), text("ada, bob"));
}

void LimitsPageTest::namesManyAccounts()
{
    QByteArray users;
    for (int i = 0; i < 20; ++i) {
        users += "u" + QByteArray::number(i) + ":x:" + QByteArray::number(2000 + i) + ":50::/:\n";
    }
    Sandbox::setAccounts(users, "staff:x:50:\normel-admin:x:27:\n");
    const Page page;
    QVERIFY(page.isCounted(5));
    page.select(4);
    QCOMPARE(page.label("lineDecides"), QStringLiteral("u0, u1, u2, u3, u4, u5, u6, u7, u8, u9, u10, u11 \u2026 (20)"));
}

void LimitsPageTest::explainsLineThatDoesNothing()
{
    const Page page;
    QVERIFY(page.isCounted(5));
    page.select(3);
    const auto *meaning = part<QLabel>(page.page, "lineMeaning");
    QVERIFY(!meaning->isVisible() && !labelOf(*meaning)->isVisible());
    QCOMPARE(page.label("lineProblem"), text("PAM ignores this line: the type 'both' is not soft, hard or -"));
    QVERIFY(part<QLabel>(page.page, "lineProblem")->isVisible());
    QCOMPARE(page.label("lineDecides"), text("nobody"));
}

void LimitsPageTest::showsToolTipsAsPlainText()
{
    const Page page;
    QVERIFY(page.isCounted(5));
    QCOMPARE(toolTips(*page.table, 2),
             QStringList({text("<qt>/etc/security/limits.conf:5</qt>"),
                          text("<qt>&lt;i&gt;x&lt;/i&gt; hard nproc 7</qt>"),
                          text("<qt>is for nobody: there is no user '&lt;i&gt;x&lt;/i&gt;'</qt>")}));
    page.select(2);
    QCOMPARE(part<QLabel>(page.page, "lineProblem")->textFormat(), Qt::PlainText);
}

void LimitsPageTest::reportsFileThatCannotBeRead()
{
    Sandbox::write(dropInPath(text("a.conf")), "* hard nproc 9\n");
    QFile::setPermissions(dropInPath(text("a.conf")), {});
    const Page page;
    QVERIFY(page.isCounted(5));
    const auto *message = part<KMessageWidget>(page.page, "limitsError");
    QVERIFY(message->isVisible());
    QCOMPARE(message->text(), text("<qt>Cannot read /etc/security/limits.d/a.conf: Permission denied</qt>"));
}

void LimitsPageTest::readsAgain()
{
    Page page;
    QVERIFY(page.isCounted(5));
    Sandbox::write(limitsPath(), "* hard nproc 9\n");
    page.read();
    QVERIFY(page.isCounted(1));
    QCOMPARE(page.lines(), QStringList(line(1)));
    QCOMPARE(page.label("lineDecides"), text("ada, bob"));
    QVERIFY(!part<KMessageWidget>(page.page, "limitsError")->isVisible());

    clearLimits();
    page.read();
    QVERIFY(page.isCounted(0));
    QCOMPARE(page.label("lineDecides"), QString());
}

void LimitsPageTest::keepsCurrentLine()
{
    Page page;
    QVERIFY(page.isCounted(5));
    page.select(3);
    Sandbox::write(limitsPath(), QByteArray(rules) + "* soft core 2\n");
    page.read();
    QVERIFY(page.isCounted(6));
    QVERIFY(page.table->selectionModel()->isRowSelected(3, QModelIndex()));
    QVERIFY(page.label("lineProblem").contains(text("'both'")));

    page.select(5); // a line that will be gone
    Sandbox::write(limitsPath(), rules);
    page.read();
    QVERIFY(page.isCounted(5));
    QVERIFY(page.table->selectionModel()->isRowSelected(0, QModelIndex()));
}

void LimitsPageTest::keepsFilterAndLineWhenUsersChange()
{
    Page page;
    QVERIFY(page.isCounted(5));
    page.filter->setCurrentText(text("Lines with problems"));
    QVERIFY(page.isCounted(4));
    page.select(2);
    Sandbox::setAccounts("x:x:1000:1000::/:\n<i>x</i>:x:1001:50::/:\n", "staff:x:50:\normel-admin:x:27:\n");
    page.read();
    QVERIFY(page.isCounted(3));
    QCOMPARE(page.lines(), QStringList({line(2), line(4), line(6)}));
}

void LimitsPageTest::holdsManyLines()
{
    constexpr int count = 100000;
    Sandbox::write(limitsPath(), QByteArray("* soft core 0\n").repeated(count));
    EventLoopDelay delay;
    const Page page(false);
    QVERIFY(page.isCounted(count));
    page.filter->setCurrentText(text("Lines with problems"));
    QCOMPARE(page.table->model()->rowCount(), count - 1);
#ifndef __SANITIZE_ADDRESS__ // which takes time of its own
    const qint64 work = delay.takeLongest().work;
    QVERIFY2(work <= 50, qPrintable(QString::number(work)));
#endif
}

QTEST_MAIN(LimitsPageTest)

#include "limitspagetest.moc"

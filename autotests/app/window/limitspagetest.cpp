/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitspage.h"
#include "accountstore.h"
#include "dialogparts.h"
#include "limitsfixtures.h"
#include "windowparts.h"

#include <KMessageWidget>

#include <QLabel>
#include <QTest>
#include <QTreeView>

namespace
{
const char rules[] = "* soft core 0\n"
                     "@staff - memlock unlimited\n"
                     "<i>x</i> hard nproc 7\n"
                     "ada both <b>y</b> 1\n"
                     "bob hard chroot /srv\n";

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/** The page with its parts at hand, after everything was read. */
struct Page {
    Page()
    {
        page.resize(900, 600);
        page.show();
        store.readLimits();
    }

    bool shows(const char *message) const
    {
        return part<KMessageWidget>(page, message)->isVisible();
    }

    AccountStore store;
    LimitsPage page{&store};
    QTreeView *rules = part<QTreeView>(page, "rulesTable");
    QTreeView *findings = part<QTreeView>(page, "findingsTable");
};
}

class LimitsPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listsRulesInOrder();
    void explainsCells();
    void takesUnknownWordsForPlainText();
    void explainsCurrentRule();
    void listsFindings();
    void tellsThatNothingIsOdd();
    void reportsFileThatCannotBeRead();
    void readsAnew();
};

void LimitsPageTest::init()
{
    clearLimits();
    Sandbox::write(limitsPath(), rules);
}

void LimitsPageTest::listsRulesInOrder()
{
    Sandbox::write(dropInPath(text("later.conf")), "* hard nproc 9\n");
    const Page page;
    QCOMPARE(shownRows(*page.rules),
             QStringList({
                 text("*|soft|core|0|0 KB"),
                 text("@staff|-|memlock|-1|-1 KB"),
                 text("<i>x</i>|hard|nproc|7|7"),
                 text("ada|both|<b>y</b>|1|1"),
                 text("bob|hard|chroot|/srv|/srv"),
                 text("*|hard|nproc|9|9"),
             }));
}

void LimitsPageTest::explainsCells()
{
    const Page page;
    const QString item = text("<qt>Maximum core file size.</qt>");
    QCOMPARE(toolTips(*page.rules, 0),
             QStringList({text("<qt>All users</qt>"),
                          text("This is the soft resource limit.<br>This type of limits is used by default and can be "
                               "changed by the user."),
                          item,
                          item,
                          item}));
    QCOMPARE(page.rules->model()->index(0, 1).data(Qt::AccessibleDescriptionRole).toString(),
             text("This is the soft resource limit.\nThis type of limits is used by default and can be "
                  "changed by the user."));
}

void LimitsPageTest::takesUnknownWordsForPlainText()
{
    const Page page;
    QCOMPARE(toolTips(*page.rules, 2).at(0), text("<qt>User name: &quot;&lt;i&gt;x&lt;/i&gt;&quot;</qt>"));
    QCOMPARE(toolTips(*page.rules, 3).mid(1, 2),
             QStringList({text("<qt>both</qt>"), text("<qt>&lt;b&gt;y&lt;/b&gt;</qt>")}));
}

void LimitsPageTest::explainsCurrentRule()
{
    Page page;
    QVERIFY(page.rules->selectionModel()->isRowSelected(0, QModelIndex()));
    QCOMPARE(fieldText(page.page, "Domain:"), text("<qt>All users</qt>"));
    page.rules->setFocus();
    QTest::keyClick(page.rules, Qt::Key_Down);
    QCOMPARE(fieldText(page.page, "Domain:"), text("<qt>Group name: &quot;staff&quot;</qt>"));
    QVERIFY(fieldText(page.page, "Type:").startsWith(text("Enforcing both soft and hard")));
    QCOMPARE(fieldText(page.page, "Item:"), text("<qt>Maximum locked-in-memory address space.</qt>"));

    clearLimits();
    page.store.readLimits();
    QCOMPARE(shownRows(*page.rules), QStringList());
    QCOMPARE(fieldText(page.page, "Domain:"), QString());
}

void LimitsPageTest::listsFindings()
{
    Sandbox::write(limitsPath(), "* soft core 0\nada\thard\tnproc\t5\n1:2 both core 1\n");
    const Page page;
    QCOMPARE(shownRows(*page.findings),
             QStringList({
                 text("/etc/security/limits.conf|2|ada\\thard\\tnproc\\t5|"
                      "tabs between columns, only spaces separate them"),
                 text("/etc/security/limits.conf|3|1:2 both core 1|"
                      "a numeric range in the domain applies to nobody, the type is none of soft, hard and -"),
             }));
    QCOMPARE(toolTips(*page.findings, 1),
             QStringList({text("<qt>/etc/security/limits.conf</qt>"),
                          QString(),
                          text("<qt>1:2 both core 1</qt>"),
                          text("<qt>a numeric range in the domain applies to nobody, "
                               "the type is none of soft, hard and -</qt>")}));
    QVERIFY(page.findings->isVisible() && labelOf(*page.findings)->isVisible());
    QVERIFY(!page.shows("noFindings"));
    QVERIFY(!page.shows("limitsError"));
}

void LimitsPageTest::tellsThatNothingIsOdd()
{
    Sandbox::write(limitsPath(), "* soft core 0\n");
    const Page page;
    QVERIFY(!page.findings->isVisible() && !labelOf(*page.findings)->isVisible());
    QVERIFY(page.shows("noFindings"));
    QCOMPARE(part<KMessageWidget>(page.page, "noFindings")->text(),
             text("<qt>Every line is taken as it is written.</qt>"));
}

void LimitsPageTest::reportsFileThatCannotBeRead()
{
    Sandbox::write(dropInPath(text("a.conf")), "* hard nproc 9\n");
    QFile::setPermissions(dropInPath(text("a.conf")), {});
    const Page page;
    LimitsParser limits;
    QString error;
    QVERIFY(!limits.readLimitsConf(error));
    QVERIFY(error.contains(dropInPath(text("a.conf"))));
    QVERIFY(page.shows("limitsError"));
    QCOMPARE(part<KMessageWidget>(page.page, "limitsError")->text(),
             QStringLiteral("<qt>%1</qt>").arg(error.toHtmlEscaped()));
    QCOMPARE(shownRows(*page.rules).size(), 5);
}

void LimitsPageTest::readsAnew()
{
    QFile::setPermissions(limitsPath(), {});
    Page page;
    QCOMPARE(shownRows(*page.rules), QStringList());
    QVERIFY(page.shows("limitsError"));
    QVERIFY(!page.shows("noFindings"));
    QFile::setPermissions(limitsPath(), QFile::ReadOwner | QFile::WriteOwner);
    page.store.readLimits();
    QCOMPARE(shownRows(*page.rules).size(), 5);
    QVERIFY(!page.shows("limitsError"));
}

QTEST_MAIN(LimitsPageTest)

#include "limitspagetest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "patience.h"
#include "shownuserspage.h"

#include <KMessageWidget>

#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

namespace
{
const char rules[] = "* soft core 0\n"
                     "@audio - memlock 64\n"
                     "bob hard nproc unlimited\n";
}

class UserLimitsTest : public QObject
{
    Q_OBJECT

public:
    static void initMain();

private Q_SLOTS:
    void init();
    void showsLimitsWithExplanations();
    void explainsSelectedLimit();
    void showsAllOfExplanation();
    void getsNoWiderWithNameOfFile();
    void tellsThatSessionHasNoLimits();
    void tellsWhichRuleApplies();
    void tellsThatNoLimitApplies();
    void tellsNothingWithoutUser();
    void tellsThatLimitsAreIncomplete();
};

void UserLimitsTest::initMain()
{
    qputenv("LC_ALL", "en_US.UTF-8");
}

void UserLimitsTest::init()
{
    Sandbox::setAccounts(usersFile, groupsFile);
    clearLimits();
}

void UserLimitsTest::showsLimitsWithExplanations()
{
    Sandbox::write(limitsPath(), rules);
    ShownUsersPage page;
    page.select("bob");
    QCOMPARE(shownRows(*page.limits),
             QStringList({
                 QStringLiteral("core|0|\u2013|* limits.conf:1|Maximum core file size."),
                 QStringLiteral("memlock|64|64|@audio limits.conf:2|Maximum locked-in-memory address space."),
                 QStringLiteral("nproc|\u2013|unlimited|bob limits.conf:3|Maximum number of processes."),
             }));
    const QString description = QStringLiteral("<qt>Maximum core file size.</qt>");
    const QString line = QStringLiteral("<qt>/etc/security/limits.conf:1  * soft core 0<br>    decides</qt>");
    QCOMPARE(toolTips(*page.limits, 0), QStringList({description, line, line, line, description}));

    page.select("lost");
    QCOMPARE(page.rules("lost"), QStringLiteral("core=0 \u2013 * limits.conf:1"));
}

void UserLimitsTest::explainsSelectedLimit()
{
    Sandbox::write(limitsPath(), "* soft nproc 9\n@audio - nproc 8\nbob hard nproc 7\n* - nproc 6\n* - as 5\n");
    ShownUsersPage page;
    page.select("bob");
    const auto *explanation = part<QLabel>(page.page, "limitExplanation");
    QVERIFY(!explanation->isVisible());
    page.limits->setCurrentIndex(page.limits->model()->index(1, 0));
    QVERIFY(explanation->isVisible());
    QCOMPARE(shownText(*explanation).split(QLatin1Char('\n')),
             QStringList({
                 QStringLiteral("/etc/security/limits.conf:1  * soft nproc 9"),
                 QStringLiteral("    a domain of higher rank decides: /etc/security/limits.conf:2"),
                 QStringLiteral("/etc/security/limits.conf:2  @audio - nproc 8"),
                 QStringLiteral("    soft: lowered to the hard limit: /etc/security/limits.conf:3"),
                 QStringLiteral("    hard: a domain of higher rank decides: /etc/security/limits.conf:3"),
                 QStringLiteral("/etc/security/limits.conf:3  bob hard nproc 7"),
                 QStringLiteral("    decides"),
                 QStringLiteral("/etc/security/limits.conf:4  * - nproc 6"),
                 QStringLiteral("    soft: a domain of higher rank decides: /etc/security/limits.conf:2"),
                 QStringLiteral("    hard: lost together with the soft limit: /etc/security/limits.conf:2"),
             }));
    page.select("ada");
    QVERIFY(!explanation->isVisible());
}

void UserLimitsTest::showsAllOfExplanation()
{
    QByteArray lines;
    for (int i = 0; i < 10; ++i) {
        lines += "* soft nproc " + QByteArray::number(100 + i) + '\n';
    }
    Sandbox::write(limitsPath(), lines);
    ShownUsersPage page;
    page.page.resize(640, 400);
    page.select("bob");
    page.limits->setCurrentIndex(page.limits->model()->index(0, 0));
    auto *explanation = part<QLabel>(page.page, "limitExplanation");
    QTRY_VERIFY_WITH_TIMEOUT(explanation->height() >= explanation->heightForWidth(explanation->width()), patience);
    // What does not fit can be scrolled to.
    auto *area = qobject_cast<QScrollArea *>(explanation->parentWidget()->parentWidget());
    QVERIFY(area);
    QTRY_VERIFY_WITH_TIMEOUT(area->verticalScrollBar()->maximum() > 0, patience);
    QCOMPARE(area->horizontalScrollBar()->maximum(), 0);
    QVERIFY(page.page.height() <= 400);

    page.page.resize(900, 1600);
    QTRY_COMPARE_WITH_TIMEOUT(area->verticalScrollBar()->maximum(), 0, patience);
    QTRY_COMPARE_WITH_TIMEOUT(area->height(), explanation->height(), patience);
}

void UserLimitsTest::getsNoWiderWithNameOfFile()
{
    const QString path = dropInPath(QStringLiteral("long_").repeated(20));
    Sandbox::write(path + QLatin1String(".conf"), "* soft nproc 9\n");
    ShownUsersPage page;
    page.select("bob");
    const int width = page.page.minimumSizeHint().width();
    page.limits->setCurrentIndex(page.limits->model()->index(0, 0));
    const auto *explanation = part<QLabel>(page.page, "limitExplanation");
    QVERIFY(shownText(*explanation).startsWith(path));
    QVERIFY(explanation->isVisible());
    QCoreApplication::processEvents(); // each layout tells the next one
    QCoreApplication::processEvents();
    QCOMPARE(page.page.minimumSizeHint().width(), width);
}

void UserLimitsTest::tellsThatSessionHasNoLimits()
{
    Sandbox::write(limitsPath(), "* - nproc 9\nbob -\nada - maxlogins 0\n");
    ShownUsersPage page;
    const auto *message = part<KMessageWidget>(page.page, "sessionFailure");
    page.select("bob");
    QVERIFY(message->isVisible());
    QCOMPARE(message->text(), QStringLiteral("<qt>No limits are set: bob /etc/security/limits.conf:2</qt>"));
    QCOMPARE(shownRows(*page.limits), QStringList());
    page.select("ada");
    QCOMPARE(message->text(),
             QStringLiteral("<qt>No session can be opened: /etc/security/limits.conf:3 allows no logins</qt>"));
    page.select("lost");
    QVERIFY(!message->isVisible());
}

void UserLimitsTest::tellsWhichRuleApplies()
{
    Sandbox::setAccounts(QByteArray(usersFile) + "toor:x:0:0::/:/bin/sh\n", groupsFile);
    Sandbox::write(limitsPath(),
                   "* - core 1\n"
                   "@audio - nproc 3\n"
                   "1000:2000 hard nproc 6\n"
                   "0:0 soft cpu 7\n"
                   "ada hard core 1\n");
    ShownUsersPage page;
    const QString place = QStringLiteral("limits.conf");
    QCOMPARE(page.rules("ada"),
             QStringLiteral("core=1 1 * %1:1, ada %1:5, nproc=3 6 @audio %1:2, 1000:2000 %1:3").arg(place));
    QCOMPARE(page.rules("toor"), QStringLiteral("cpu=7 \u2013 0:0 %1:4").arg(place));
}

void UserLimitsTest::tellsThatNoLimitApplies()
{
    Sandbox::write(limitsPath(), rules);
    ShownUsersPage page;
    page.select("root");
    QVERIFY(!page.limits->isVisible() && !labelOf(*page.limits)->isVisible());
    QVERIFY(part<QLabel>(page.page, "noLimits")->isVisible());
    page.select("ada");
    QVERIFY(page.limits->isVisible() && labelOf(*page.limits)->isVisible());
    QVERIFY(!part<QLabel>(page.page, "noLimits")->isVisible());
}

void UserLimitsTest::tellsNothingWithoutUser()
{
    ShownUsersPage page;
    page.select("root");
    const auto *none = part<QLabel>(page.page, "noLimits");
    QVERIFY(none->isVisible());
    page.search->setText(QStringLiteral("nobody has this name"));
    QTRY_VERIFY_WITH_TIMEOUT(!none->isVisible(), patience);
    page.search->clear();
    QTRY_VERIFY_WITH_TIMEOUT(none->isVisible(), patience);
}

void UserLimitsTest::tellsThatLimitsAreIncomplete()
{
    Sandbox::write(limitsPath(), rules);
    Sandbox::write(dropInPath(QStringLiteral("secret.conf")), "* hard nproc 1\n");
    QFile::setPermissions(dropInPath(QStringLiteral("secret.conf")), {});
    ShownUsersPage page;
    const auto *message = page.limits->parentWidget()->findChild<KMessageWidget *>();
    QVERIFY(message);
    QVERIFY(message->isVisible());
    QVERIFY2(message->text().contains(QLatin1String("/etc/security/limits.d/secret.conf")),
             qPrintable(message->text()));
    QCOMPARE(shownRows(*page.limits).size(), 2);

    Sandbox::remove(dropInPath(QStringLiteral("secret.conf")));
    page.reload();
    QVERIFY(!message->isVisible());
}

QTEST_MAIN(UserLimitsTest)

#include "userlimitstest.moc"

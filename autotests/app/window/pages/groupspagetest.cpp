/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "groupspage.h"
#include "accountfixtures.h"
#include "accountstore.h"
#include "details.h"
#include "dialogparts.h"
#include "icontheme.h"
#include "limitsfixtures.h"
#include "patience.h"
#include "recordmodel.h"
#include "recordview.h"
#include "sandbox.h"
#include "shownaccountpage.h"
#include "texts.h"
#include "windowparts.h"

#include <KMessageWidget>

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QTreeView>

namespace
{
const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                         "ada:x:1000:1000:Ada Byron:/home/ada:/bin/sh\n"
                         "bob:x:1001:50::/home/bob:/bin/sh\n"
                         "eve:x:1002:50::/home/eve:/bin/sh\n";

const char groupsFile[] = "root:x:0:\n"
                          "staff:x:50:ada,bob\n"
                          "ada:x:1000:\n"
                          "club:x:2000:ada,ghost\n";

const char rules[] = "* soft core 0\n"
                     "@staff - memlock 64\n"
                     "%staff - maxlogins 3\n"
                     "ada hard nproc 7\n";

struct Page : ShownAccountPage<GroupsPage> {
    QString names() const
    {
        return ShownAccountPage::names().join(QLatin1Char(' '));
    }

    QTreeView *members = part<QTreeView>(page, "membersView");
    QTreeView *limits = part<QTreeView>(page, "limitsTable");
};

}

/** The page of groups, where it differs from the page of users. */
class GroupsPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void isEmptyBeforeGroupsAreRead();
    void listsGroupsByName();
    void filtersByKind();
    void searchesInAllFields_data();
    void searchesInAllFields();
    void marksMembersThatWereFound();
    void tellsThatNothingMatches();
    void showsGroup();
    void tellsSystemGroupsBySign();
    void tellsMembersFromPrimaryMembers();
    void leadsToMembers();
    void countsMembers();
    void showsNewMembersWhenItIsShown();
    void makesRoomForMembersOfEachGroup();
    void showsLimitsOfGroup();
    void leavesOutRangesOfPrimaryGroups();
    void keepsCurrentGroupOnReload();
    void reportsFilesThatCannotBeRead();
    void worksWithoutGroups();
};

void GroupsPageTest::init()
{
    Sandbox::setAccounts(usersFile, groupsFile);
    clearLimits();
}

void GroupsPageTest::isEmptyBeforeGroupsAreRead()
{
    const IconTheme theme({text("group"), text("group-system")});
    AccountStore store;
    GroupsPage page(&store);
    page.show();
    QCOMPARE(part<QLabel>(page, "title")->text(), text("No group is selected"));
    QCOMPARE(page.list()->view()->model()->rowCount(), 0);
    QVERIFY(part<QLabel>(page, "picture")->pixmap(Qt::ReturnByValue).isNull());
}

void GroupsPageTest::listsGroupsByName()
{
    Page page;
    QCOMPARE(shownRows(*page.view),
             QStringList({
                 text("ada|1000|1|Ordinary group"),
                 text("club|2000|2|Ordinary group"),
                 text("root|0|1|System group"),
                 text("staff|50|3|System group"),
             }));
    QCOMPARE(page.title(), text("ada"));
}

void GroupsPageTest::filtersByKind()
{
    Page page;
    auto *filter = part<QComboBox>(page.page, "filterComboBox");
    const QStringList expected{
        text("All groups: ada club root staff"), text("Ordinary groups: ada club"), text("System groups: root staff")};
    QCOMPARE(filter->count(), expected.size());
    for (const QString &names : expected) {
        QCOMPARE(filter->currentText() + text(": ") + page.names(), names);
        QTest::keyClick(filter, Qt::Key_Down);
    }
}

void GroupsPageTest::searchesInAllFields_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QString>("names");

    QTest::newRow("name") << text("CLU") << text("club");
    QTest::newRow("gid") << text("2000") << text("club");
    QTest::newRow("member") << text("ghost") << text("club");
    QTest::newRow("primary member") << text("eve") << text("staff");
}

void GroupsPageTest::searchesInAllFields()
{
    QFETCH(QString, search);
    QFETCH(QString, names);

    Page page;
    QTest::keyClicks(part<QLineEdit>(page.page, "searchField"), search);
    QCOMPARE(page.names(), names);
    QCOMPARE(part<QLabel>(page.page, "count")->text(), text("1 of 4 groups"));
}

void GroupsPageTest::marksMembersThatWereFound()
{
    Page page;
    const auto &members = *qobject_cast<RecordView *>(page.members)->recordModel();
    auto *search = part<QLineEdit>(page.page, "searchField");
    search->setText(text("eve"));
    QCOMPARE(page.names(), text("staff"));
    QVERIFY(!members.marks().hitsIn(text("eve")).isEmpty());
    QVERIFY(members.marks().hitsIn(text("bob")).isEmpty());
    QCOMPARE(members.rowCount(), 3);
    search->clear();
    QVERIFY(members.marks().isEmpty());
}

void GroupsPageTest::tellsThatNothingMatches()
{
    Page page;
    QCOMPARE(part<QLabel>(page.page, "count")->text(), text("4 groups"));
    QTest::keyClicks(part<QLineEdit>(page.page, "searchField"), text("nothing"));
    QCOMPARE(part<QLabel>(page.page, "noMatch")->text(), text("No group matches."));
    QVERIFY(part<QLabel>(page.page, "noMatch")->isVisible());
}

void GroupsPageTest::showsGroup()
{
    const IconTheme theme({text("group"), text("group-system")});
    Page page;
    page.select("staff");
    QCOMPARE(page.title(), text("staff"));
    QVERIFY(!part<QLabel>(page.page, "picture")->pixmap(Qt::ReturnByValue).isNull());
    QCOMPARE(fieldText(page.page, "GID:"), text("50"));
    QCOMPARE(part<QLabel>(page.page, "remarks")->text(), text("System group: the GID is below 1000"));
    QTRY_VERIFY_WITH_TIMEOUT(!page.page.findChild<Details *>()->verticalScrollBar()->isVisible(), patience);
    page.select("club");
    QCOMPARE(fieldText(page.page, "GID:"), text("2000"));
    QCOMPARE(part<QLabel>(page.page, "remarks")->text(), QString());
}

void GroupsPageTest::tellsSystemGroupsBySign()
{
    const IconTheme theme({text("group-system")});
    Page page;
    const auto *picture = part<QLabel>(page.page, "picture");
    page.select("staff");
    QVERIFY(!picture->pixmap(Qt::ReturnByValue).isNull());
    page.select("club");
    QVERIFY(picture->pixmap(Qt::ReturnByValue).isNull());
}

void GroupsPageTest::tellsMembersFromPrimaryMembers()
{
    Page page;
    page.select("staff");
    QCOMPARE(shownRows(*page.members),
             QStringList({text("ada|Yes|No|Ada Byron|1000"), text("bob|Yes|Yes||1001"), text("eve|No|Yes||1002")}));
    page.select("club");
    QCOMPARE(shownRows(*page.members), QStringList({text("ada|Yes|No|Ada Byron|1000"), text("ghost|Yes|No||")}));
}

void GroupsPageTest::leadsToMembers()
{
    Page page;
    page.select("club");
    QStringList links;
    connect(
        &page.page, &AccountPage::followed, this, [&links](const AccountLink &link) { links.append(link.toUrl()); });
    clickText(*page.members, text("ghost"));
    QTest::keyClick(page.members, Qt::Key_Return);
    QCOMPARE(links, QStringList());
    QVERIFY(!page.members->actions().constFirst()->isEnabled());
    clickText(*page.members, text("ada"));
    QTest::keyClick(page.members, Qt::Key_Return);
    QCOMPARE(links, QStringList(text("user:ada")));
    QVERIFY(page.members->actions().constFirst()->isEnabled());
    page.members->actions().constFirst()->trigger();
    QCOMPARE(links.size(), 2);
}

void GroupsPageTest::countsMembers()
{
    Page page;
    const auto title = [&page](const char *name) {
        page.select(name);
        return labelOf(*page.members)->text();
    };
    QCOMPARE(title("staff"), text("3 &members"));
    QCOMPARE(title("ada"), text("1 &member"));
}

void GroupsPageTest::showsNewMembersWhenItIsShown()
{
    Page page;
    page.select("ada");
    page.page.hide();
    Sandbox::setAccounts(QByteArray(usersFile).replace("Ada Byron", "Ada King"), groupsFile);
    page.reload();
    page.page.show();
    QCOMPARE(shownRows(*page.members), QStringList(text("ada|No|Yes|Ada King|1000")));
}

void GroupsPageTest::makesRoomForMembersOfEachGroup()
{
    Sandbox::setAccounts(usersFile, "long:x:2000:member-with-a-rather-long-name\nshort:x:2001:ada\n");
    Page page;
    page.select("short");
    const int narrow = page.members->columnWidth(0);
    page.select("long");
    QVERIFY(page.members->columnWidth(0) > narrow);
}

void GroupsPageTest::showsLimitsOfGroup()
{
    Sandbox::write(limitsPath(), rules);
    Page page;
    page.select("staff");
    QCOMPARE(shownRows(*page.limits),
             QStringList({
                 QStringLiteral("core|0|\u2013|* limits.conf:1|Maximum core file size."),
                 text("maxlogins|3|3|%staff limits.conf:3|Maximum number of logins for this user."),
                 text("memlock|64|64|@staff limits.conf:2|Maximum locked-in-memory address space."),
             }));
    page.select("ada");
    QCOMPARE(shownRows(*page.limits),
             QStringList(QStringLiteral("core|0|\u2013|* limits.conf:1|Maximum core file size.")));
}

void GroupsPageTest::leavesOutRangesOfPrimaryGroups()
{
    Sandbox::write(limitsPath(), "* - nproc 3\n@0: - nproc 4\n@:50 - nproc 5\n");
    Page page;
    page.select("root");
    QCOMPARE(shownRows(*page.limits), QStringList(text("nproc|3|3|* limits.conf:1|Maximum number of processes.")));
    page.select("staff");
    QCOMPARE(shownRows(*page.limits), QStringList(text("nproc|5|5|@:50 limits.conf:3|Maximum number of processes.")));
}

void GroupsPageTest::keepsCurrentGroupOnReload()
{
    Page page;
    page.select("staff");
    Sandbox::setAccounts(usersFile, "aaa:x:1:\nstaff:x:50:ada\n");
    page.reload();
    QCOMPARE(page.title(), text("staff"));
    QCOMPARE(shownRows(*page.members).size(), 3);
    Sandbox::setAccounts(usersFile, "staff:x:51:ada\n");
    page.reload();
    QCOMPARE(fieldText(page.page, "GID:"), text("51"));
    QCOMPARE(shownRows(*page.members), QStringList(text("ada|Yes|No|Ada Byron|1000")));
}

void GroupsPageTest::reportsFilesThatCannotBeRead()
{
    QFile::setPermissions(groupPath(), {});
    Page page;
    const auto *message = part<KMessageWidget>(page.page, "listError");
    QVERIFY(message->isVisible());
    QCOMPARE(message->text(), text("<qt>Cannot read '/etc/group': Permission denied</qt>"));
    QCOMPARE(page.title(), text("No group is selected"));
    QFile::setPermissions(groupPath(), QFile::ReadOwner | QFile::WriteOwner);
}

void GroupsPageTest::worksWithoutGroups()
{
    Sandbox::setAccounts(usersFile, "");
    Page page;
    QCOMPARE(shownRows(*page.view), QStringList());
    QCOMPARE(shownRows(*page.members), QStringList());
    QCOMPARE(page.title(), text("No group is selected"));
}

QTEST_MAIN(GroupsPageTest)

#include "groupspagetest.moc"

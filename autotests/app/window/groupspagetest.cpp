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
#include "sandbox.h"
#include "windowparts.h"

#include <KMessageWidget>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QTreeView>

namespace
{
const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                         "ada:x:1000:1000::/home/ada:/bin/sh\n"
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

/** The page with its parts at hand, after everything was read. */
struct Page {
    Page()
    {
        page.resize(900, 600);
        page.show();
        reload();
    }

    void reload()
    {
        store.readLimits();
        store.readGroups();
    }

    void select(const char *name) const
    {
        clickText(*view, QString::fromLatin1(name));
    }

    QString title() const
    {
        return part<QLabel>(page, "title")->text();
    }

    AccountStore store;
    GroupsPage page{&store};
    QTreeView *view = part<QTreeView>(page, "accountsView");
    QTreeView *members = part<QTreeView>(page, "membersTable");
    QTreeView *limits = part<QTreeView>(page, "limitsTable");
};

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}
}

/** The page of groups, as far as it is not like the one of users. */
class GroupsPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void isEmptyBeforeGroupsAreRead();
    void listsGroupsByName();
    void filtersByKind();
    void filtersByName();
    void showsGroup();
    void tellsSystemGroupsBySign();
    void tellsHowUsersAreMembers();
    void countsMembers();
    void showsLimitsOfGroup();
    void tellsWhichRangeApplies();
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
    QVERIFY(!store.groups());
    QVERIFY(part<QLabel>(page, "picture")->pixmap(Qt::ReturnByValue).isNull());
}

void GroupsPageTest::listsGroupsByName()
{
    Page page;
    QCOMPARE(shownRows(*page.view),
             QStringList({text("ada|1000|No"), text("club|2000|No"), text("root|0|Yes"), text("staff|50|Yes")}));
    QCOMPARE(page.title(), text("ada"));
}

void GroupsPageTest::filtersByKind()
{
    Page page;
    auto *filter = part<QComboBox>(page.page, "filterComboBox");
    QCOMPARE(comboBoxEntries(*filter),
             QStringList({text("All groups int 0"), text("Ordinary groups int 1"), text("System groups int 2")}));
    QTest::keyClick(filter, Qt::Key_Down);
    QCOMPARE(shownRows(*page.view), QStringList({text("ada|1000|No"), text("club|2000|No")}));
    QTest::keyClick(filter, Qt::Key_Down);
    QCOMPARE(shownRows(*page.view), QStringList({text("root|0|Yes"), text("staff|50|Yes")}));
}

void GroupsPageTest::filtersByName()
{
    Page page;
    QTest::keyClicks(part<QLineEdit>(page.page, "filterLineEdit"), text("A"));
    QCOMPARE(shownRows(*page.view), QStringList({text("ada|1000|No"), text("staff|50|Yes")}));
}

void GroupsPageTest::showsGroup()
{
    const IconTheme theme({text("group"), text("group-system")});
    Page page;
    page.select("staff");
    QCOMPARE(page.title(), text("staff"));
    QVERIFY(!part<QLabel>(page.page, "picture")->pixmap(Qt::ReturnByValue).isNull());
    QCOMPARE(fieldText(page.page, "GID:"), text("50"));
    QVERIFY(part<QLabel>(page.page, "systemMark")->isVisible());
    QTRY_VERIFY(!page.page.findChild<Details *>()->verticalScrollBar()->isVisible());
    page.select("club");
    QCOMPARE(fieldText(page.page, "GID:"), text("2000"));
    QVERIFY(!part<QLabel>(page.page, "systemMark")->isVisible());
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

void GroupsPageTest::tellsHowUsersAreMembers()
{
    Page page;
    page.select("staff");
    QCOMPARE(shownRows(*page.members),
             QStringList({text("ada|Member"), text("bob|Primary group"), text("eve|Primary group")}));
    page.select("club");
    QCOMPARE(shownRows(*page.members), QStringList({text("ada|Member"), text("ghost|Member")}));
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

void GroupsPageTest::showsLimitsOfGroup()
{
    Sandbox::write(limitsPath(), rules);
    Page page;
    page.select("staff");
    QCOMPARE(shownRows(*page.limits),
             QStringList({
                 text("core|0|0 KB|*|Maximum core file size."),
                 text("maxlogins|3|3|%staff|Maximum number of logins for this user."),
                 text("memlock|64|64 KB|@staff|Maximum locked-in-memory address space."),
             }));
    page.select("ada");
    QCOMPARE(shownRows(*page.limits), QStringList(text("core|0|0 KB|*|Maximum core file size.")));
}

void GroupsPageTest::tellsWhichRangeApplies()
{
    Sandbox::write(limitsPath(), "* - nproc 3\n@0: - nproc 3\n//:// - nproc 3\n@//:// - nproc 3\n");
    Page page;
    page.select("root");
    QCOMPARE(shownRows(*page.limits), QStringList(text("nproc|3|3|@//://|Maximum number of processes.")));
    page.select("staff");
    QCOMPARE(shownRows(*page.limits), QStringList(text("nproc|3|3|*|Maximum number of processes.")));
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
    QCOMPARE(shownRows(*page.members), QStringList(text("ada|Member")));
}

void GroupsPageTest::reportsFilesThatCannotBeRead()
{
    QFile::setPermissions(groupPath(), {});
    Page page;
    const auto *message = page.view->parentWidget()->findChild<KMessageWidget *>();
    QVERIFY(message);
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

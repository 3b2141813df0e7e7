/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "userspage.h"

#include "accountfixtures.h"
#include "accountlist.h"
#include "accountstore.h"
#include "dialogparts.h"
#include "generatedaccounts.h"
#include "limitsfixtures.h"
#include "pageparts.h"
#include "sandbox.h"
#include "windowparts.h"

#include <UserListModel>

#include <KMessageWidget>
#include <KSqueezedTextLabel>

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

namespace
{
const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                         "ada:x:1000:1000:Ada \xc3\x96st,204,555-0142,555-0199,a,b:/home/ada:/bin/bash\n"
                         "bob:x:1001:50:<b>Bob</b> &amp; co:/home/bob:/bin/sh\n"
                         "lost:x:1002:4711::/home/lost:\n"
                         "nobody:x:65534:65534:nobody:/nonexistent:/usr/sbin/nologin\n";

const char groupsFile[] = "root:x:0:\n"
                          "ormel-admin:x:27:ada\n"
                          "audio:x:29:bob,ada\n"
                          "staff:x:50:\n"
                          "ada:x:1000:\n"
                          "nogroup:x:65534:\n";

const char rules[] = "* soft core 0\n"
                     "@audio - memlock 64\n"
                     "bob hard nproc unlimited\n";

/** The page with its parts at hand, after everything was read. */
struct Page {
    Page()
    {
        page.resize(900, 600);
        page.show();
        store.readLimits();
        store.readUsers();
    }

    void reload()
    {
        store.readLimits();
        store.readUsers();
    }

    void select(const char *name) const
    {
        clickText(*view, QString::fromLatin1(name));
    }

    QString title() const
    {
        return part<QLabel>(page, "title")->text();
    }

    QStringList names() const
    {
        QStringList names;
        const QStringList rows = shownRows(*view);
        for (const QString &row : rows) {
            names.append(row.section(QLatin1Char('|'), 0, 0));
        }
        return names;
    }

    /** The limits of a user: "item=value domain" for each. */
    QString rules(const char *user) const
    {
        select(user);
        QStringList rules;
        const QStringList rows = shownRows(*limits);
        for (const QString &row : rows) {
            const QStringList cells = row.split(QLatin1Char('|'));
            rules.append(cells.at(0) + QLatin1Char('=') + cells.at(1) + QLatin1Char(' ') + cells.at(3));
        }
        return rules.join(QLatin1String(", "));
    }

    AccountStore store;
    UsersPage page{&store};
    QTreeView *view = part<QTreeView>(page, "accountsView");
    QComboBox *filter = part<QComboBox>(page, "filterComboBox");
    QLineEdit *nameFilter = part<QLineEdit>(page, "filterLineEdit");
    QTreeView *limits = part<QTreeView>(page, "limitsTable");
};
}

class UsersPageTest : public QObject
{
    Q_OBJECT

public:
    static void initMain();

private Q_SLOTS:
    void init();
    void isEmptyBeforeAccountsAreRead();
    void listsUsersByName();
    void sortsAsTheLanguageDoes();
    void sortsByUidAsNumber();
    void filtersByKind();
    void filtersByName();
    void showsFieldsOfCurrentUser();
    void showsTextAsItIs();
    void givesWholeTextOfCutField();
    void showsDashesForWhatIsMissing();
    void marksAdministratorsAndSystemAccounts();
    void showsLimitsWithExplanations();
    void tellsWhichRuleApplies();
    void tellsWhichRangeApplies();
    void tellsThatNoLimitApplies();
    void tellsThatLimitsAreIncomplete();
    void followsKeyboard();
    void doesNotExpandRows();
    void keepsCurrentUserOnReload();
    void showsUserOfLastTimeInView();
    void choosesAnotherUserWhenCurrentOneIsGone();
    void showsNothingOfNewAccount();
    void reportsFilesThatCannotBeRead();
    void worksWithoutAccountsAndGroups();
    void nameFilterKeepsCurrentUser();
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
    QCOMPARE(part<QTreeView>(page, "accountsView")->model()->rowCount(), 0);
    QVERIFY(!store.users());
}

void UsersPageTest::listsUsersByName()
{
    Page page;
    QCOMPARE(shownRows(*page.view),
             QStringList({
                 QStringLiteral("ada|1000|No"),
                 QStringLiteral("bob|1001|No"),
                 QStringLiteral("lost|1002|No"),
                 QStringLiteral("nobody|65534|Yes"),
                 QStringLiteral("root|0|Yes"),
             }));
    QCOMPARE(page.title(), QStringLiteral("ada"));
}

void UsersPageTest::sortsAsTheLanguageDoes()
{
    Sandbox::setAccounts("bob:x:1001:50::/:/bin/sh\nAda:x:1000:50::/:/bin/sh\naaa:x:1002:50::/:/bin/sh\n", groupsFile);
    Page page;
    QCOMPARE(page.names().join(QLatin1Char(' ')), QStringLiteral("aaa Ada bob"));
}

void UsersPageTest::sortsByUidAsNumber()
{
    Page page;
    page.view->sortByColumn(1, Qt::AscendingOrder);
    QCOMPARE(page.names().join(QLatin1Char(' ')), QStringLiteral("root ada bob lost nobody"));
}

void UsersPageTest::filtersByKind()
{
    Page page;
    QCOMPARE(comboBoxEntries(*page.filter),
             QStringList({
                 QStringLiteral("All users int 0"),
                 QStringLiteral("Ordinary users int 1"),
                 QStringLiteral("System accounts int 2"),
                 QStringLiteral("Administrators int 3"),
             }));
    const QStringList expected{
        QStringLiteral("ada bob lost nobody root"),
        QStringLiteral("ada bob lost"),
        QStringLiteral("nobody root"),
        QStringLiteral("ada"),
    };
    for (const QString &names : expected) {
        QCOMPARE(page.names().join(QLatin1Char(' ')), names);
        QTest::keyClick(page.filter, Qt::Key_Down);
    }
}

void UsersPageTest::filtersByName()
{
    Page page;
    QTest::keyClicks(page.nameFilter, QStringLiteral("O"));
    QCOMPARE(page.names().join(QLatin1Char(' ')), QStringLiteral("bob lost nobody root"));
    QTest::keyClicks(page.nameFilter, QStringLiteral("st"));
    QCOMPARE(page.names().join(QLatin1Char(' ')), QStringLiteral("lost"));
    QCOMPARE(page.title(), QStringLiteral("lost"));
    QTest::keyClicks(page.nameFilter, QStringLiteral("."));
    QCOMPARE(page.names(), QStringList());
    QCOMPARE(page.title(), QStringLiteral("No user is selected"));
    page.nameFilter->clear();
    QCOMPARE(page.names().size(), 5);
    QCOMPARE(page.title(), QStringLiteral("lost"));
}

void UsersPageTest::nameFilterKeepsCurrentUser()
{
    Page page;
    page.select("nobody");
    QTest::keyClicks(page.nameFilter, QStringLiteral("o"));
    QCOMPARE(page.title(), QStringLiteral("nobody"));
    page.nameFilter->clear();
    QCOMPARE(page.title(), QStringLiteral("nobody"));
}

void UsersPageTest::showsFieldsOfCurrentUser()
{
    Page page;
    page.select("ada");
    QCOMPARE(page.title(), QStringLiteral("ada"));
    QCOMPARE(fieldText(page.page, "Full name:"), QStringLiteral(u"Ada \u00d6st"));
    QCOMPARE(fieldText(page.page, "Room:"), QStringLiteral("204"));
    QCOMPARE(fieldText(page.page, "Work phone:"), QStringLiteral("555-0142"));
    QCOMPARE(fieldText(page.page, "Home phone:"), QStringLiteral("555-0199"));
    QCOMPARE(fieldText(page.page, "Other:"), QStringLiteral("a,b"));
    QCOMPARE(fieldText(page.page, "Home directory:"), QStringLiteral("/home/ada"));
    QCOMPARE(fieldText(page.page, "Login shell:"), QStringLiteral("/bin/bash"));
    QCOMPARE(fieldText(page.page, "UID:"), QStringLiteral("1000"));
    QCOMPARE(fieldText(page.page, "GID:"), QStringLiteral("1000"));
    QCOMPARE(fieldText(page.page, "Primary group:"), QStringLiteral("ada"));
    QCOMPARE(fieldText(page.page, "All groups:"), QStringLiteral("ada, ormel-admin, audio"));
}

void UsersPageTest::showsTextAsItIs()
{
    Page page;
    page.select("bob");
    QCOMPARE(fieldText(page.page, "Full name:"), QStringLiteral("<b>Bob</b> &amp; co"));
    const QList<QLabel *> labels = page.page.findChildren<QLabel *>();
    int withName = 0;
    for (const QLabel *label : labels) {
        if (label->text().contains(QLatin1String("Bob"))) {
            QCOMPARE(label->textFormat(), Qt::PlainText);
            ++withName;
        }
    }
    QVERIFY(withName > 0);
}

void UsersPageTest::givesWholeTextOfCutField()
{
    const QString home = QLatin1String("/home") + QStringLiteral("/directory").repeated(40);
    Sandbox::setAccounts("ada:x:1000:50:Ada:" + home.toLatin1() + ":/bin/sh\n", groupsFile);
    Page page;
    QVERIFY(QTest::qWaitForWindowActive(&page.page));
    const auto labels = page.page.findChildren<KSqueezedTextLabel *>();
    const auto found = std::find_if(
        labels.begin(), labels.end(), [&home](const KSqueezedTextLabel *label) { return label->fullText() == home; });
    QVERIFY(found != labels.end());
    KSqueezedTextLabel *field = *found;
    QVERIFY(field->isSqueezed());
    QCOMPARE(QAccessible::queryAccessibleInterface(field)->text(QAccessible::Name), home);
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), home);
}

void UsersPageTest::showsDashesForWhatIsMissing()
{
    Page page;
    page.select("lost");
    const QString dash = QStringLiteral(u"\u2013");
    QCOMPARE(fieldText(page.page, "Full name:"), dash);
    QCOMPARE(fieldText(page.page, "Other:"), dash);
    QCOMPARE(fieldText(page.page, "Primary group:"), dash);
    QCOMPARE(fieldText(page.page, "GID:"), QStringLiteral("4711"));
    QCOMPARE(fieldText(page.page, "All groups:"), dash);
}

void UsersPageTest::marksAdministratorsAndSystemAccounts()
{
    Page page;
    const auto marks = [&page](const char *name) {
        page.select(name);
        return QStringLiteral("%1 %2")
            .arg(part<QLabel>(page.page, "administratorMark")->isVisible())
            .arg(part<QLabel>(page.page, "systemMark")->isVisible());
    };
    QCOMPARE(marks("ada"), QStringLiteral("1 0"));
    QCOMPARE(marks("bob"), QStringLiteral("0 0"));
    QCOMPARE(marks("root"), QStringLiteral("0 1"));
}

void UsersPageTest::showsLimitsWithExplanations()
{
    Sandbox::write(limitsPath(), rules);
    Page page;
    page.select("bob");
    QCOMPARE(shownRows(*page.limits),
             QStringList({
                 QStringLiteral("core|0|0 KB|*|Maximum core file size."),
                 QStringLiteral("memlock|64|64 KB|@audio|Maximum locked-in-memory address space."),
                 QStringLiteral("nproc|-1|-1|bob|Maximum number of processes."),
             }));
    const QString toolTip = QStringLiteral("<qt>Maximum core file size.</qt>");
    QCOMPARE(toolTips(*page.limits, 0),
             QStringList({toolTip, toolTip, toolTip, QStringLiteral("<qt>All users</qt>"), toolTip}));

    page.select("lost");
    QCOMPARE(shownRows(*page.limits), QStringList(QStringLiteral("core|0|0 KB|*|Maximum core file size.")));
}

void UsersPageTest::tellsWhichRuleApplies()
{
    Sandbox::setAccounts(QByteArray(usersFile) + "toor:x:0:0::/:/bin/sh\n", groupsFile);
    Sandbox::write(limitsPath(),
                   "* - core 1\n* - nproc 1\n* - maxlogins 1\n* - locks 1\n"
                   "%audio - maxlogins 2\n%audio - locks 2\n"
                   "@audio - nproc 3\n@ormel-admin - nproc 4\n"
                   "//:// - nproc 5\n1000:2000 - nproc 6\n@//:// - stack 7\n"
                   "ada hard core 1\n");
    Page page;
    QCOMPARE(page.rules("ada"), QStringLiteral("core=1 ada, locks=1 *, maxlogins=2 %audio, nproc=4 @ormel-admin"));
    QCOMPARE(page.rules("bob"), QStringLiteral("core=1 *, locks=1 *, maxlogins=2 %audio, nproc=3 @audio"));
    QCOMPARE(toolTips(*page.limits, 3).at(3), QStringLiteral("<qt>Group name: &quot;audio&quot;</qt>"));
    QCOMPARE(page.rules("lost"), QStringLiteral("core=1 *, locks=1 *, maxlogins=1 *, nproc=1 *"));
    QCOMPARE(page.rules("toor"), QStringLiteral("core=1 *, locks=1 *, maxlogins=1 *, nproc=5 //://, stack=7 @//://"));
}

void UsersPageTest::tellsWhichRangeApplies()
{
    Sandbox::setAccounts("root:x:0:0::/:/bin/sh\ntoor:x:0:0::/:/bin/sh\nada:x:1000:0::/:/bin/sh\n",
                         "root:x:0:\nwheel:x:10:toor\n");
    Sandbox::write(limitsPath(),
                   "1000:2000 - nproc 3\n@//:// - nproc 3\n//x:// - nproc 3\n//dd://d - nproc 3\n//:// - nproc 3\n"
                   "* - cpu 5\n@0: - cpu 5\n@//://x - cpu 5\n"
                   "//:// - data 7\n@wheel - data 7\n"
                   "* - core 1\n1000: - core 1\nroot - core 1\n//:// - core 1\n");
    Page page;
    QCOMPARE(page.rules("ada"), QStringLiteral("core=1 *, cpu=5 @//://x, nproc=3 @//://"));
    QCOMPARE(page.rules("root"), QStringLiteral("core=1 root"));
    QCOMPARE(page.rules("toor"), QStringLiteral("core=1 //://, cpu=5 @//://x, data=7 @wheel, nproc=3 //dd://d"));
}

void UsersPageTest::tellsThatNoLimitApplies()
{
    Sandbox::write(limitsPath(), rules);
    Page page;
    page.select("root");
    QVERIFY(!page.limits->isVisible() && !labelOf(*page.limits)->isVisible());
    QVERIFY(part<QLabel>(page.page, "noLimits")->isVisible());
    page.select("ada");
    QVERIFY(page.limits->isVisible() && labelOf(*page.limits)->isVisible());
    QVERIFY(!part<QLabel>(page.page, "noLimits")->isVisible());
}

void UsersPageTest::tellsThatLimitsAreIncomplete()
{
    Sandbox::write(limitsPath(), rules);
    Sandbox::write(dropInPath(QStringLiteral("secret.conf")), "* hard nproc 1\n");
    QFile::setPermissions(dropInPath(QStringLiteral("secret.conf")), {});
    Page page;
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

void UsersPageTest::followsKeyboard()
{
    Page page;
    page.view->setFocus();
    QTest::keyClick(page.view, Qt::Key_Down);
    QCOMPARE(page.title(), QStringLiteral("bob"));
    QTest::keyClick(page.view, Qt::Key_End);
    QCOMPARE(page.title(), QStringLiteral("root"));
    QTest::keyClick(page.view, Qt::Key_L);
    QCOMPARE(page.title(), QStringLiteral("lost"));
}

void UsersPageTest::doesNotExpandRows()
{
    Page page;
    QAbstractItemModelTester tester(page.view->model());
    QTest::keyClick(page.view, Qt::Key_Asterisk);
    QCOMPARE(shownRows(*page.view).size(), 5);
}

void UsersPageTest::keepsCurrentUserOnReload()
{
    Page page;
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
    settings.setValue(QStringLiteral("userList/current"), QStringLiteral("user99"));
    AccountStore store;
    UsersPage page(&store);
    page.findChild<AccountList *>()->restoreState(settings);
    store.readUsers();
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    QCOMPARE(part<QLabel>(page, "title")->text(), QStringLiteral("user99"));
    const auto *view = part<QTreeView>(page, "accountsView");
    const QRect current = view->visualRect(view->currentIndex());
    QVERIFY(current.isValid() && view->viewport()->rect().contains(current));
}

void UsersPageTest::choosesAnotherUserWhenCurrentOneIsGone()
{
    Page page;
    page.select("bob");
    Sandbox::setAccounts("carl:x:1005:50::/:/bin/sh\ndora:x:1006:50::/:/bin/sh\n", groupsFile);
    page.reload();
    QCOMPARE(page.title(), QStringLiteral("carl"));
}

void UsersPageTest::showsNothingOfNewAccount()
{
    Page page;
    page.store.users()->setNewUserName(QStringLiteral("zoe"));
    QCOMPARE(page.title(), QStringLiteral("ada"));
    page.select("zoe");
    QCOMPARE(page.title(), QStringLiteral("No user is selected"));
    QCOMPARE(fieldText(page.page, "UID:"), QStringLiteral(u"\u2013"));
}

void UsersPageTest::reportsFilesThatCannotBeRead()
{
    QFile::setPermissions(passwdPath(), {});
    Page page;
    const auto *message = page.view->parentWidget()->findChild<KMessageWidget *>();
    QVERIFY(message);
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
             QStringLiteral("<qt>Cannot read '/etc/passwd': No such file or directory<br>"
                            "Cannot read '/etc/group': No such file or directory</qt>"));

    Sandbox::setAccounts(usersFile, groupsFile);
    page.reload();
    QVERIFY(!message->isVisible());
}

void UsersPageTest::worksWithoutAccountsAndGroups()
{
    Sandbox::setAccounts("", "");
    Page page;
    QCOMPARE(page.names(), QStringList());
    QCOMPARE(page.title(), QStringLiteral("No user is selected"));
    Sandbox::setAccounts(usersFile, "");
    page.reload();
    QCOMPARE(page.title(), QStringLiteral("ada"));
    QCOMPARE(fieldText(page.page, "All groups:"), QStringLiteral(u"\u2013"));
}

QTEST_MAIN(UsersPageTest)

#include "userspagetest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "userspage.h"

#include "accountfixtures.h"
#include "accountstore.h"
#include "dialogparts.h"
#include "generatedaccounts.h"
#include "limitsfixtures.h"
#include "pageparts.h"
#include "recordview.h"
#include "sandbox.h"
#include "windowparts.h"

#include <KMessageWidget>
#include <KSqueezedTextLabel>

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>
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
        reload();
    }

    void reload()
    {
        if (!readAccounts(store)) {
            qFatal("The accounts were not read");
        }
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

    /** The limits of a user: "item=soft hard source" for each. */
    QString rules(const char *user) const
    {
        select(user);
        QStringList rules;
        const QStringList rows = shownRows(*limits);
        for (const QString &row : rows) {
            const QStringList cells = row.split(QLatin1Char('|'));
            rules.append(cells.at(0) + QLatin1Char('=') + cells.mid(1, 3).join(QLatin1Char(' ')));
        }
        return rules.join(QLatin1String(", "));
    }

    AccountStore store;
    UsersPage page{&store};
    RecordView *view = page.list()->view();
    QComboBox *filter = part<QComboBox>(page, "filterComboBox");
    QLineEdit *search = part<QLineEdit>(page, "searchField");
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
    void listsOrdinaryUsersFirst();
    void filtersByKind();
    void tellsWhyNobodyIsShown();
    void showsFieldsOfCurrentUser();
    void showsTextAsItIs();
    void leadsToGroups();
    void givesWholeTextOfCutField();
    void hidesEmptyGecosFields();
    void showsDashesForWhatIsMissing();
    void tellsWhatKindOfAccountItIs();
    void showsLimitsWithExplanations();
    void explainsSelectedLimit();
    void tellsThatSessionHasNoLimits();
    void tellsWhichRuleApplies();
    void tellsThatNoLimitApplies();
    void tellsThatLimitsAreIncomplete();
    void followsKeyboard();
    void keepsCurrentUserOnReload();
    void showsUserOfLastTimeInView();
    void reportsFilesThatCannotBeRead();
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
    Page page;
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
    Page page;
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

void UsersPageTest::tellsWhyNobodyIsShown()
{
    Sandbox::setAccounts(usersFile, "root:x:0:\n");
    Page page;
    const auto *reason = part<QLabel>(page.page, "noMatch");
    QTest::keyClicks(page.search, QStringLiteral("no such user"));
    QCOMPARE(reason->text(), QStringLiteral("No user matches."));
    QCOMPARE(part<QLabel>(page.page, "count")->text(), QStringLiteral("0 of 5 users"));
    QCOMPARE(page.title(), QStringLiteral("No user is selected"));
    page.search->clear();
    QTest::keyClick(page.filter, Qt::Key_End);
    QVERIFY(reason->isVisible());
    QCOMPARE(reason->text(), QStringLiteral("There is no group ormel-admin: nobody counts as an administrator here."));
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
    Sandbox::setAccounts("bob:x:1001:50:<b>Bob</b> &amp; co,<img src=x>:/<i>home</i>:/bin/<u>sh</u>\n",
                         "<s>staff</s>&lt;:x:50:\n\"><b>x</b>:x:51:bob\n");
    Page page;
    QCOMPARE(fieldText(page.page, "Full name:"), QStringLiteral("<b>Bob</b> &amp; co"));
    QCOMPARE(fieldText(page.page, "Room:"), QStringLiteral("<img src=x>"));
    const QList<QLabel *> labels = page.page.findChildren<QLabel *>();
    const QRegularExpression hostile(QStringLiteral("<(b|img|i|u)\\b"));
    int plain = 0;
    for (const QLabel *label : labels) {
        if (label->text().contains(hostile) && label->textFormat() != Qt::RichText) {
            QCOMPARE(label->textFormat(), Qt::PlainText);
            ++plain;
        }
    }
    QVERIFY(plain >= 4);
    // Links are rich text.
    QTextDocument groups;
    groups.setHtml(part<QLabel>(page.page, "groups")->text());
    QCOMPARE(groups.toPlainText(), QStringLiteral("<s>staff</s>&lt;, \"><b>x</b>"));
}

void UsersPageTest::leadsToGroups()
{
    Sandbox::setAccounts("bob:x:1001:50::/:/bin/sh\n", "a b<%41>:x:50:\nclub:x:51:bob\n");
    Page page;
    QStringList links;
    connect(&page.page, &AccountPage::followed, this, [&links](const AccountLink &link) {
        links.append(QString::number(int(link.kind)) + link.name);
    });
    for (const char *field : {"primaryGroup", "groups"}) {
        auto *label = part<QLabel>(page.page, field);
        QVERIFY(label->textInteractionFlags() & Qt::LinksAccessibleByKeyboard);
        label->setFocus();
        QTest::keyClick(label, Qt::Key_Tab);
        QTest::keyClick(label, Qt::Key_Return);
    }
    const QString first = QString::number(int(AccountLink::Kind::Group)) + QStringLiteral("a b<%41>");
    QCOMPARE(links, QStringList({first, first}));
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

void UsersPageTest::hidesEmptyGecosFields()
{
    Page page;
    const QStringList titles{QStringLiteral("Full name:"),
                             QStringLiteral("Room:"),
                             QStringLiteral("Work phone:"),
                             QStringLiteral("Home phone:"),
                             QStringLiteral("Other:")};
    const auto visible = [&](const char *user) {
        page.select(user);
        QStringList found;
        const QList<QLabel *> labels = page.page.findChildren<QLabel *>();
        for (const QLabel *label : labels) {
            if (label->isVisible() && titles.contains(label->text())) {
                found.append(label->text());
            }
        }
        return found;
    };
    QCOMPARE(visible("ada"), titles);
    QCOMPARE(visible("bob"), titles.mid(0, 1));
    QCOMPARE(visible("lost"), QStringList());
}

void UsersPageTest::showsDashesForWhatIsMissing()
{
    Page page;
    page.select("lost");
    const QString dash = QStringLiteral(u"\u2013");
    QCOMPARE(fieldText(page.page, "Login shell:"), dash);
    QCOMPARE(fieldText(page.page, "Primary group:"), dash);
    QCOMPARE(fieldText(page.page, "GID:"), QStringLiteral("4711"));
    QCOMPARE(fieldText(page.page, "All groups:"), dash);
}

void UsersPageTest::tellsWhatKindOfAccountItIs()
{
    Page page;
    const auto remarks = [&page](const char *name) {
        page.select(name);
        return part<QLabel>(page.page, "remarks")->text();
    };
    QCOMPARE(remarks("ada"), QStringLiteral("Administrator: a member of the group ormel-admin"));
    QCOMPARE(remarks("bob"), QString());
    QCOMPARE(remarks("root"), QStringLiteral("System account: the UID is below 1000"));
    QCOMPARE(remarks("nobody"), QStringLiteral("System account: the UID 65534 belongs to nobody"));
}

void UsersPageTest::showsLimitsWithExplanations()
{
    Sandbox::write(limitsPath(), rules);
    Page page;
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

void UsersPageTest::explainsSelectedLimit()
{
    Sandbox::write(limitsPath(), "* soft nproc 9\n@audio - nproc 8\nbob hard nproc 7\n* - nproc 6\n* - as 5\n");
    Page page;
    page.select("bob");
    const auto *explanation = part<QLabel>(page.page, "limitExplanation");
    QVERIFY(!explanation->isVisible());
    page.limits->setCurrentIndex(page.limits->model()->index(1, 0));
    QVERIFY(explanation->isVisible());
    QCOMPARE(explanation->text().split(QLatin1Char('\n')),
             QStringList({
                 QStringLiteral("/etc/security/limits.conf:1  * soft nproc 9"),
                 QStringLiteral("    a domain of higher rank decides: /etc/security/limits.conf:2"),
                 QStringLiteral("/etc/security/limits.conf:2  @audio - nproc 8"),
                 QStringLiteral("    lowered to the hard limit: /etc/security/limits.conf:3"),
                 QStringLiteral("    a domain of higher rank decides: /etc/security/limits.conf:3"),
                 QStringLiteral("/etc/security/limits.conf:3  bob hard nproc 7"),
                 QStringLiteral("    decides"),
                 QStringLiteral("/etc/security/limits.conf:4  * - nproc 6"),
                 QStringLiteral("    a domain of higher rank decides: /etc/security/limits.conf:2"),
                 QStringLiteral("    lost together with the soft limit: /etc/security/limits.conf:2"),
             }));
    page.select("ada");
    QVERIFY(!explanation->isVisible());
}

void UsersPageTest::tellsThatSessionHasNoLimits()
{
    Sandbox::write(limitsPath(), "* - nproc 9\nbob -\nada - maxlogins 0\n");
    Page page;
    const auto *message = part<KMessageWidget>(page.page, "sessionFailure");
    page.select("bob");
    QVERIFY(message->isVisible());
    QCOMPARE(message->text(), QStringLiteral("<qt>No limits are set: bob /etc/security/limits.conf:2</qt>"));
    QCOMPARE(shownRows(*page.limits), QStringList());
    page.select("ada");
    QCOMPARE(message->text(),
             QStringLiteral("<qt>No session can be opened: /etc/security/limits.conf:3 allows no login</qt>"));
    page.select("lost");
    QVERIFY(!message->isVisible());
}

void UsersPageTest::tellsWhichRuleApplies()
{
    Sandbox::setAccounts(QByteArray(usersFile) + "toor:x:0:0::/:/bin/sh\n", groupsFile);
    Sandbox::write(limitsPath(),
                   "* - core 1\n"
                   "@audio - nproc 3\n"
                   "1000:2000 hard nproc 6\n"
                   "0:0 soft cpu 7\n"
                   "ada hard core 1\n");
    Page page;
    const QString place = QStringLiteral("limits.conf");
    QCOMPARE(page.rules("ada"),
             QStringLiteral("core=1 1 * %1:1, ada %1:5, nproc=3 6 @audio %1:2, 1000:2000 %1:3").arg(place));
    QCOMPARE(page.rules("toor"), QStringLiteral("cpu=7 \u2013 0:0 %1:4").arg(place));
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
    settings.setValue(QStringLiteral("userListView/current"), QStringLiteral("user99"));
    AccountStore store;
    UsersPage page(&store);
    page.list()->restoreState(settings);
    QVERIFY(readAccounts(store));
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    QCOMPARE(part<QLabel>(page, "title")->text(), QStringLiteral("user99"));
    const RecordView *view = page.list()->view();
    const QRect current = view->visualRect(view->currentIndex());
    QVERIFY(current.isValid() && view->viewport()->rect().contains(current));
}

void UsersPageTest::reportsFilesThatCannotBeRead()
{
    QFile::setPermissions(passwdPath(), {});
    Page page;
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

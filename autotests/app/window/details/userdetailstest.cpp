/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "shownuserspage.h"

#include <KSqueezedTextLabel>

#include <QAccessible>
#include <QClipboard>
#include <QRegularExpression>
#include <QTest>
#include <QTextDocument>

class UserDetailsTest : public QObject
{
    Q_OBJECT

public:
    static void initMain();

private Q_SLOTS:
    void init();
    void showsFieldsOfCurrentUser();
    void emphasizesName();
    void showsTextAsItIs();
    void leadsToGroups();
    void givesWholeTextOfCutField();
    void hidesEmptyGecosFields();
    void showsDashesForWhatIsMissing();
    void tellsWhatKindOfAccountItIs();
};

void UserDetailsTest::initMain()
{
    qputenv("LC_ALL", "en_US.UTF-8");
}

void UserDetailsTest::init()
{
    Sandbox::setAccounts(usersFile, groupsFile);
    clearLimits();
}

void UserDetailsTest::showsFieldsOfCurrentUser()
{
    ShownUsersPage page;
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

void UserDetailsTest::emphasizesName()
{
    const ShownUsersPage page;
    const QFont font = part<QLabel>(page.page, "title")->font();
    QVERIFY(font.bold());
    QVERIFY(font.pointSizeF() > page.page.font().pointSizeF());
}

void UserDetailsTest::showsTextAsItIs()
{
    Sandbox::setAccounts("bob:x:1001:50:<b>Bob</b> &amp; co,<img src=x>:/<i>home</i>:/bin/<u>sh</u>\n",
                         "<s>staff</s>&lt;:x:50:\n\"><b>x</b>:x:51:bob\n");
    ShownUsersPage page;
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

void UserDetailsTest::leadsToGroups()
{
    Sandbox::setAccounts("bob:x:1001:50::/:/bin/sh\n", "a b<%41>:x:50:\nclub:x:51:bob\n");
    ShownUsersPage page;
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

void UserDetailsTest::givesWholeTextOfCutField()
{
    const QString home = QLatin1String("/home") + QStringLiteral("/directory").repeated(40);
    Sandbox::setAccounts("ada:x:1000:50:Ada:" + home.toLatin1() + ":/bin/sh\n", groupsFile);
    ShownUsersPage page;
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

void UserDetailsTest::hidesEmptyGecosFields()
{
    ShownUsersPage page;
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

void UserDetailsTest::showsDashesForWhatIsMissing()
{
    ShownUsersPage page;
    page.select("lost");
    const QString dash = QStringLiteral(u"\u2013");
    QCOMPARE(fieldText(page.page, "Login shell:"), dash);
    QCOMPARE(fieldText(page.page, "Primary group:"), dash);
    QCOMPARE(fieldText(page.page, "GID:"), QStringLiteral("4711"));
    QCOMPARE(fieldText(page.page, "All groups:"), dash);
}

void UserDetailsTest::tellsWhatKindOfAccountItIs()
{
    ShownUsersPage page;
    const auto remarks = [&page](const char *name) {
        page.select(name);
        return part<QLabel>(page.page, "remarks")->text();
    };
    QCOMPARE(remarks("ada"), QStringLiteral("Administrator: a member of the group ormel-admin"));
    QCOMPARE(remarks("bob"), QString());
    QCOMPARE(remarks("root"), QStringLiteral("System account: the UID is below 1000"));
    QCOMPARE(remarks("nobody"), QStringLiteral("System account: the UID 65534 belongs to nobody"));
}

QTEST_MAIN(UserDetailsTest)

#include "userdetailstest.moc"

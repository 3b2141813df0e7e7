/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "describe.h"
#include "limitsfixtures.h"
#include "texts.h"

#include <QTest>

namespace
{
// The order of a user's groups: first the primary group, then those of the group file.
const char usersFile[] = "root:x:0:0::/root:/bin/sh\n"
                         "toor:x:0:0::/root:/bin/sh\n"
                         "user1:x:1001:1001::/:/bin/sh\n"
                         "user2:x:1002:100::/:/bin/sh\n"
                         "user3:x:1003:29::/:/bin/sh\n"
                         "daemon:x:1:0::/:/bin/sh\n"
                         "lost:x:1004:4242::/:/bin/sh\n";

const char groupsFile[] = "root:x:0:\n"
                          "ormel-admin:x:27:\n"
                          "user1:x:1001:\n"
                          "users:x:100:\n"
                          "audio:x:29:user1,user2\n"
                          "staff:x:50:user2\n"
                          "wheel:x:10:user1\n"
                          "null:x:0:user3\n";

UserInfo userNamed(const char *name)
{
    return UserInfo::getUser(QString::fromLatin1(name));
}

GroupInfo groupNamed(const char *name)
{
    return GroupInfo::getGroup(QString::fromLatin1(name));
}

void addCaseColumns()
{
    QTest::addColumn<QByteArray>("rules");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("value");
}

void addCase(const char *title, const QByteArray &rules, const char *name, const char *item, const char *value)
{
    QTest::addRow("%s: %s", title, name) << rules << text(name) << text(item) << text(value);
}

/** Compares the item that the rules of the current row give the user or group that @p find finds. */
template<typename Find>
void compareItem(const Find &find)
{
    QFETCH(QByteArray, rules);
    QFETCH(QString, name);
    QFETCH(QString, item);
    QFETCH(QString, value);

    const LimitsParser limits = limitsOf(rules);
    const QVariant actual = limits.getItem(find(name), item);
    QCOMPARE(describe(actual), value);
    QCOMPARE(actual.isValid(), value != QLatin1String("null"));
}
}

class LimitsLookupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void findsField_data();
    void findsField();
    void findsNothingBeforeReading();
    void findsPathAsString();
    void looksUpUser_data();
    void looksUpUser();
    void looksUpGroup_data();
    void looksUpGroup();
    void takesEmptyRecords();
    void explainsDomain_data();
    void explainsDomain();
};

void LimitsLookupTest::init()
{
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts(usersFile, groupsFile);
    QCOMPARE(userNamed("user1").groupNames().join(QLatin1Char(' ')), QStringLiteral("user1 audio wheel"));
}

void LimitsLookupTest::findsField_data()
{
    QTest::addColumn<QString>("domain");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("value");

    const auto addRow = [](const char *domain, const char *item, const char *value) {
        QTest::addRow("'%s' '%s'", domain, item) << text(domain) << text(item) << text(value);
    };
    addRow("*", "nproc", "int 100");
    addRow("*", "core", "int 0");
    addRow("Alice", "nproc", "int 2");
    addRow("alice", "nproc", "int 1");
    addRow("alice", "Nproc", "int 3");
    addRow("@alice", "nproc", "int 4");
    addRow("alice", "bogus", "int 5");
    addRow("//://", "nproc", "int 6");
    addRow("alice", "core", "null");
    addRow("ALICE", "nproc", "null");
    addRow("alic", "nproc", "null");
    addRow("", "nproc", "null");
    addRow("alice", "", "null");
    addRow("bob", "nproc", "null");
    addRow("alice", "soft", "null");
}

void LimitsLookupTest::findsField()
{
    QFETCH(QString, domain);
    QFETCH(QString, item);
    QFETCH(QString, value);

    const LimitsParser limits = limitsOf("* soft nproc 100\n"
                                         "* hard nproc 200\n"
                                         "* soft core 0\n"
                                         "alice hard nproc 1\n"
                                         "Alice hard nproc 2\n"
                                         "alice hard Nproc 3\n"
                                         "@alice hard nproc 4\n"
                                         "alice hard bogus 5\n"
                                         "//:// hard nproc 6\n");
    QCOMPARE(describe(limits.findField(domain, item)), value);
    QCOMPARE(limits.findField(domain, item).isValid(), value != QLatin1String("null"));
}

void LimitsLookupTest::findsNothingBeforeReading()
{
    limitsOf("* soft core 1\nuser1 soft core 2\n@user1 soft core 3\n");
    const LimitsParser limits;
    const QString core = QStringLiteral("core");
    QVERIFY(!limits.findField(QStringLiteral("*"), core).isValid());
    QVERIFY(!limits.getItem(userNamed("user1"), core).isValid());
    QVERIFY(!limits.getItem(groupNamed("user1"), core).isValid());
}

void LimitsLookupTest::findsPathAsString()
{
    const LimitsParser limits = limitsOf("user1 - chroot /srv/jail\n* - chroot /srv\n@audio - chroot 5\n");
    const QString chroot = QStringLiteral("chroot");
    QCOMPARE(limits.getItem(userNamed("user1"), chroot), QVariant(QStringLiteral("/srv/jail")));
    QCOMPARE(limits.getItem(groupNamed("staff"), chroot), QVariant(QStringLiteral("/srv")));
    QCOMPARE(limits.getItem(groupNamed("audio"), chroot), QVariant(5));
}

void LimitsLookupTest::looksUpUser_data()
{
    addCaseColumns();
    const char named[] = "user1 hard nofile 100\n* hard nofile 50\n";
    addCase("name before everybody", named, "user1", "nofile", "int 100");
    addCase("everybody", named, "user2", "nofile", "int 50");
    addCase("order of the file does not matter",
            "* - nofile 1\n@audio - nofile 2\nuser1 - nofile 3\n",
            "user1",
            "nofile",
            "int 3");
    addCase("absent item", named, "user1", "core", "null");
    addCase("nobody", "user2 - nofile 1\n@staff - nofile 2\n", "user1", "nofile", "null");
    addCase("first of two types", "* soft core 0\n* hard core 100\n", "user1", "core", "int 0");
    addCase("zero is a value", "user1 - core 0\n* - core 5\n", "user1", "core", "int 0");

    addCase("no rule for root", "* hard nofile 50\n", "root", "nofile", "null");
    addCase("rule for root", "* hard nofile 50\nroot hard nofile 70\n", "root", "nofile", "int 70");
    const char forRootsGroups[] = "@root - maxlogins 1\n%root - maxlogins 2\n//:// - maxlogins 3\n"
                                  "@//:// - maxlogins 4\n* - maxlogins 5\n";
    addCase("nothing else for root", forRootsGroups, "root", "maxlogins", "null");
    addCase("another name of the superuser", forRootsGroups, "toor", "maxlogins", "int 1");

    const char grouped[] = "@wheel - nproc 10\n@audio - nproc 20\n* - nproc 30\n";
    addCase("order of the groups", grouped, "user1", "nproc", "int 20");
    addCase("primary group first", "@audio - nproc 1\n@user1 - nproc 2\n", "user1", "nproc", "int 2");
    addCase("last group", "@wheel - nproc 10\n* - nproc 30\n", "user1", "nproc", "int 10");
    addCase("no member", "@wheel - nproc 10\n* - nproc 30\n", "user2", "nproc", "int 30");
    addCase("name of a group without sign", "audio - nproc 10\n", "user1", "nproc", "null");
    addCase("first rule of the group", "@audio soft nproc 1\n@audio hard nproc 2\n", "user1", "nproc", "int 1");

    const char staff[] = "%staff - maxlogins 2\n%staff - maxsyslogins 3\n%staff - nproc 4\n";
    addCase("logins of the group", staff, "user2", "maxlogins", "int 2");
    addCase("all logins of the group", staff, "user2", "maxsyslogins", "null");
    addCase("processes of the group", staff, "user2", "nproc", "null");
    addCase("logins of another group", staff, "user1", "maxlogins", "null");
    addCase("each member before all together",
            "%user1 - maxlogins 1\n@wheel - maxlogins 2\n",
            "user1",
            "maxlogins",
            "int 2");
    addCase("order of the groups for logins",
            "%wheel - maxlogins 1\n%audio - maxlogins 2\n* - maxlogins 3\n",
            "user1",
            "maxlogins",
            "int 2");
    addCase("all together before ids",
            "//:// - maxlogins 1\n@//:// - maxlogins 2\n%root - maxlogins 3\n",
            "toor",
            "maxlogins",
            "int 3");
    addCase("sign alone", "@ - nproc 1\n% - maxlogins 2\n", "user1", "nproc", "null");

    addCase("plain user ids", "1001:1001 - nproc 1\n1000:2000 hard nproc 30\n", "user1", "nproc", "null");
    addCase("plain user id", ":1001 - nproc 1\n", "user1", "nproc", "null");
    addCase("plain user ids upwards", "1000: - nproc 1\n0: - nproc 2\n", "user1", "nproc", "null");
    addCase("plain group ids", "@100:2000 - nproc 1\n@1001: - nproc 2\n@:1001 - nproc 3\n", "user1", "nproc", "null");
    addCase("everybody after plain ids", "1000:2000 - nproc 1\n* - nproc 2\n", "user1", "nproc", "int 2");

    const char slashes[] = "* - nproc 1\n@//:// - nproc 2\n//:// - nproc 3\n//d://dd - nproc 4\n";
    addCase("user ids before group ids", slashes, "toor", "nproc", "int 3");
    addCase("group ids by primary group", slashes, "daemon", "nproc", "int 2");
    addCase("group ids not by other groups", slashes, "user3", "nproc", "int 1");
    addCase("no id but 0", slashes, "user1", "nproc", "int 1");
    addCase("open start of a domain", "//dd://ddx:5 - nproc 1\n", "toor", "nproc", "int 1");
    addCase("no open end of user ids", "//: - nproc 1\n@//: - nproc 2\n", "toor", "nproc", "null");
    addCase("no single id", "://  - nproc 1\n@:// - nproc 2\n", "toor", "nproc", "null");
    addCase("user ids of another item", "//:// - core 1\n", "toor", "nproc", "null");
    addCase("first of the user ids", "//d:// - nproc 1\n//:// - nproc 2\n", "toor", "nproc", "int 1");
    addCase("groups before ids", "//:// - nproc 1\n@root - nproc 2\n", "toor", "nproc", "int 2");
    addCase("group without entry", "@//:// - nproc 1\n* - nproc 2\n", "lost", "nproc", "int 2");
}

void LimitsLookupTest::looksUpUser()
{
    compareItem([](const QString &name) { return UserInfo::getUser(name); });
}

void LimitsLookupTest::looksUpGroup_data()
{
    addCaseColumns();
    const char named[] = "* - nofile 1\n@audio - nofile 2\naudio - nofile 3\n%audio - nofile 4\n";
    addCase("name", named, "audio", "nofile", "int 2");
    addCase("everybody", named, "staff", "nofile", "int 1");
    addCase("absent item", named, "audio", "core", "null");
    addCase("name without sign", "audio - nofile 3\n", "audio", "nofile", "null");
    addCase("members do not matter", "user1 - nofile 1\n@user1 - nofile 2\n", "audio", "nofile", "null");
    addCase("first of two types", "@audio soft core 1\n@audio hard core 2\n", "audio", "core", "int 1");

    const char staff[] = "* - maxlogins 1\n%staff - maxlogins 2\n* - maxsyslogins 3\n%staff - maxsyslogins 4\n";
    addCase("logins", staff, "staff", "maxlogins", "int 2");
    addCase("all logins", staff, "staff", "maxsyslogins", "int 3");
    addCase("logins of another group", staff, "audio", "maxlogins", "int 1");
    addCase("each member before all together",
            "%staff - maxlogins 1\n@staff - maxlogins 2\n",
            "staff",
            "maxlogins",
            "int 2");

    const char everybody[] = "* - nproc 5\n";
    addCase("no exception for root", everybody, "root", "nproc", "int 5");
    addCase("plain ids", "@29:29 - nproc 1\n@0: - nproc 2\n@:29 - nproc 3\n", "audio", "nproc", "null");
    const char slashes[] = "* - nproc 1\n//:// - nproc 2\n@//d:// - nproc 3\n@//:// - nproc 4\n";
    addCase("id 0", slashes, "root", "nproc", "int 3");
    addCase("id 0 under another name", slashes, "null", "nproc", "int 3");
    addCase("no id but 0", slashes, "audio", "nproc", "int 1");
    addCase("user ids", "//:// - nproc 2\n", "root", "nproc", "null");
    addCase("open end", "@//: - nproc 2\n@:// - nproc 3\n", "root", "nproc", "null");
    addCase("name before ids", "@//:// - nproc 1\n@root - nproc 2\n", "root", "nproc", "int 2");
    addCase("all together before ids", "@//:// - maxlogins 1\n%root - maxlogins 2\n", "root", "maxlogins", "int 2");
}

void LimitsLookupTest::looksUpGroup()
{
    compareItem([](const QString &name) { return GroupInfo::getGroup(name); });
}

void LimitsLookupTest::takesEmptyRecords()
{
    const LimitsParser limits =
        limitsOf("//:// - core 1\n@//:// - data 2\n* - nproc 3\n@ - nproc 4\n% - maxlogins 5\n");
    QCOMPARE(describe(limits.getItem(UserInfo(), QStringLiteral("core"))), QStringLiteral("int 1"));
    QCOMPARE(describe(limits.getItem(UserInfo(), QStringLiteral("data"))), QStringLiteral("int 2"));
    QCOMPARE(describe(limits.getItem(UserInfo(), QStringLiteral("nproc"))), QStringLiteral("int 3"));
    QCOMPARE(describe(limits.getItem(UserInfo(), QStringLiteral("maxlogins"))), QStringLiteral("null"));
    QCOMPARE(describe(limits.getItem(GroupInfo(), QStringLiteral("core"))), QStringLiteral("null"));
    QCOMPARE(describe(limits.getItem(GroupInfo(), QStringLiteral("data"))), QStringLiteral("int 2"));
    QCOMPARE(describe(limits.getItem(GroupInfo(), QStringLiteral("nproc"))), QStringLiteral("int 4"));
    QCOMPARE(describe(limits.getItem(GroupInfo(), QStringLiteral("maxlogins"))), QStringLiteral("int 5"));
}

void LimitsLookupTest::explainsDomain_data()
{
    QTest::addColumn<QString>("domain");
    QTest::addColumn<QString>("expected");

    const auto addDomain = [](const char *domain, const char *expected) {
        QTest::addRow("'%s'", qPrintable(text(domain))) << text(domain) << text(expected);
    };
    addDomain("*", "All users");
    addDomain("**", "User name: \"**\"");
    addDomain("@users", "Group name: \"users\"");
    addDomain("@", "Group name: \"\"");
    addDomain("@*", "Group name: \"*\"");
    addDomain("@@users", "Group name: \"@users\"");
    addDomain("alice", "User name: \"alice\"");
    addDomain("", "User name: \"\"");
    addDomain("%staff", "User name: \"%staff\"");
    addDomain("%1", "User name: \"%1\"");
    addDomain("@%2", "Group name: \"%2\"");
    addDomain("<b>", "User name: \"<b>\"");
    addDomain("ren\xe9", "User name: \"ren\xe9\"");
    addDomain("1000:2000", "User name: \"1000:2000\"");
    addDomain("1000:", "User name: \"1000:\"");
    addDomain(":0", "User name: \":0\"");
    addDomain("@100:", "Group name: \"100:\"");
    addDomain("@100:200", "Group name: \"100:200\"");
    addDomain("@:0", "Group name: \":0\"");
    addDomain("//://", "User UID range from // to //");
    addDomain("//d://dd", "User UID range from //d to //dd");
    addDomain("//://x", "User UID range from // to //");
    addDomain("//:", "User name: \"//:\"");
    addDomain("://", "User name: \"://\"");
    addDomain("x//://", "User name: \"x//://\"");
    addDomain("//x//://", "User name: \"//x//://\"");
    addDomain("@//://", "Group GID range from // to //");
    addDomain("@//ddd://d:", "Group GID range from //ddd to //d");
    addDomain("@//:", "Group name: \"//:\"");
    addDomain("@://", "Group name: \"://\"");
}

void LimitsLookupTest::explainsDomain()
{
    QFETCH(QString, domain);
    QFETCH(QString, expected);

    QCOMPARE(LimitsParser::domainToolTip(domain), expected);
}

QTEST_GUILESS_MAIN(LimitsLookupTest)

#include "lookuptest.moc"

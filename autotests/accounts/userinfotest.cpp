/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "describe.h"
#include "localencoding.h"
#include "messagerecorder.h"
#include "sandbox.h"

#include <UserInfo>

#include <QTest>

#include <grp.h>
#include <pwd.h>

namespace
{
const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                         "zed:x:1001:1001:Zed:/home/zed:/bin/zsh\n"
                         "alice:x:1000:1000:Alice A.,Room 1,,:/home/alice:/bin/bash\n"
                         "nobody:x:65534:65534:nobody:/nonexistent:/usr/sbin/nologin\n";

const char groupsFile[] = "root:x:0:\n"
                          "ormel-admin:x:27:alice\n"
                          "audio:x:29:zed,alice\n"
                          "alice:x:1000:\n"
                          "zed:x:1001:\n"
                          "nogroup:x:65534:\n";

UserInfo user(const char *name)
{
    return UserInfo::getUser(QString::fromLatin1(name));
}

QString groupNames(const UserInfo &user)
{
    return user.groupNames().join(QLatin1Char(' '));
}

}

class UserInfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void isEmptyByDefault();
    void knowsSystemAccounts_data();
    void knowsSystemAccounts();
    void isEmptyWithoutNameWhateverTheUid();
    void superuserIsNotEmpty();
    void decodesFields_data();
    void decodesFields();
    void decodesFieldsInAnyLocale_data();
    void decodesFieldsInAnyLocale();
    void givesNullStringsForNullFields();

    void findsUserByName();
    void findsUserByUid();
    void findsUserWithLatin1Name();
    void takesFirstOfLinesThatShareNameOrUid();
    void findsNothingQuietly();
    void buildsRecordFromStaticEntry();

    void listsUsersInFileOrder();
    void skipsMalformedLines();
    void keepsDuplicateLines();
    void listsNothingWithoutPasswd();
    void listsNothingOfEmptyPasswd();
    void listsUsersWithoutGroupFile();

    void listsGroupsWithAllTheirMembers();
    void listsEveryGroup_data();
    void listsEveryGroup();
    void skipsGroupsWithoutEntry();
    void looksGroupsUpAgainByName();
    void listsGroupsOfStaticEntry();

    void toleratesMissingPrimaryGroup();
    void isAdministratorByMembership();
    void isAdministratorByPrimaryGroup();
    void isNoAdministratorWithoutThatGroup();
    void isNoAdministratorThroughGroupOfEqualGid();
    void warnsForEachRecordWithoutAdministrators();
    void warnsInTheOrderOfTheLookups();
    void warnsOfUnreadablePasswdForEachGroup();
    void warnsInDefaultCategoryWithoutContext();

    void reloadsEverythingButTheName();
    void reloadWarnsLikeALookup();

    void asksNameServiceForUsers();
    void listsLocalUsersOnly();
};

void UserInfoTest::init()
{
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts(usersFile, groupsFile);
}

void UserInfoTest::cleanup()
{
    Sandbox::removeExtraAccounts();
}

void UserInfoTest::isEmptyByDefault()
{
    const UserInfo user;
    QVERIFY(user.isEmpty());
    QCOMPARE(describe(user),
             QStringLiteral("null | 0 | 0 | null | null | null | primary null(0: ) | groups  | no admin"));
    QVERIFY(user.groupNames().isEmpty());
}

void UserInfoTest::knowsSystemAccounts_data()
{
    QTest::addColumn<uint>("uid");
    QTest::addColumn<bool>("system");

    QTest::newRow("0") << 0u << true;
    QTest::newRow("1") << 1u << true;
    QTest::newRow("999") << 999u << true;
    QTest::newRow("1000") << 1000u << false;
    QTest::newRow("65533") << 65533u << false;
    QTest::newRow("65534") << 65534u << true;
    QTest::newRow("65535") << 65535u << false;
    QTest::newRow("2147483648") << 2147483648u << false;
    QTest::newRow("4294967294") << 4294967294u << false;
}

void UserInfoTest::knowsSystemAccounts()
{
    QFETCH(uint, uid);
    QFETCH(bool, system);
    Sandbox::write(passwdPath(), "some:x:" + QByteArray::number(uid) + ":1000::/:\n");

    QCOMPARE(user("some").uid(), uid);
    QCOMPARE(user("some").isSystem(), system);
}

void UserInfoTest::isEmptyWithoutNameWhateverTheUid()
{
    char nothing[] = "";
    passwd entry{nothing, nothing, 1000, 1000, nothing, nothing, nothing};
    const UserInfo user = UserInfo::getUser(&entry);

    QVERIFY(user.isEmpty());
    QVERIFY(!user.name().isNull());
    QCOMPARE(user.uid(), 1000u);
}

void UserInfoTest::superuserIsNotEmpty()
{
    QVERIFY(!user("root").isEmpty());
    QCOMPARE(user("root").uid(), 0u);
}

void UserInfoTest::decodesFields_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("gecos");
    QTest::addColumn<QString>("home");
    QTest::addColumn<QString>("shell");

    const QString home = QStringLiteral("/home/x");
    const QString shell = QStringLiteral("/bin/sh");
    QTest::newRow("ASCII") << QByteArray("X,1,2,3:/home/x:/bin/sh") << "X,1,2,3" << home << shell;
    QTest::newRow("UTF-8 GECOS") << QByteArray("Ren\xc3\xa9 \xd0\x96:/home/x:/bin/sh")
                                 << QStringLiteral(u"Ren\u00e9 \u0416") << home << shell;
    QTest::newRow("invalid UTF-8 in GECOS")
        << QByteArray("Ren\xe9:/home/x:/bin/sh") << QStringLiteral(u"Ren\ufffd") << home << shell;
    QTest::newRow("Latin-1 home") << QByteArray("X:/home/ren\xe9:/bin/sh") << "X" << QStringLiteral(u"/home/ren\u00e9")
                                  << shell;
    QTest::newRow("UTF-8 home, a character for each byte")
        << QByteArray("X:/home/ren\xc3\xa9:/bin/sh") << "X" << QStringLiteral(u"/home/ren\u00c3\u00a9") << shell;
    QTest::newRow("Latin-1 shell") << QByteArray("X:/home/x:/bin/\xe9") << "X" << home
                                   << QStringLiteral(u"/bin/\u00e9");
    QTest::newRow("empty fields") << QByteArray("::") << ""
                                  << ""
                                  << "";
}

void UserInfoTest::decodesFields()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, gecos);
    QFETCH(QString, home);
    QFETCH(QString, shell);
    Sandbox::write(passwdPath(), "x:x:1000:1000:" + line + '\n');

    const UserInfo x = user("x");
    QCOMPARE(x.gecos(), gecos);
    QCOMPARE(x.home(), home);
    QCOMPARE(x.shell(), shell);
    QVERIFY(!x.gecos().isNull());
    QVERIFY(!x.home().isNull());
    QVERIFY(!x.shell().isNull());
}

void UserInfoTest::decodesFieldsInAnyLocale_data()
{
    decodesFields_data();
}

void UserInfoTest::decodesFieldsInAnyLocale()
{
    const LocalEncoding cyrillic("KOI8-R");
    decodesFields();
}

void UserInfoTest::givesNullStringsForNullFields()
{
    char name[] = "alice";
    passwd entry{name, nullptr, 1000, 1000, nullptr, nullptr, nullptr};
    const UserInfo alice = UserInfo::getUser(&entry);

    QCOMPARE(alice.name(), QStringLiteral("alice"));
    QVERIFY(alice.gecos().isNull());
    QVERIFY(alice.home().isNull());
    QVERIFY(alice.shell().isNull());
}

void UserInfoTest::findsUserByName()
{
    MessageRecorder recorder;
    QCOMPARE(describe(user("alice")),
             QStringLiteral("alice | 1000 | 1000 | Alice A.,Room 1,, | /home/alice | /bin/bash | "
                            "primary alice(1000: alice) | "
                            "groups alice(1000: alice), ormel-admin(27: alice), audio(29: zed alice) | admin"));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserInfoTest::findsUserByUid()
{
    QCOMPARE(describe(UserInfo::getUser(1000u)), describe(user("alice")));
    QCOMPARE(UserInfo::getUser(0u).name(), QStringLiteral("root"));

    Sandbox::write(passwdPath(), "first:x:0:0::/:\nbig:x:4294967294:50::/:\nhalf:x:2147483648:50::/:\n");
    QCOMPARE(UserInfo::getUser(4294967294u).name(), QStringLiteral("big"));
    QCOMPARE(UserInfo::getUser(2147483648u).name(), QStringLiteral("half"));
}

void UserInfoTest::findsUserWithLatin1Name()
{
    Sandbox::setAccounts("ren\xe9:x:1000:1000::/:\n", "ren\xe9:x:1000:\nmusic:x:60:ren\xe9\n");

    const QString name = QStringLiteral(u"ren\u00e9");
    const UserInfo rene = UserInfo::getUser(name);
    QCOMPARE(rene.name(), name);
    QCOMPARE(rene.primaryGroup().name(), name);
    QCOMPARE(rene.groupNames(), QStringList({name, QStringLiteral("music")}));
    QCOMPARE(rene.groups().at(1).users(), QStringList(name));

    UserInfo reloaded = rene;
    reloaded.reload();
    QCOMPARE(describe(reloaded), describe(rene));
}

void UserInfoTest::takesFirstOfLinesThatShareNameOrUid()
{
    Sandbox::write(passwdPath(),
                   "one:x:1000:1000::/1:\n"
                   "two:x:1000:1000::/2:\n"
                   "two:x:1001:1000::/3:\n");
    QCOMPARE(UserInfo::getUser(1000u).home(), QStringLiteral("/1"));
    QCOMPARE(user("two").home(), QStringLiteral("/2"));
    QCOMPARE(UserInfo::getUser(1001u).home(), QStringLiteral("/3"));
}

void UserInfoTest::findsNothingQuietly()
{
    MessageRecorder recorder;
    const QString empty = describe(UserInfo());
    QCOMPARE(describe(user("nosuchuser")), empty);
    QCOMPARE(describe(user("Alice")), empty);
    QCOMPARE(describe(user("")), empty);
    QCOMPARE(describe(UserInfo::getUser(QString())), empty);
    QCOMPARE(describe(UserInfo::getUser(4711u)), empty);
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserInfoTest::buildsRecordFromStaticEntry()
{
    QCOMPARE(describe(UserInfo::getUser(getpwnam("alice"))), describe(user("alice")));

    QStringList users;
    FILE *file = fopen("/etc/passwd", "r");
    QVERIFY(file);
    while (passwd *entry = fgetpwent(file)) {
        users.append(describe(UserInfo::getUser(entry)));
    }
    fclose(file);
    QCOMPARE(users, describe(UserInfo::getUsers()));
}

void UserInfoTest::listsUsersInFileOrder()
{
    MessageRecorder recorder;
    QCOMPARE(describe(UserInfo::getUsers()),
             QStringList({
                 describe(user("root")),
                 describe(user("zed")),
                 describe(user("alice")),
                 describe(user("nobody")),
             }));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserInfoTest::skipsMalformedLines()
{
    Sandbox::write(passwdPath(),
                   "# a comment\n"
                   "\n"
                   "justaname\n"
                   "nouid:x::1000::/:\n"
                   "badgid:x:1000:abc::/:\n"
                   "alice:x:1000:1000::/:\n"
                   "\xff\xfe:::::::::::\n"
                   "zed:x:1001:1001::/:/bin/sh");
    QStringList names;
    const QList<UserInfo> users = UserInfo::getUsers();
    for (const UserInfo &user : users) {
        names.append(user.name());
    }
    QCOMPARE(names, QStringList({QStringLiteral("alice"), QStringLiteral("zed")}));
}

void UserInfoTest::keepsDuplicateLines()
{
    Sandbox::write(passwdPath(),
                   "alice:x:1000:1000:one:/:\n"
                   "alice:x:1001:1001:two:/:\n"
                   "alice:x:1000:1000:one:/:\n");
    const QList<UserInfo> users = UserInfo::getUsers();
    QCOMPARE(users.size(), 3);
    QCOMPARE(users.at(1).gecos(), QStringLiteral("two"));
    QCOMPARE(describe(users.at(0)), describe(users.at(2)));
    QCOMPARE(users.at(0).primaryGroup().users(), QStringList(QStringLiteral("alice")));
}

void UserInfoTest::listsNothingWithoutPasswd()
{
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;

    QVERIFY(UserInfo::getUsers().isEmpty());
    QCOMPARE(recorder.takeTexts(), QStringList(userUnableToOpen(passwdPath())));
}

void UserInfoTest::listsNothingOfEmptyPasswd()
{
    Sandbox::write(passwdPath(), QByteArray());
    MessageRecorder recorder;

    QVERIFY(UserInfo::getUsers().isEmpty());
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserInfoTest::listsUsersWithoutGroupFile()
{
    Sandbox::remove(groupPath());
    Sandbox::write(passwdPath(), "alice:x:1000:1000::/:\n");
    MessageRecorder recorder;

    const QList<UserInfo> users = UserInfo::getUsers();
    QCOMPARE(users.size(), 1);
    QVERIFY(users.first().groups().isEmpty());
    QVERIFY(users.first().primaryGroup().isEmpty());
    QCOMPARE(users.first().gid(), 1000u);
    QCOMPARE(recorder.takeTexts(), QStringList({groupNotFound(QString()), noAdministrators()}));
}

void UserInfoTest::listsGroupsWithAllTheirMembers()
{
    Sandbox::setAccounts("alice:x:1000:50::/:\n"
                         "bob:x:1001:60::/:\n"
                         "carol:x:1002:50::/:\n",
                         "ormel-admin:x:27:\n"
                         "staff:x:50:zoe\n"
                         "music:x:60:alice\n");
    QCOMPARE(describe(UserInfo::getUserGroups(getpwnam("alice"))),
             QStringList({QStringLiteral("staff(50: zoe alice carol)"), QStringLiteral("music(60: alice bob)")}));
}

void UserInfoTest::listsEveryGroup_data()
{
    QTest::addColumn<int>("count");

    for (const int count : {0, 1, 14, 15, 16, 17, 31, 32, 63, 64, 65, 70, 300}) {
        QTest::addRow("%d memberships", count) << count;
    }
}

void UserInfoTest::listsEveryGroup()
{
    QFETCH(int, count);
    Sandbox::setAccounts("alice:x:1000:5000::/:\n", manyGroups(count, "alice") + "alice:x:5000:\n");

    QStringList expected(QStringLiteral("alice"));
    for (int i = 0; i < count; ++i) {
        expected.append(QStringLiteral("group%1").arg(i));
    }
    QCOMPARE(user("alice").groupNames(), expected);
}

void UserInfoTest::skipsGroupsWithoutEntry()
{
    Sandbox::setAccounts("alice:x:1000:4711::/:\n", "ormel-admin:x:27:\naudio:x:29:alice\n");
    MessageRecorder recorder;

    QCOMPARE(describe(UserInfo::getUserGroups(getpwnam("alice"))), QStringList(QStringLiteral("audio(29: alice)")));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserInfoTest::looksGroupsUpAgainByName()
{
    // The id 61 leads to the name "two", whose first line has another id.
    Sandbox::setAccounts("alice:x:1000:61::/:\n",
                         "ormel-admin:x:27:\n"
                         "one:x:60:\n"
                         "two:x:60:bob\n"
                         "two:x:61:carol\n");
    QCOMPARE(describe(user("alice")),
             QStringLiteral("alice | 1000 | 61 |  | / |  | primary two(60: bob) | groups two(60: bob) | no admin"));
}

void UserInfoTest::listsGroupsOfStaticEntry()
{
    const QStringList expected = describe(user("zed").groups());
    FILE *file = fopen("/etc/passwd", "r");
    QVERIFY(file);
    QVERIFY(fgetpwent(file));
    passwd *entry = fgetpwent(file);
    QCOMPARE(QByteArray(entry->pw_name), QByteArray("zed"));
    QCOMPARE(describe(UserInfo::getUserGroups(entry)), expected);
    fclose(file);
}

void UserInfoTest::toleratesMissingPrimaryGroup()
{
    Sandbox::setAccounts("alice:x:1000:4711::/:\n", "ormel-admin:x:27:\naudio:x:29:alice\n");
    MessageRecorder recorder;

    const UserInfo alice = user("alice");
    QVERIFY(alice.primaryGroup().isEmpty());
    QCOMPARE(alice.gid(), 4711u);
    QCOMPARE(groupNames(alice), QStringLiteral("audio"));
    QCOMPARE(recorder.takeTexts(), QStringList(groupNotFound(QString())));
}

void UserInfoTest::isAdministratorByMembership()
{
    QVERIFY(user("alice").isOrmelAdmin());
    QVERIFY(!user("zed").isOrmelAdmin());
    QVERIFY(!user("root").isOrmelAdmin());
}

void UserInfoTest::isAdministratorByPrimaryGroup()
{
    Sandbox::write(passwdPath(), "zed:x:1001:27::/:\n");
    QVERIFY(user("zed").isOrmelAdmin());
}

void UserInfoTest::isNoAdministratorWithoutThatGroup()
{
    Sandbox::write(groupPath(), "admin:x:27:alice\nalice:x:1000:\nzed:x:1001:\n");
    QVERIFY(!user("alice").isOrmelAdmin());
    QVERIFY(!user("zed").isOrmelAdmin());
}

void UserInfoTest::isNoAdministratorThroughGroupOfEqualGid()
{
    // The gid 27 leads to the name "operators", which is another group.
    Sandbox::write(groupPath(), "operators:x:27:\normel-admin:x:27:alice\nalice:x:1000:\n");
    QCOMPARE(groupNames(user("alice")), QStringLiteral("alice operators"));
    QVERIFY(!user("alice").isOrmelAdmin());
}

void UserInfoTest::warnsForEachRecordWithoutAdministrators()
{
    Sandbox::write(groupPath(), "root:x:0:\nalice:x:1000:\nzed:x:1001:\nnogroup:x:65534:\n");
    MessageRecorder recorder;

    UserInfo::getUsers();
    const QString warning = noAdministrators();
    QCOMPARE(recorder.takeTexts(), QStringList({warning, warning, warning, warning}));

    user("alice");
    QCOMPARE(recorder.takeTexts(), QStringList(warning));

    UserInfo::getUserGroups(getpwnam("alice"));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserInfoTest::warnsInTheOrderOfTheLookups()
{
    Sandbox::setAccounts("alice:x:1000:4711::/:\n"
                         "bob:x:1001:29::/:\n"
                         "carol:x:1002:4711::/:\n",
                         "audio:x:29:alice\n");
    MessageRecorder recorder;

    UserInfo::getUsers();
    QCOMPARE(recorder.takeTexts(),
             QStringList({
                 groupNotFound(QString()),
                 noAdministrators(),
                 noAdministrators(),
                 groupNotFound(QString()),
                 noAdministrators(),
             }));
}

void UserInfoTest::warnsOfUnreadablePasswdForEachGroup()
{
    Sandbox::setExtraAccounts("extra:x:3000:3000::/:\n", "extra:x:3000:\nteam:x:3001:extra\n");
    Sandbox::remove(passwdPath());
    Sandbox::write(groupPath(), "audio:x:29:extra\n");
    MessageRecorder recorder;

    const UserInfo extra = user("extra");
    QCOMPARE(groupNames(extra), QStringLiteral("extra audio team"));
    QCOMPARE(describe(extra.primaryGroup()), QStringLiteral("extra(3000: )"));
    const QString unreadable = groupUnableToOpen(passwdPath());
    QCOMPARE(recorder.takeTexts(),
             QStringList({
                 unreadable, // the group extra
                 unreadable, // audio
                 unreadable, // team
                 unreadable, // extra again, as the primary group
                 noAdministrators(),
             }));

    Sandbox::write(groupPath(), "ormel-admin:x:27:\n");
    user("extra");
    QCOMPARE(recorder.takeTexts(), QStringList({unreadable, unreadable, unreadable, unreadable}));
}

void UserInfoTest::warnsInDefaultCategoryWithoutContext()
{
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;

    UserInfo::getUsers();
    QCOMPARE(recorder.messages().size(), 1);
    const MessageRecorder::Message message = recorder.messages().first();
    QCOMPARE(message.type, QtWarningMsg);
    QCOMPARE(message.category, QByteArray("default"));
    QVERIFY(message.file.isNull());
    QVERIFY(message.function.isNull());
    QCOMPARE(message.line, 0);
}

void UserInfoTest::reloadsEverythingButTheName()
{
    UserInfo alice = user("alice");
    const QString before = describe(alice);
    Sandbox::setAccounts("alice:x:2000:29:Al:/srv/al:/bin/sh\n", "ormel-admin:x:27:\naudio:x:29:\n");
    QCOMPARE(describe(alice), before);

    MessageRecorder recorder;
    alice.reload();
    QCOMPARE(describe(alice),
             QStringLiteral("alice | 2000 | 29 | Al | /srv/al | /bin/sh | "
                            "primary audio(29: alice) | groups audio(29: alice) | no admin"));
    QCOMPARE(describe(alice), describe(user("alice")));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserInfoTest::reloadWarnsLikeALookup()
{
    UserInfo alice = user("alice");
    Sandbox::write(groupPath(), "alice:x:1000:\n");
    MessageRecorder recorder;

    alice.reload();
    QVERIFY(!alice.isOrmelAdmin());
    QCOMPARE(recorder.takeTexts(), QStringList(noAdministrators()));
}

void UserInfoTest::asksNameServiceForUsers()
{
    Sandbox::setExtraAccounts("extra:x:3000:3000:Extra:/:/bin/sh\n", "extra:x:3000:\n");

    const QString extra = QStringLiteral("extra | 3000 | 3000 | Extra | / | /bin/sh | "
                                         "primary extra(3000: ) | groups extra(3000: ) | no admin");
    QCOMPARE(describe(user("extra")), extra);
    QCOMPARE(describe(UserInfo::getUser(3000u)), extra);
}

void UserInfoTest::listsLocalUsersOnly()
{
    Sandbox::setExtraAccounts("extra:x:3000:3000:Extra:/:/bin/sh\n", "extra:x:3000:zed\n");

    const QList<UserInfo> users = UserInfo::getUsers();
    QCOMPARE(users.size(), 4);
    for (const UserInfo &user : users) {
        QVERIFY(user.name() != QLatin1String("extra"));
    }
    QCOMPARE(groupNames(users.at(1)), QStringLiteral("zed audio extra"));
}

QTEST_GUILESS_MAIN(UserInfoTest)

#include "userinfotest.moc"

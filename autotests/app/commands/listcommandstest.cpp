/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "generatedaccounts.h"
#include "program.h"
#include "sandbox.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace
{
const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                         "alice:x:1000:1000:Alice \xd0\x96,,,:/home/alice:/bin/bash\n"
                         "bob:x:1001:4711:Bob:/home/bob:/bin/zsh\n"
                         "nobody:x:65534:65534:nobody:/nonexistent:/usr/sbin/nologin\n";

const char groupsFile[] = "root:x:0:\n"
                          "ormel-admin:x:27:alice\n"
                          "audio:x:29:bob,alice\n"
                          "alice:x:1000:\n"
                          "nogroup:x:65534:\n";

QStringList lines(const QByteArray &text)
{
    return QString::fromUtf8(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QJsonArray jsonArray(const QByteArray &text)
{
    return QJsonDocument::fromJson(text).array();
}

QString string(const QJsonObject &object, const char *key)
{
    return object.value(QLatin1String(key)).toString();
}

QString number(const QJsonObject &object, const char *key)
{
    return QString::number(static_cast<qint64>(object.value(QLatin1String(key)).toDouble(-1)));
}

QStringList strings(const QJsonObject &object, const char *key)
{
    QStringList list;
    const QJsonArray array = object.value(QLatin1String(key)).toArray();
    for (const QJsonValue &value : array) {
        list.append(value.toString());
    }
    return list;
}
}

/** ormel-users users and ormel-users groups. */
class ListCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // These compare with the accounts of the machine, which later functions replace.
    void agreesWithGetentAndIdOnUsersOfTheMachine();
    void agreesWithGetentOnGroupsOfTheMachine();

    void printsUsersAsTable();
    void printsGroupsAsTable();
    void agreesWithGetentAndId();
    void printsJsonOfUsers();
    void printsJsonOfGroups();
    void printsJsonOfManyUsers();
    void printsLargeIds();
    void printsCsv();
    void printsChosenColumns();
    void listsKinds_data();
    void listsKinds();
    void listsNamedAccounts();
    void tellsOnceThatThereAreNoAdministrators();
    void printsNothingWithoutFiles_data();
    void printsNothingWithoutFiles();
    void hidesControlCharacters();

private:
    void compareUsersWithGetentAndId();
};

void ListCommandsTest::compareUsersWithGetentAndId()
{
    const Program::Result users = Program::run({QStringLiteral("users"), QStringLiteral("--json")});
    QCOMPARE(users.status, 0);
    const QJsonArray array = jsonArray(users.output);
    const QStringList names =
        lines(Program::run(QStringLiteral("/usr/bin/cut"), {QStringLiteral("-d:"), QStringLiteral("-f1"), passwdPath()})
                  .output);
    QCOMPARE(array.size(), names.size());
    QVERIFY(!names.isEmpty());

    for (int i = 0; i < names.size(); ++i) {
        const QString &name = names.at(i);
        const QJsonObject user = array.at(i).toObject();
        const QByteArray entry =
            Program::run(QStringLiteral("/usr/bin/getent"), {QStringLiteral("passwd"), name}).output;
        const QStringList fields = QString::fromUtf8(entry).trimmed().split(QLatin1Char(':'));
        QCOMPARE(fields.size(), 7);
        QCOMPARE(QStringList({
                     string(user, "name"),
                     fields.at(1),
                     number(user, "uid"),
                     number(user, "gid"),
                     string(user, "gecos"),
                     string(user, "home"),
                     string(user, "shell"),
                 }),
                 fields);
        const QByteArray groups =
            Program::run(QStringLiteral("/usr/bin/id"), {QStringLiteral("-G"), QStringLiteral("-n"), name}).output;
        QStringList groupNames = QString::fromUtf8(groups).trimmed().split(QLatin1Char(' '));
        // A group without an entry is a number to id and left out by the library.
        if (string(user, "primaryGroup").isEmpty()) {
            QCOMPARE(groupNames.takeFirst(), number(user, "gid"));
        } else {
            QCOMPARE(string(user, "primaryGroup"), groupNames.first());
        }
        QCOMPARE(strings(user, "groups"), groupNames);
    }
}

void ListCommandsTest::agreesWithGetentAndIdOnUsersOfTheMachine()
{
    compareUsersWithGetentAndId();
}

void ListCommandsTest::agreesWithGetentOnGroupsOfTheMachine()
{
    const QJsonArray array = jsonArray(Program::run({QStringLiteral("groups"), QStringLiteral("--json")}).output);
    const QStringList entries =
        lines(Program::run(QStringLiteral("/usr/bin/getent"), {QStringLiteral("group")}).output);
    const QStringList users = lines(Program::run(QStringLiteral("/usr/bin/cat"), {passwdPath()}).output);
    QVERIFY(!entries.isEmpty());
    QVERIFY(!users.isEmpty());
    QCOMPARE(array.size(), entries.size());

    for (int i = 0; i < entries.size(); ++i) {
        const QJsonObject group = array.at(i).toObject();
        const QStringList fields = entries.at(i).split(QLatin1Char(':'));
        QCOMPARE(string(group, "name"), fields.at(0));
        QCOMPARE(number(group, "gid"), fields.at(2));
        const QStringList members = fields.at(3).split(QLatin1Char(','), Qt::SkipEmptyParts);
        QStringList expected = members;
        for (const QString &user : users) {
            const QString name = user.section(QLatin1Char(':'), 0, 0);
            if (user.section(QLatin1Char(':'), 3, 3) == fields.at(2) && !members.contains(name)) {
                expected.append(name);
            }
        }
        QCOMPARE(strings(group, "members"), expected);
    }
}

void ListCommandsTest::printsUsersAsTable()
{
    Sandbox::setAccounts(usersFile, groupsFile);
    const Program::Result result = Program::run({QStringLiteral("users")});
    QCOMPARE(
        lines(result.output),
        QStringList({
            QStringLiteral("Name    Full name    UID  Primary group  Admin  System  Groups"),
            QStringLiteral("root    root           0  root           no     yes     root"),
            QStringLiteral(u"alice   Alice \u0416     1000  alice          yes    no      alice,ormel-admin,audio"),
            QStringLiteral("bob     Bob         1001                 no     no      audio"),
            QStringLiteral("nobody  nobody     65534  nogroup        no     yes     nogroup"),
        }));
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.status, 0);
}

void ListCommandsTest::printsGroupsAsTable()
{
    Sandbox::setAccounts(usersFile, groupsFile);
    const Program::Result result = Program::run({QStringLiteral("groups")});
    QCOMPARE(lines(result.output),
             QStringList({
                 QStringLiteral("Name           GID  System  Members"),
                 QStringLiteral("root             0  yes     root"),
                 QStringLiteral("ormel-admin     27  yes     alice"),
                 QStringLiteral("audio           29  yes     bob,alice"),
                 QStringLiteral("alice         1000  no      alice"),
                 QStringLiteral("nogroup      65534  yes     nobody"),
             }));
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.status, 0);
}

void ListCommandsTest::agreesWithGetentAndId()
{
    Sandbox::setAccounts(usersFile, groupsFile);
    compareUsersWithGetentAndId();
}

void ListCommandsTest::printsJsonOfUsers()
{
    Sandbox::setAccounts(usersFile, groupsFile);
    const QJsonArray users = jsonArray(Program::run({QStringLiteral("users"), QStringLiteral("--json")}).output);
    QCOMPARE(users.size(), 4);
    const QJsonObject expected{
        {QStringLiteral("name"), QStringLiteral("alice")},
        {QStringLiteral("uid"), 1000},
        {QStringLiteral("gid"), 1000},
        {QStringLiteral("gecos"), QStringLiteral(u"Alice \u0416,,,")},
        {QStringLiteral("fullName"), QStringLiteral(u"Alice \u0416")},
        {QStringLiteral("home"), QStringLiteral("/home/alice")},
        {QStringLiteral("shell"), QStringLiteral("/bin/bash")},
        {QStringLiteral("primaryGroup"), QStringLiteral("alice")},
        {QStringLiteral("groups"),
         QJsonArray({QStringLiteral("alice"), QStringLiteral("ormel-admin"), QStringLiteral("audio")})},
        {QStringLiteral("admin"), true},
        {QStringLiteral("system"), false},
    };
    QCOMPARE(users.at(1).toObject(), expected);
}

void ListCommandsTest::printsJsonOfGroups()
{
    // Alice is named by her primary group as well.
    Sandbox::setAccounts(usersFile + QByteArray("carol:x:1002:1000::/home/carol:/bin/sh\n"),
                         "audio:x:29:bob,alice\nalice:x:1000:alice,bob\n");
    const QJsonArray groups = jsonArray(Program::run({QStringLiteral("groups"), QStringLiteral("--json")}).output);
    QCOMPARE(groups.size(), 2);
    const QString alice = QStringLiteral("alice");
    const QString bob = QStringLiteral("bob");
    const QString carol = QStringLiteral("carol");
    const QJsonObject audio{
        {QStringLiteral("name"), QStringLiteral("audio")},
        {QStringLiteral("gid"), 29},
        {QStringLiteral("members"), QJsonArray({bob, alice})},
        {QStringLiteral("explicitMembers"), QJsonArray({bob, alice})},
        {QStringLiteral("primaryMembers"), QJsonArray()},
        {QStringLiteral("system"), true},
    };
    const QJsonObject ofAlice{
        {QStringLiteral("name"), alice},
        {QStringLiteral("gid"), 1000},
        {QStringLiteral("members"), QJsonArray({alice, bob, carol})},
        {QStringLiteral("explicitMembers"), QJsonArray({alice, bob})},
        {QStringLiteral("primaryMembers"), QJsonArray({alice, carol})},
        {QStringLiteral("system"), false},
    };
    QCOMPARE(groups, QJsonArray({audio, ofAlice}));

    const QStringList named{QStringLiteral("groups"), alice, QStringLiteral("--json")};
    QCOMPARE(jsonArray(Program::run(named).output), QJsonArray({ofAlice}));
}

void ListCommandsTest::printsJsonOfManyUsers()
{
    constexpr int count = 1000;
    GeneratedAccounts::write(count);
    const Program::Result result = Program::run({QStringLiteral("users"), QStringLiteral("--json")});
    QCOMPARE(result.status, 0);
    const QJsonArray users = jsonArray(result.output);
    const QStringList entries = lines(Program::run(QStringLiteral("/usr/bin/cat"), {passwdPath()}).output);
    QCOMPARE(entries.size(), count);
    QCOMPARE(users.size(), count);
    for (int i = 0; i < count; ++i) {
        const QJsonObject user = users.at(i).toObject();
        const QStringList fields = entries.at(i).split(QLatin1Char(':'));
        QCOMPARE(QStringList({string(user, "name"),
                              number(user, "uid"),
                              number(user, "gid"),
                              string(user, "gecos"),
                              string(user, "home"),
                              string(user, "shell")}),
                 QStringList({fields.at(0), fields.at(2), fields.at(3), fields.at(4), fields.at(5), fields.at(6)}));
        QCOMPARE(strings(user, "groups").size(), 1 + GeneratedAccounts::memberships);
    }
}

void ListCommandsTest::printsLargeIds()
{
    Sandbox::setAccounts("big:x:3000000000:4000000000:Big:/:/bin/sh\n", "big:x:4000000000:\normel-admin:x:27:\n");
    const QStringList table = lines(Program::run({QStringLiteral("users")}).output);
    QCOMPARE(table.value(1).simplified(), QStringLiteral("big Big 3000000000 big no no big"));
    const QJsonArray users = jsonArray(Program::run({QStringLiteral("users"), QStringLiteral("--json")}).output);
    QCOMPARE(number(users.first().toObject(), "uid"), QStringLiteral("3000000000"));
    QCOMPARE(number(users.first().toObject(), "gid"), QStringLiteral("4000000000"));
    const QStringList groups = lines(Program::run({QStringLiteral("groups"), QStringLiteral("--csv")}).output);
    QCOMPARE(groups.value(1), QStringLiteral("big,4000000000,big,,big,false"));
}

void ListCommandsTest::printsCsv()
{
    Sandbox::setAccounts("alice:x:1000:1000:Alice \"A\" \x1b[2J, room:/home/alice:/bin/sh\n",
                         "alice:x:1000:\normel-admin:x:27:alice\n");
    const Program::Result result = Program::run({QStringLiteral("users"), QStringLiteral("--csv")});
    QCOMPARE(lines(result.output),
             QStringList({
                 QStringLiteral("name,fullName,uid,gid,primaryGroup,groups,admin,system,gecos,home,shell"),
                 QStringLiteral(u"alice,\"Alice \"\"A\"\" \u241b[2J\",1000,1000,alice,\"alice,ormel-admin\",true,false,"
                                u"\"Alice \"\"A\"\" \u241b[2J, room\",/home/alice,/bin/sh"),
             }));
    QCOMPARE(result.status, 0);
}

void ListCommandsTest::printsChosenColumns()
{
    Sandbox::setAccounts(usersFile, groupsFile);
    const QStringList columns{QStringLiteral("--columns"), QStringLiteral("shell,name")};
    const QStringList command{QStringLiteral("users"), QStringLiteral("alice")};
    QCOMPARE(lines(Program::run(command + columns).output),
             QStringList({QStringLiteral("Shell      Name"), QStringLiteral("/bin/bash  alice")}));
    QCOMPARE(lines(Program::run(command + columns + QStringList(QStringLiteral("--csv"))).output),
             QStringList({QStringLiteral("shell,name"), QStringLiteral("/bin/bash,alice")}));
    const QJsonObject object{
        {QStringLiteral("name"), QStringLiteral("alice")},
        {QStringLiteral("shell"), QStringLiteral("/bin/bash")},
    };
    QCOMPARE(jsonArray(Program::run(command + columns + QStringList(QStringLiteral("--json"))).output),
             QJsonArray({object}));
}

void ListCommandsTest::listsKinds_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("option");
    QTest::addColumn<QStringList>("names");

    const auto add = [](const char *command, const char *option, const char *names) {
        QTest::addRow("%s %s", command, option) << QString::fromLatin1(command) << QString::fromLatin1(option)
                                                << QString::fromLatin1(names).split(QLatin1Char(' '));
    };
    add("users", "--ordinary", "name alice bob");
    add("users", "--system", "name root nobody");
    add("users", "--administrators", "name alice");
    add("groups", "--ordinary", "name alice");
    add("groups", "--system", "name root ormel-admin audio nogroup");
}

void ListCommandsTest::listsKinds()
{
    QFETCH(QString, command);
    QFETCH(QString, option);
    QFETCH(QStringList, names);

    Sandbox::setAccounts(usersFile, groupsFile);
    const QStringList arguments{
        command, option, QStringLiteral("--csv"), QStringLiteral("--columns"), QStringLiteral("name")};
    const Program::Result result = Program::run(arguments);
    QCOMPARE(lines(result.output), names);
    QCOMPARE(result.status, 0);
}

void ListCommandsTest::listsNamedAccounts()
{
    Sandbox::setAccounts(usersFile, groupsFile);
    Sandbox::setExtraAccounts("carol:x:2000:1000:Carol:/home/carol:/bin/sh\n", QByteArray());
    const QStringList csv{QStringLiteral("--csv"), QStringLiteral("--columns"), QStringLiteral("name")};
    const QStringList users{
        QStringLiteral("users"), QStringLiteral("carol"), QStringLiteral("mallory"), QStringLiteral("bob")};
    const Program::Result foundUsers = Program::run(users + csv);
    Sandbox::removeExtraAccounts();
    QCOMPARE(foundUsers.output, QByteArray("name\ncarol\nbob\n"));
    QCOMPARE(foundUsers.errors, QByteArray("ormel-users: There is no user 'mallory'.\n"));
    QCOMPARE(foundUsers.status, 1);

    const Program::Result groups =
        Program::run(QStringList({QStringLiteral("groups"), QStringLiteral("crew"), QStringLiteral("audio")}) + csv);
    QCOMPARE(groups.output, QByteArray("name\naudio\n"));
    QCOMPARE(groups.errors, QByteArray("ormel-users: There is no group 'crew'.\n"));
    QCOMPARE(groups.status, 1);
}

void ListCommandsTest::tellsOnceThatThereAreNoAdministrators()
{
    Sandbox::setAccounts(usersFile, "root:x:0:\n");
    const Program::Result result = Program::run({QStringLiteral("users")});
    QCOMPARE(result.errors,
             QByteArray("ormel-users: There is no group ormel-admin: nobody counts as an administrator here.\n"));
    QCOMPARE(result.status, 0);
}

void ListCommandsTest::printsNothingWithoutFiles_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("arguments");

    for (const QString &path : {passwdPath(), groupPath()}) {
        for (const char *command : {"users", "groups"}) {
            for (const QStringList &rest : {QStringList(), QStringList(QStringLiteral("--json"))}) {
                const QStringList arguments = QStringList(QString::fromLatin1(command)) + rest;
                QTest::addRow("%s without %s", qPrintable(arguments.join(QLatin1Char(' '))), qPrintable(path))
                    << path << arguments;
            }
        }
    }
}

void ListCommandsTest::printsNothingWithoutFiles()
{
    QFETCH(QString, path);
    QFETCH(QStringList, arguments);

    Sandbox::setAccounts(usersFile, groupsFile);
    Sandbox::remove(path);
    const Program::Result result = Program::run(arguments);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(lines(result.errors),
             QStringList(QStringLiteral("ormel-users: Cannot read '%1': No such file or directory").arg(path)));
    QCOMPARE(result.status, 3);
}

void ListCommandsTest::hidesControlCharacters()
{
    Sandbox::setAccounts(usersFile, "ormel-admin:x:27:\nstaff\x1b[2J:x:50:al\tice\n");
    const QStringList table = lines(Program::run({QStringLiteral("groups")}).output);
    QCOMPARE(table.last(), QStringLiteral(u"staff\u241b[2J     50  yes     al\u2409ice"));
}

QTEST_GUILESS_MAIN(ListCommandsTest)

#include "listcommandstest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "listedaccounts.h"
#include "program.h"
#include "sandbox.h"

#include <QTest>

/** ormel-users users and ormel-users groups. */
class ListCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void printsUsersAsTable();
    void printsGroupsAsTable();
    void printsLargeIds();
    void printsCsv();
    void printsChosenColumns();
    void listsKinds_data();
    void listsKinds();
    void listsNamedAccounts();
    void printsNoTableWithoutRows_data();
    void printsNoTableWithoutRows();
    void tellsOnceThatThereAreNoAdministrators();
    void printsNothingWithoutFiles_data();
    void printsNothingWithoutFiles();
    void hidesControlCharacters();
};

void ListCommandsTest::printsUsersAsTable()
{
    Sandbox::setAccounts(usersFile, groupsFile);
    const Program::Result result = Program::run({QStringLiteral("users")});
    QCOMPARE(
        Program::lines(result.output),
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
    QCOMPARE(Program::lines(result.output),
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

void ListCommandsTest::printsLargeIds()
{
    Sandbox::setAccounts("big:x:3000000000:4000000000:Big:/:/bin/sh\n", "big:x:4000000000:\normel-admin:x:27:\n");
    const QStringList table = Program::lines(Program::run({QStringLiteral("users")}).output);
    QCOMPARE(table.value(1).simplified(), QStringLiteral("big Big 3000000000 big no no big"));
    const QJsonArray users = jsonArray(Program::run({QStringLiteral("users"), QStringLiteral("--json")}).output);
    QCOMPARE(number(users.first().toObject(), "uid"), QStringLiteral("3000000000"));
    QCOMPARE(number(users.first().toObject(), "gid"), QStringLiteral("4000000000"));
    const QStringList groups = Program::lines(Program::run({QStringLiteral("groups"), QStringLiteral("--csv")}).output);
    QCOMPARE(groups.value(1), QStringLiteral("big,4000000000,big,,big,false"));
}

void ListCommandsTest::printsCsv()
{
    Sandbox::setAccounts("alice:x:1000:1000:Alice \"A\" \x1b[2J, room:/home/alice:/bin/sh\n",
                         "alice:x:1000:\normel-admin:x:27:alice\n");
    const Program::Result result = Program::run({QStringLiteral("users"), QStringLiteral("--csv")});
    QCOMPARE(Program::lines(result.output),
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
    QCOMPARE(Program::lines(Program::run(command + columns).output),
             QStringList({QStringLiteral("Shell      Name"), QStringLiteral("/bin/bash  alice")}));
    QCOMPARE(Program::lines(Program::run(command + columns + QStringList(QStringLiteral("--csv"))).output),
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
    QCOMPARE(Program::lines(result.output), names);
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

void ListCommandsTest::printsNoTableWithoutRows_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<int>("status");

    const auto add = [](const char *arguments, const char *output, int status) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << QByteArray(output) << status;
    };
    add("users mallory", "", 1);
    add("users mallory --columns name", "", 1);
    add("users root --ordinary", "", 0);
    add("users mallory --json", "[\n]\n", 1);
    add("users mallory --csv --columns name,uid", "name,uid\n", 1);
    add("groups crew", "", 1);
    add("groups crew --json", "[\n]\n", 1);
    add("groups crew --csv --columns name,gid", "name,gid\n", 1);
}

void ListCommandsTest::printsNoTableWithoutRows()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, output);
    QFETCH(int, status);

    Sandbox::setAccounts(usersFile, groupsFile);
    const Program::Result result = Program::run(arguments.split(QLatin1Char(' ')));
    QCOMPARE(result.output, output);
    QCOMPARE(result.errors.isEmpty(), status == 0);
    QCOMPARE(result.status, status);
}

void ListCommandsTest::tellsOnceThatThereAreNoAdministrators()
{
    Sandbox::setAccounts(usersFile, "root:x:0:\n");
    const Program::Result result = Program::run({QStringLiteral("users")});
    QCOMPARE(result.errors,
             QByteArray("ormel-users: There is no group ormel-admin, so nobody is an administrator here.\n"));
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
    QCOMPARE(Program::lines(result.errors),
             QStringList(QStringLiteral("ormel-users: Cannot read '%1': No such file or directory").arg(path)));
    QCOMPARE(result.status, 3);
}

void ListCommandsTest::hidesControlCharacters()
{
    Sandbox::setAccounts(usersFile, "ormel-admin:x:27:\nstaff\x1b[2J:x:50:al\tice\n");
    const QStringList table = Program::lines(Program::run({QStringLiteral("groups")}).output);
    QCOMPARE(table.last(), QStringLiteral(u"staff\u241b[2J     50  yes     al\u2409ice"));
}

QTEST_GUILESS_MAIN(ListCommandsTest)

#include "listcommandstest.moc"

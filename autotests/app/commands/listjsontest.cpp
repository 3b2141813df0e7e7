/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "generatedaccounts.h"
#include "listedaccounts.h"
#include "program.h"
#include "sandbox.h"

#include <QTest>

/** ormel-users users --json and ormel-users groups --json. */
class ListJsonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // These compare with the accounts of the machine, which later functions replace.
    void agreesWithGetentAndIdOnUsersOfTheMachine();
    void agreesWithGetentOnGroupsOfTheMachine();
    void agreesWithGetentAndId();
    void printsJsonOfUsers();
    void printsJsonOfGroups();
    void printsJsonOfManyUsers();

private:
    void compareUsersWithGetentAndId();
};

void ListJsonTest::compareUsersWithGetentAndId()
{
    const Program::Result users = Program::run({QStringLiteral("users"), QStringLiteral("--json")});
    QCOMPARE(users.status, 0);
    const QJsonArray array = jsonArray(users.output);
    const QStringList names = Program::lines(
        Program::run(QStringLiteral("/usr/bin/cut"), {QStringLiteral("-d:"), QStringLiteral("-f1"), passwdPath()})
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
        // For a group without an entry, id prints the number; the library leaves it out.
        if (string(user, "primaryGroup").isEmpty()) {
            QCOMPARE(groupNames.takeFirst(), number(user, "gid"));
        } else {
            QCOMPARE(string(user, "primaryGroup"), groupNames.first());
        }
        QCOMPARE(strings(user, "groups"), groupNames);
    }
}

void ListJsonTest::agreesWithGetentAndIdOnUsersOfTheMachine()
{
    compareUsersWithGetentAndId();
}

void ListJsonTest::agreesWithGetentOnGroupsOfTheMachine()
{
    const QJsonArray array = jsonArray(Program::run({QStringLiteral("groups"), QStringLiteral("--json")}).output);
    const QStringList entries =
        Program::lines(Program::run(QStringLiteral("/usr/bin/getent"), {QStringLiteral("group")}).output);
    const QStringList users = Program::lines(Program::run(QStringLiteral("/usr/bin/cat"), {passwdPath()}).output);
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

void ListJsonTest::agreesWithGetentAndId()
{
    Sandbox::setAccounts(usersFile, groupsFile);
    compareUsersWithGetentAndId();
}

void ListJsonTest::printsJsonOfUsers()
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

void ListJsonTest::printsJsonOfGroups()
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

void ListJsonTest::printsJsonOfManyUsers()
{
    constexpr int count = 1000;
    GeneratedAccounts::write(count);
    const Program::Result result = Program::run({QStringLiteral("users"), QStringLiteral("--json")});
    QCOMPARE(result.status, 0);
    const QJsonArray users = jsonArray(result.output);
    const QStringList entries = Program::lines(Program::run(QStringLiteral("/usr/bin/cat"), {passwdPath()}).output);
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

QTEST_GUILESS_MAIN(ListJsonTest)

#include "listjsontest.moc"

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
    void showsEachWarningOnce();
    void printsHeadingOnlyWithoutFiles();
    void hidesControlCharacters();
    void letsLongCellsStickOut();

    void tellsItsVersion();
    void helps_data();
    void helps();
    void refusesWrongUsage_data();
    void refusesWrongUsage();
    void needsDisplayForWindows_data();
    void needsDisplayForWindows();
    void endsWithoutCrashAtUnreachableDisplay();
    void reportsOutputThatCannotBeWritten();

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
    QCOMPARE(lines(result.output),
             QStringList({
                 QStringLiteral("Name      UID  Primary group  Groups                   Admin  System"),
                 QStringLiteral("root        0  root           root                     no     yes"),
                 QStringLiteral("alice    1000  alice          alice,ormel-admin,audio  yes    no"),
                 QStringLiteral("bob      1001                 audio                    no     no"),
                 QStringLiteral("nobody  65534  nogroup        nogroup                  no     yes"),
             }));
    QCOMPARE(result.status, 0);
}

void ListCommandsTest::printsGroupsAsTable()
{
    Sandbox::setAccounts(usersFile, groupsFile);
    const Program::Result result = Program::run({QStringLiteral("groups")});
    QCOMPARE(lines(result.output),
             QStringList({
                 QStringLiteral("Name           GID  Members    System"),
                 QStringLiteral("root             0  root       yes"),
                 QStringLiteral("ormel-admin     27  alice      yes"),
                 QStringLiteral("audio           29  bob,alice  yes"),
                 QStringLiteral("alice         1000  alice      no"),
                 QStringLiteral("nogroup      65534  nobody     yes"),
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
    Sandbox::setAccounts(usersFile, groupsFile);
    const QJsonArray groups = jsonArray(Program::run({QStringLiteral("groups"), QStringLiteral("--json")}).output);
    QCOMPARE(groups.size(), 5);
    const QJsonObject expected{
        {QStringLiteral("name"), QStringLiteral("audio")},
        {QStringLiteral("gid"), 29},
        {QStringLiteral("members"), QJsonArray({QStringLiteral("bob"), QStringLiteral("alice")})},
        {QStringLiteral("system"), true},
    };
    QCOMPARE(groups.at(2).toObject(), expected);
}

void ListCommandsTest::printsJsonOfManyUsers()
{
    constexpr int count = 10000;
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

void ListCommandsTest::showsEachWarningOnce()
{
    Sandbox::setAccounts(usersFile, "root:x:0:\n");
    const Program::Result result = Program::run({QStringLiteral("users")});
    QCOMPARE(lines(result.errors),
             QStringList({
                 QStringLiteral("ormel-users: ") + noAdministrators(),
                 QStringLiteral("ormel-users: ") + groupNotFound(QString()),
             }));
    QCOMPARE(result.status, 0);
}

void ListCommandsTest::printsHeadingOnlyWithoutFiles()
{
    Sandbox::remove(passwdPath());
    Sandbox::remove(groupPath());

    const Program::Result users = Program::run({QStringLiteral("users")});
    QCOMPARE(lines(users.output), QStringList(QStringLiteral("Name  UID  Primary group  Groups  Admin  System")));
    QCOMPARE(lines(users.errors), QStringList(QStringLiteral("ormel-users: ") + userUnableToOpen(passwdPath())));

    const Program::Result groups = Program::run({QStringLiteral("groups"), QStringLiteral("--json")});
    QVERIFY(QJsonDocument::fromJson(groups.output).isArray());
    QVERIFY(jsonArray(groups.output).isEmpty());
    QCOMPARE(lines(groups.errors), QStringList(QStringLiteral("ormel-users: ") + groupUnableToOpen(groupPath())));
}

void ListCommandsTest::hidesControlCharacters()
{
    Sandbox::setAccounts(usersFile, "ormel-admin:x:27:\nstaff\x1b[2J:x:50:al\tice\n");
    const QStringList table = lines(Program::run({QStringLiteral("groups")}).output);
    QCOMPARE(table.last(), QStringLiteral(u"staff\u241b[2J     50  al\u2409ice   yes"));
}

void ListCommandsTest::letsLongCellsStickOut()
{
    QByteArrayList names;
    for (int i = 0; i < 20; ++i) {
        names.append("member" + QByteArray::number(i));
    }
    const QByteArray many = names.join(',');
    Sandbox::setAccounts(QByteArray(), "big:x:50:" + many + "\nsmall:x:51:a\n");
    const QStringList wide = lines(Program::run({QStringLiteral("groups")}).output);
    QCOMPARE(wide.at(1), QStringLiteral("big     50  %1  yes").arg(QString::fromLatin1(many)));
    QCOMPARE(wide.at(2), QStringLiteral("small   51  %1  yes").arg(QStringLiteral("a"), -60));
}

void ListCommandsTest::tellsItsVersion()
{
    const Program::Result result = Program::run({QStringLiteral("--version")});
    QCOMPARE(result.output, QByteArray("ormel-users 1.0.0\n"));
    QCOMPARE(result.status, 0);
}

void ListCommandsTest::helps_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("line");

    QTest::newRow("--help") << QStringList(QStringLiteral("--help"))
                            << QStringLiteral("users List the user accounts of /etc/passwd.");
    QTest::newRow("-h") << QStringList(QStringLiteral("-h")) << QStringLiteral("groups List the groups of /etc/group.");
    QTest::newRow("users --help") << QStringList({QStringLiteral("users"), QStringLiteral("--help")})
                                  << QStringLiteral("--json Print JSON instead of a table.");
    QTest::newRow("pick-users --help, without a display")
        << QStringList({QStringLiteral("pick-users"), QStringLiteral("--help")})
        << QStringLiteral("-h, --help Show this help.");
    QTest::newRow("--help of the window, without a display")
        << QStringList(QStringLiteral("--help"))
        << QStringLiteral("--screenshots <directory> Write pictures of every page and dialog to a");
    QTest::newRow("groups -h") << QStringList({QStringLiteral("groups"), QStringLiteral("-h")})
                               << QStringLiteral("--json Print JSON instead of a table.");
}

void ListCommandsTest::helps()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, line);

    const Program::Result result = Program::run(
        Program::path(), arguments, {}, {QStringLiteral("QT_QPA_PLATFORM=xcb"), QStringLiteral("DISPLAY=")});
    const QStringList output = lines(result.output);
    QStringList help;
    for (const QString &helpLine : output) {
        help.append(helpLine.simplified());
    }
    QVERIFY2(help.contains(line), result.output.constData());
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.status, 0);
}

void ListCommandsTest::refusesWrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");

    QTest::newRow("unknown word") << QStringList(QStringLiteral("bogus")) << QStringLiteral("Unknown command 'bogus'.");
    QTest::newRow("unknown option") << QStringList(QStringLiteral("--bogus"))
                                    << QStringLiteral("Unknown option 'bogus'.");
    QTest::newRow("unknown option of a command") << QStringList({QStringLiteral("users"), QStringLiteral("--bogus")})
                                                 << QStringLiteral("Unknown option 'bogus'.");
    QTest::newRow("superfluous word") << QStringList({QStringLiteral("users"), QStringLiteral("alice")})
                                      << QStringLiteral("Unexpected argument 'alice'.");
}

void ListCommandsTest::refusesWrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);

    const Program::Result result = Program::run(arguments);
    QCOMPARE(lines(result.errors),
             QStringList({QStringLiteral("ormel-users: ") + message,
                          QStringLiteral("ormel-users: Try 'ormel-users --help'.")}));
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.status, 2);
}

void ListCommandsTest::needsDisplayForWindows_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("the main window") << QStringList();
    QTest::newRow("a dialog") << QStringList(QStringLiteral("pick-users"));
}

void ListCommandsTest::needsDisplayForWindows()
{
    QFETCH(QStringList, arguments);

    const QStringList noDisplay{
        QStringLiteral("QT_QPA_PLATFORM="), QStringLiteral("DISPLAY="), QStringLiteral("WAYLAND_DISPLAY=")};
    const Program::Result result = Program::run(Program::path(), arguments, {}, noDisplay);
    QCOMPARE(
        lines(result.errors),
        QStringList(QStringLiteral("ormel-users: There is no display: neither DISPLAY nor WAYLAND_DISPLAY is set.")));
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.status, 1);
}

void ListCommandsTest::endsWithoutCrashAtUnreachableDisplay()
{
    const QStringList unreachable{QStringLiteral("QT_QPA_PLATFORM=xcb"), QStringLiteral("DISPLAY=:987")};
    const Program::Result result = Program::run(Program::path(), {}, {}, unreachable);
    QVERIFY2(result.errors.contains("could not connect to display :987"), result.errors.constData());
    QCOMPARE(result.status, 1);
}

void ListCommandsTest::reportsOutputThatCannotBeWritten()
{
    Sandbox::setAccounts(usersFile, groupsFile);
    const Program::Result result =
        Program::run(QStringLiteral("/bin/sh"),
                     {QStringLiteral("-c"), QStringLiteral("exec \"$0\" groups >/dev/full"), Program::path()});
    QCOMPARE(lines(result.errors),
             QStringList(QStringLiteral("ormel-users: Cannot write the output: No space left on device")));
    QCOMPARE(result.status, 1);
}

QTEST_GUILESS_MAIN(ListCommandsTest)

#include "listcommandstest.moc"

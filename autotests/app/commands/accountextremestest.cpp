/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "generatedaccounts.h"
#include "program.h"
#include "sandbox.h"
#include "texts.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <sys/stat.h>

namespace
{
constexpr int manyAccounts = 2000;

const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                         "alice:x:1000:1000:Alice,,,:/home/alice:/bin/bash\n";

const char groupsFile[] = "root:x:0:\n"
                          "ormel-admin:x:27:alice\n"
                          "alice:x:1000:\n";

Program::Result run(const char *arguments)
{
    return Program::run(QString::fromLatin1(arguments).split(QLatin1Char(' ')));
}

void addColumns()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QByteArray>("errors");
}

void add(const char *arguments, int status, const QByteArray &output, const QByteArray &errors)
{
    QTest::newRow(arguments) << QByteArray(arguments) << status << output << errors;
}

/** Runs the command of the current row. */
void compareRun()
{
    QFETCH(QByteArray, arguments);
    QFETCH(int, status);
    QFETCH(QByteArray, output);
    QFETCH(QByteArray, errors);

    const Program::Result result = run(arguments.constData());
    QCOMPARE(result.output, output);
    QCOMPARE(result.errors, errors);
    QCOMPARE(result.status, status);
}

QByteArray message(const QString &text)
{
    return "ormel-users: " + text.toUtf8() + '\n';
}

void makeUnreadable(const QString &path)
{
    if (::chmod(qPrintable(path), 0) != 0) {
        qFatal("Cannot change %s", qPrintable(path));
    }
}

/** The lines of a database as getent prints them, split at the colons. */
QVector<QStringList> getent(const char *database)
{
    const QByteArray output =
        Program::run(QStringLiteral("/usr/bin/getent"), {QString::fromLatin1(database)}).output.trimmed();
    QVector<QStringList> entries;
    const QStringList lines = QString::fromUtf8(output).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        entries.append(line.split(QLatin1Char(':')));
    }
    return entries;
}

QJsonArray json(const char *command)
{
    const Program::Result result = Program::run({QString::fromLatin1(command), QStringLiteral("--json")});
    return QJsonDocument::fromJson(result.output).array();
}

}

/** The commands without accounts, without groups, with unreadable files, and with very many accounts. */
class AccountExtremesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void copesWithoutAccounts_data();
    void copesWithoutAccounts();
    void copesWithoutGroups_data();
    void copesWithoutGroups();
    void tellsThatThereAreNoAdministrators_data();
    void tellsThatThereAreNoAdministrators();
    void copesWithUnreadableFiles_data();
    void copesWithUnreadableFiles();
    void fallsBackWithoutConfiguration();

    void listsManyUsersAsGetentAndIdDo();
    void listsManyGroupsAsGetentDoes();
    void findsOneOfManyUsers();
};

void AccountExtremesTest::init()
{
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts(usersFile, groupsFile);
}

void AccountExtremesTest::copesWithoutAccounts_data()
{
    addColumns();
    add("users", 0, "", "");
    add("users --json", 0, "[\n]\n", "");
    add("groups", 0, "", "");
    add("groups --json", 0, "[\n]\n", "");
    add("limits --user alice", 1, "", message(QStringLiteral("There is no user 'alice'.")));
    add("limits --group alice", 1, "", message(QStringLiteral("There is no group 'alice'.")));
}

void AccountExtremesTest::copesWithoutAccounts()
{
    Sandbox::setAccounts(QByteArray(), QByteArray());
    compareRun();
}

void AccountExtremesTest::copesWithoutGroups_data()
{
    addColumns();
    const QByteArray warning =
        message(QStringLiteral("There is no group ormel-admin, so nobody is an administrator here."));
    add("users",
        0,
        "Name   Full name   UID  Primary group  Admin  System  Groups\n"
        "root   root          0                 no     yes\n"
        "alice  Alice      1000                 no     no\n",
        warning);
    add("groups", 0, QByteArray(), QByteArray());
}

void AccountExtremesTest::copesWithoutGroups()
{
    Sandbox::setAccounts(usersFile, QByteArray());
    compareRun();
}

void AccountExtremesTest::tellsThatThereAreNoAdministrators_data()
{
    QTest::addColumn<QByteArray>("groups");
    QTest::addColumn<QByteArray>("errors");

    QTest::newRow("no group of administrators")
        << QByteArray("root:x:0:\nalice:x:1000:\n")
        << message(QStringLiteral("There is no group ormel-admin, so nobody is an administrator here."));
    QTest::newRow("no primary group") << QByteArray("root:x:0:\normel-admin:x:27:alice\n") << QByteArray();
}

void AccountExtremesTest::tellsThatThereAreNoAdministrators()
{
    QFETCH(QByteArray, groups);
    QFETCH(QByteArray, errors);

    Sandbox::setAccounts(usersFile, groups);
    const Program::Result result = run("users");
    QCOMPARE(result.errors, errors);
    QCOMPARE(result.status, 0);
}

void AccountExtremesTest::copesWithUnreadableFiles_data()
{
    addColumns();
    const QByteArray errors = message(QStringLiteral("Cannot read '/etc/passwd': Permission denied"))
        + message(QStringLiteral("Cannot read '/etc/group': Permission denied"));
    for (const char *command : {"users", "users --json", "groups", "groups --json"}) {
        add(command, 3, "", errors);
    }
    add("limits --user alice", 1, "", message(QStringLiteral("There is no user 'alice'.")));
}

void AccountExtremesTest::copesWithUnreadableFiles()
{
    makeUnreadable(passwdPath());
    makeUnreadable(groupPath());
    compareRun();
    Sandbox::remove(passwdPath());
    Sandbox::remove(groupPath());
}

void AccountExtremesTest::fallsBackWithoutConfiguration()
{
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"[0-9]+\"\n");
    QCOMPARE(run("check-name 1").status, 0);
    makeUnreadable(adduserConfPath());
    const Program::Result result = run("check-name 1");
    QCOMPARE(result.output, QByteArray("rejected: the whole text has to match [a-z][a-z0-9\\_\\-]*\n"));
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.status, 2);
    Sandbox::remove(adduserConfPath());
}

void AccountExtremesTest::listsManyUsersAsGetentAndIdDo()
{
    GeneratedAccounts::write(manyAccounts);
    const QJsonArray users = json("users");
    const QVector<QStringList> entries = getent("passwd");
    QCOMPARE(entries.size(), manyAccounts);
    QCOMPARE(users.size(), entries.size());
    for (int i = 0; i < entries.size(); ++i) {
        const QJsonObject user = users.at(i).toObject();
        const QStringList fields{
            user.value(QLatin1String("name")).toString(),
            QStringLiteral("x"),
            QString::number(user.value(QLatin1String("uid")).toInt()),
            QString::number(user.value(QLatin1String("gid")).toInt()),
            user.value(QLatin1String("gecos")).toString(),
            user.value(QLatin1String("home")).toString(),
            user.value(QLatin1String("shell")).toString(),
        };
        QCOMPARE(fields, entries.at(i));
    }
    for (int i = 0; i < entries.size(); i += manyAccounts / 20) {
        const QJsonObject user = users.at(i).toObject();
        const QString name = user.value(QLatin1String("name")).toString();
        const QByteArray groups = Program::run(QStringLiteral("/usr/bin/id"), {QStringLiteral("-Gn"), name}).output;
        QCOMPARE(strings(user.value(QLatin1String("groups"))),
                 QString::fromUtf8(groups).trimmed().split(QLatin1Char(' ')));
    }
}

void AccountExtremesTest::listsManyGroupsAsGetentDoes()
{
    GeneratedAccounts::write(manyAccounts);
    QHash<QString, QStringList> primaryMembers;
    const QVector<QStringList> users = getent("passwd");
    for (const QStringList &user : users) {
        primaryMembers[user.at(3)].append(user.at(0));
    }
    const QJsonArray groups = json("groups");
    const QVector<QStringList> entries = getent("group");
    QCOMPARE(entries.size(), manyAccounts + GeneratedAccounts::sharedGroups + 1);
    QCOMPARE(groups.size(), entries.size());
    for (int i = 0; i < entries.size(); ++i) {
        const QStringList &entry = entries.at(i);
        const QJsonObject group = groups.at(i).toObject();
        QCOMPARE(group.value(QLatin1String("name")).toString(), entry.at(0));
        QCOMPARE(QString::number(group.value(QLatin1String("gid")).toInt()), entry.at(2));
        QCOMPARE(strings(group.value(QLatin1String("members"))),
                 entry.at(3).split(QLatin1Char(','), Qt::SkipEmptyParts) + primaryMembers.value(entry.at(2)));
    }
}

void AccountExtremesTest::findsOneOfManyUsers()
{
    GeneratedAccounts::write(manyAccounts);
    Sandbox::clear(QStringLiteral("/etc/security/limits.d"));
    Sandbox::write(QStringLiteral("/etc/security/limits.conf"),
                   "user" + QByteArray::number(manyAccounts - 1) + " hard core 12\n");
    const Program::Result result = Program::run({
        QStringLiteral("limits"),
        QStringLiteral("--user"),
        QStringLiteral("user%1").arg(manyAccounts - 1),
    });
    QCOMPARE(result.status, 0);
    const QByteArray source = "user" + QByteArray::number(manyAccounts - 1) + " /etc/security/limits.conf:1";
    QVERIFY2(result.output.simplified().contains("core not set 12 " + source), result.output.constData());
    QCOMPARE(result.output.count("/etc/security/limits.conf"), 1);
}

QTEST_GUILESS_MAIN(AccountExtremesTest)

#include "accountextremestest.moc"

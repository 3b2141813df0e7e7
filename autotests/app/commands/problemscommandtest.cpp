/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsfixtures.h"
#include "program.h"
#include "sandbox.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace
{
const char goodUsers[] = "root:x:0:0:root:/nonexistent:/bin/sh\n";
const char goodGroups[] = "root:x:0:\n";

Program::Result check(const QStringList &options = {})
{
    return Program::run(QStringList(QStringLiteral("check")) + options);
}

QJsonObject json(const QByteArray &text)
{
    return QJsonDocument::fromJson(text).object();
}
}

/** ormel-users check. */
class ProblemsCommandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void succeedsOnGoodAccounts();
    void listsProblems();
    void printsJson();
    void joinsFindingsAboutLimits();
    void failsWithUnreadableFile();
    void passesOverUnreadableShadow();
    void doesNotSteerTerminal();
    void reportsOutputThatCannotBeWritten();
};

void ProblemsCommandTest::init()
{
    const QStringList files{QStringLiteral("/etc/passwd"),
                            QStringLiteral("/etc/group"),
                            QStringLiteral("/etc/shadow"),
                            QStringLiteral("/etc/gshadow")};
    for (const QString &file : files) {
        Sandbox::remove(file);
    }
    clearLimits();
    Sandbox::setAccounts(goodUsers, goodGroups);
    Sandbox::write(QStringLiteral("/etc/shadow"), "root:*:1::::::\n");
    Sandbox::write(QStringLiteral("/etc/gshadow"), "root:*::\n");
}

void ProblemsCommandTest::succeedsOnGoodAccounts()
{
    const Program::Result result = check();
    QCOMPARE(result.output, QByteArray("No problems found.\n"));
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.status, 0);
}

void ProblemsCommandTest::listsProblems()
{
    Sandbox::setAccounts(goodUsers, "root:x:0:bob\n# comment\nstaff:*:0:alice\n");
    Sandbox::write(QStringLiteral("/etc/gshadow"), "root:*::bob\nstaff:*::alice\n");
    const Program::Result result = check();
    QCOMPARE(Program::lines(result.output),
             QStringList({
                 QStringLiteral("/etc/group:3: error: Group 'staff' has the same GID as group 'root': 0"),
                 QStringLiteral("    To the system both are the same group, with the same rights."),
                 QStringLiteral("    Give one of them another GID with 'groupmod --gid', and change the group of its "
                                "files with chgrp."),
                 QStringLiteral("/etc/group:1: warning: Group 'root' has the member 'bob', but there is no such user."),
                 QStringLiteral("/etc/group:3: warning: Group 'staff' has the member 'alice', but there is no such "
                                "user."),
                 QStringLiteral("/etc/gshadow:1: warning: Group 'root' has the member 'bob', but there is no such "
                                "user."),
                 QStringLiteral("/etc/gshadow:2: warning: Group 'staff' has the member 'alice', but there is no such "
                                "user."),
                 QStringLiteral("    A user who is created later with this name gets the rights of the group."),
                 QStringLiteral("    Remove the member with 'gpasswd --delete'."),
                 QStringLiteral("/etc/group:3: warning: 'staff' has a line in /etc/gshadow, but its password here is "
                                "not 'x'."),
                 QStringLiteral("    The password in the other file does not count."),
                 QStringLiteral("    Run pwconv, or grpconv for groups."),
                 QStringLiteral("/etc/group:2: note: The line is empty or a comment."),
                 QStringLiteral("    The C library skips it, but the tools that change accounts do not expect it "
                                "here."),
                 QStringLiteral("    Delete the line with vipw, or with vigr for groups."),
             }));
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.status, 1);
}

void ProblemsCommandTest::printsJson()
{
    Sandbox::setAccounts(QByteArray(goodUsers) + "\n", "root:x:0:bob\n");
    Sandbox::write(QStringLiteral("/etc/gshadow"), "root:*::bob\n");
    const Program::Result result = check({QStringLiteral("--json")});
    QCOMPARE(result.status, 1);
    const QJsonObject object = json(result.output);
    QCOMPARE(object.keys(), QStringList({QStringLiteral("problems"), QStringLiteral("unreadFiles")}));
    QCOMPARE(object.value(QStringLiteral("unreadFiles")).toArray(), QJsonArray());
    const QJsonArray problems = object.value(QStringLiteral("problems")).toArray();
    QCOMPARE(problems.size(), 3);
    const QJsonObject member{
        {QStringLiteral("id"), QStringLiteral("missing-member")},
        {QStringLiteral("severity"), QStringLiteral("warning")},
        {QStringLiteral("file"), QStringLiteral("/etc/group")},
        {QStringLiteral("line"), 1},
        {QStringLiteral("group"), QStringLiteral("root")},
        {QStringLiteral("text"), QStringLiteral("Group 'root' has the member 'bob', but there is no such user.")},
        {QStringLiteral("meaning"),
         QStringLiteral("A user who is created later with this name gets the rights of the group.")},
        {QStringLiteral("remedy"), QStringLiteral("Remove the member with 'gpasswd --delete'.")},
    };
    QCOMPARE(problems.first().toObject(), member);
    QVERIFY(!problems.last().toObject().contains(QStringLiteral("user")));
}

void ProblemsCommandTest::joinsFindingsAboutLimits()
{
    Sandbox::write(limitsPath(), "root soft core 1\nbob soft core 0\n");
    Sandbox::write(dropInPath(QStringLiteral("old")), "root soft core 0\n");
    const Program::Result text = check();
    QCOMPARE(
        Program::lines(text.output),
        QStringList({
            QStringLiteral("/etc/security/limits.d/old: warning: 'old': PAM does not read this file: its name does "
                           "not end in .conf"),
            QStringLiteral("    The rules in it have no effect."),
            QStringLiteral("    If they should, make it a file whose name ends in .conf and does not begin with a "
                           "dot. Otherwise delete it."),
            QStringLiteral("/etc/security/limits.conf:2: warning: 'bob soft core 0': is for nobody: there is no "
                           "user 'bob'"),
            QStringLiteral("    A user or group that is created later with this name gets the limit."),
            QStringLiteral("    Correct the name, or delete the line."),
        }));
    QCOMPARE(text.status, 1);

    const Program::Result result = check({QStringLiteral("--json")});
    const QJsonArray problems = json(result.output).value(QStringLiteral("problems")).toArray();
    QCOMPARE(problems.size(), 2);
    const QJsonObject file{
        {QStringLiteral("id"), QStringLiteral("ignored-limits-file")},
        {QStringLiteral("severity"), QStringLiteral("warning")},
        {QStringLiteral("file"), QStringLiteral("/etc/security/limits.d/old")},
        {QStringLiteral("line"), QJsonValue()},
        {QStringLiteral("text"), QStringLiteral("'old': PAM does not read this file: its name does not end in .conf")},
        {QStringLiteral("meaning"), QStringLiteral("The rules in it have no effect.")},
        {QStringLiteral("remedy"),
         QStringLiteral("If they should, make it a file whose name ends in .conf and does not begin with a dot. "
                        "Otherwise delete it.")},
    };
    QCOMPARE(problems.first().toObject(), file);
    QCOMPARE(problems.last().toObject().value(QStringLiteral("line")).toInt(), 2);
}

void ProblemsCommandTest::failsWithUnreadableFile()
{
    Sandbox::write(dropInPath(QStringLiteral("secret.conf")), "root soft core 0\n");
    QVERIFY(QFile::setPermissions(dropInPath(QStringLiteral("secret.conf")), {}));
    const Program::Result limits = check();
    QCOMPARE(limits.errors,
             QByteArray("ormel-users: Cannot read '/etc/security/limits.d/secret.conf': Permission denied\n"));
    QCOMPARE(limits.output, QByteArray());
    QCOMPARE(limits.status, 3);

    Sandbox::remove(QStringLiteral("/etc/group"));
    const Program::Result text = check();
    QCOMPARE(text.output, QByteArray());
    QCOMPARE(text.errors, QByteArray("ormel-users: Cannot read '/etc/group': No such file or directory\n"));
    QCOMPARE(text.status, 3);

    const Program::Result result = check({QStringLiteral("--json")});
    const QJsonArray files = json(result.output).value(QStringLiteral("unreadFiles")).toArray();
    const QJsonObject file{
        {QStringLiteral("file"), QStringLiteral("/etc/group")},
        {QStringLiteral("reason"), QStringLiteral("No such file or directory")},
    };
    QCOMPARE(files, QJsonArray{file});
    QCOMPARE(result.status, 3);
}

void ProblemsCommandTest::passesOverUnreadableShadow()
{
    QVERIFY(QFile::setPermissions(QStringLiteral("/etc/shadow"), {}));
    const Program::Result result = check();
    QCOMPARE(result.output, QByteArray("No problems found.\n"));
    QCOMPARE(result.errors, QByteArray("ormel-users: '/etc/shadow' is not checked: Permission denied\n"));
    QCOMPARE(result.status, 0);
}

void ProblemsCommandTest::doesNotSteerTerminal()
{
    const char override[] = {'\xe2', '\x80', '\xae', '\0'}; // of the writing direction
    Sandbox::setAccounts(goodUsers, QByteArray("root:x:0:\nst\x1b[2Jaff\xc2\x9b") + override + ":x:50:\n");
    const Program::Result text = check();
    for (const char *sequence : {"\x1b", "\xc2\x9b", override}) {
        QVERIFY(!text.output.contains(sequence));
    }
    const Program::Result result = check({QStringLiteral("--json")});
    for (const char *sequence : {"\x1b", "\xc2\x9b", override}) {
        QVERIFY(!result.output.contains(sequence));
    }
    const QJsonObject problem = json(result.output).value(QStringLiteral("problems")).toArray().first().toObject();
    QCOMPARE(problem.value(QStringLiteral("group")).toString(),
             QStringLiteral(u"st\u001b[2Jaff\u009b") + QString::fromUtf8(override));
}

void ProblemsCommandTest::reportsOutputThatCannotBeWritten()
{
    const QStringList command{QStringLiteral("-c"), QStringLiteral("\"$0\" check >/dev/full"), Program::path()};
    const Program::Result result = Program::run(QStringLiteral("/bin/sh"), command);
    QVERIFY(result.errors.contains("Cannot write the output"));
    QCOMPARE(result.status, 1);
}

QTEST_GUILESS_MAIN(ProblemsCommandTest)

#include "problemscommandtest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountreader.h"

#include "accountfixtures.h"
#include "generatedaccounts.h"
#include "patience.h"
#include "readinglog.h"
#include "sandbox.h"
#include "texts.h"

#include <UserInfo>

#include <QFile>
#include <QProcess>
#include <QTest>

namespace
{
QByteArray contentIfThere(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString describe(const UserRecord &user)
{
    return QStringList({user.name,
                        QString::number(user.uid),
                        QString::number(user.gid),
                        user.gecos,
                        user.home,
                        user.shell,
                        user.primaryGroup,
                        user.groups.join(QLatin1Char(',')),
                        user.administrator ? text("administrator") : QString(),
                        user.system ? text("system") : QString()})
        .join(QLatin1Char('|'));
}

QString describe(const GroupRecord &group)
{
    return QStringList({group.name,
                        QString::number(group.gid),
                        group.members.join(QLatin1Char(',')),
                        group.primaryMembers.join(QLatin1Char(',')),
                        group.system ? text("system") : QString()})
        .join(QLatin1Char('|'));
}
}

class AccountReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void readsGroups();
    void readsUsers();
    void readsGroupsBeforeUsers();
    void tellsWhetherThereIsAnAdministratorsGroup();
    void readsManyAccounts();
    void readsEveryText();
    void readsAgain();
    void startsFromTheBeginningWhileReading();
    void reportsNothingAfterCancel();
    void endsProcessWhenDestroyed();
};

void AccountReaderTest::init()
{
    Sandbox::setAccounts("root:x:0:0:root:/root:/bin/bash\n"
                         "ada:x:1000:50:Ada Byron,R 1,2,3,x:/home/ada:/bin/sh\n"
                         "bob:x:1001:777:Bob:/home/bob:/bin/sh\n"
                         "nobody:x:65534:50::/:/bin/false\n",
                         "root:x:0:\normel-admin:x:27:ada,ghost,ada\nstaff:x:50:bob,ada\nlocal:x:1000:\n");
}

void AccountReaderTest::readsGroups()
{
    ReadingLog log;
    QVERIFY(log.read());
    QStringList groups;
    for (const GroupRecord &group : qAsConst(log.groups)) {
        groups.append(describe(group));
    }
    QCOMPARE(groups,
             QStringList({text("root|0||root|system"),
                          text("ormel-admin|27|ada,ghost||system"),
                          text("staff|50|bob,ada|ada,nobody|system"),
                          text("local|1000|||")}));
    QCOMPARE(log.groups.at(2).everybody(), QStringList({text("bob"), text("ada"), text("nobody")}));
}

void AccountReaderTest::readsUsers()
{
    ReadingLog log;
    QVERIFY(log.read());
    QStringList users;
    for (const UserRecord &user : qAsConst(log.users)) {
        users.append(describe(user));
    }
    QCOMPARE(
        users,
        QStringList({text("root|0|0|root|/root|/bin/bash|root|root||system"),
                     text("ada|1000|50|Ada Byron,R 1,2,3,x|/home/ada|/bin/sh|staff|staff,ormel-admin|administrator|"),
                     text("bob|1001|777|Bob|/home/bob|/bin/sh||staff||"),
                     text("nobody|65534|50||/|/bin/false|staff|staff||system")}));
    QCOMPARE(log.users.at(1).fullName(), text("Ada Byron"));
}

void AccountReaderTest::readsGroupsBeforeUsers()
{
    ReadingLog log;
    QVERIFY(log.read());
    QCOMPARE(log.entries, QStringList({text("administrators"), text("groups"), text("users"), text("finished")}));
}

void AccountReaderTest::tellsWhetherThereIsAnAdministratorsGroup()
{
    ReadingLog log;
    QVERIFY(log.read());
    QVERIFY(log.hasAdministratorsGroup);
    Sandbox::write(groupPath(), "staff:x:50:\n");
    QVERIFY(log.read());
    QVERIFY(!log.hasAdministratorsGroup);
}

void AccountReaderTest::readsManyAccounts()
{
    constexpr int count = 1000;
    GeneratedAccounts::write(count);
    ReadingLog log;
    QVERIFY(log.read());
    const QList<UserInfo> expected = UserInfo::getUsers();
    QCOMPARE(log.users.size(), count);
    for (int i = 0; i < count; ++i) {
        QCOMPARE(log.users.at(i).name, expected.at(i).name());
        QCOMPARE(log.users.at(i).groups, expected.at(i).groupNames());
    }
    QCOMPARE(log.groups.size(), count + GeneratedAccounts::sharedGroups + 1);
    QCOMPARE(log.groups.constLast().name, text("ormel-admin"));
}

void AccountReaderTest::readsEveryText()
{
    const QByteArray longText(200000, 'x');
    Sandbox::write(passwdPath(), "eve:x:1002:50:\xe2\x82\xac \xff\x1b[1m," + longText + ":/home/\x01:\n");
    ReadingLog log;
    QVERIFY(log.read());
    QCOMPARE(log.users.size(), 1);
    QCOMPARE(log.users.at(0).gecos, UserInfo::getUsers().at(0).gecos());
    QCOMPARE(log.users.at(0).home, text("/home/\x01"));
    QCOMPARE(log.users.at(0).shell, QString());
}

void AccountReaderTest::readsAgain()
{
    ReadingLog log;
    QVERIFY(log.read());
    Sandbox::setAccounts("eve:x:1002:50::/:/bin/sh\n", "staff:x:50:\n");
    QVERIFY(log.read());
    QCOMPARE(log.users.size(), 1);
    QCOMPARE(log.groups.size(), 1);
}

void AccountReaderTest::startsFromTheBeginningWhileReading()
{
    ReadingLog log;
    log.reader.start();
    QTRY_VERIFY_WITH_TIMEOUT(!log.entries.isEmpty(), patience);
    Sandbox::setAccounts("eve:x:1002:50::/:/bin/sh\n", "staff:x:50:\n");
    QVERIFY(log.read());
    QCOMPARE(log.users.size(), 1);
    QCOMPARE(log.entries, QStringList({text("administrators"), text("groups"), text("users"), text("finished")}));
}

void AccountReaderTest::reportsNothingAfterCancel()
{
    GeneratedAccounts::write(500);
    ReadingLog log;
    log.reader.start();
    QTRY_VERIFY_WITH_TIMEOUT(!log.entries.isEmpty(), patience);
    log.reader.cancel();
    QVERIFY(!log.reader.isReading());
    log.entries.clear();
    QTRY_VERIFY_WITH_TIMEOUT(log.reader.findChildren<QProcess *>().isEmpty(), patience);
    QCOMPARE(log.entries, QStringList());
    QVERIFY(log.read());
    QCOMPARE(log.users.size(), 500);
}

void AccountReaderTest::endsProcessWhenDestroyed()
{
    const QString mark = text("/tmp/reader-pid");
    Sandbox::remove(mark);
    const PacketSource source{text("/bin/sh"), {text("-c"), text("echo $$ >/tmp/reader-pid; exec sleep 1000")}};
    QByteArray pid;
    {
        AccountReader reader(source);
        reader.start();
        QTRY_VERIFY_WITH_TIMEOUT(!(pid = contentIfThere(mark).trimmed()).isEmpty(), patience);
        QVERIFY(QFile::exists(text("/proc/") + QString::fromLatin1(pid)));
    }
    QVERIFY(!QFile::exists(text("/proc/") + QString::fromLatin1(pid)));
}

QTEST_GUILESS_MAIN(AccountReaderTest)

#include "accountreadertest.moc"

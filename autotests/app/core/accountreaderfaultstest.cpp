/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountreader.h"

#include "accountfixtures.h"
#include "accountpackets.h"
#include "generatedaccounts.h"
#include "packetstream.h"
#include "packing.h"
#include "patience.h"
#include "program.h"
#include "readinglog.h"
#include "sandbox.h"
#include "texts.h"
#include "writeaccounts.h"

#include <QProcess>
#include <QtEndian>

#include <QTest>

#include <sys/stat.h>

namespace
{
PacketSource script(const QString &commands)
{
    return {text("/bin/sh"), {text("-c"), commands}, std::chrono::seconds(1)};
}

/** A program that writes @p output and ends normally. */
PacketSource sourceOf(const QByteArray &output)
{
    Sandbox::write(text("/tmp/output"), output);
    return script(text("cat /tmp/output"));
}

QByteArray packet(AccountPacket::Type type, const QByteArray &data = {})
{
    return PacketStream::toBytes({type, data});
}

template<typename... Values>
QByteArray packed(const Values &...values)
{
    Packer pack;
    pack(values...);
    return pack.take();
}

QByteArray hello()
{
    return packet(AccountPacket::Hello, packed(accountsHello()));
}

QByteArray number(quint32 value)
{
    value = qToLittleEndian(value);
    return QByteArray(reinterpret_cast<const char *>(&value), sizeof(value));
}

const char silent[] = "The accounts could not be read: the program that reads them does not answer.";
const char early[] = "The accounts could not be read: the program that reads them has ended early.";
const char other[] = "The accounts could not be read: the program that reads them sends something unexpected.";
}

class AccountReaderFaultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void failsWhenProgramEnds_data();
    void failsWhenProgramEnds();
    void failsWhenProgramIsSilent_data();
    void failsWhenProgramIsSilent();
    void waitsForProgramThatIsAlive();
    void failsWithoutProgram();
    void refusesGarbage_data();
    void refusesGarbage();
    void takesWhatIsWrittenInPieces();
    void namesUnreadableFiles_data();
    void namesUnreadableFiles();
    void endsWhenNobodyListens();
};

void AccountReaderFaultsTest::initTestCase()
{
    GeneratedAccounts::write(300);
}

void AccountReaderFaultsTest::failsWhenProgramEnds_data()
{
    QTest::addColumn<QString>("commands");

    const QString command = Program::path() + QLatin1Char(' ') + writeAccountsCommand();
    QTest::newRow("without a word") << text("exit 0");
    QTest::newRow("with an error") << text("exit 1");
    QTest::newRow("killed") << text("kill -9 $$");
    QTest::newRow("after the first words") << command + text(" | head -c 40");
    QTest::newRow("within the groups") << command + text(" | head -c 3000; kill -9 $$");
    QTest::newRow("within the users") << command + text(" | head -c 20000; kill -SEGV $$");
    QTest::newRow("before the end") << command + text(" | head -c -1");
}

void AccountReaderFaultsTest::failsWhenProgramEnds()
{
    QFETCH(QString, commands);

    ReadingLog log(script(commands));
    QVERIFY(log.read());
    QCOMPARE(log.entries.constLast(), text("failed"));
    QCOMPARE(log.message, text(early));
    QVERIFY(log.users.isEmpty());
    QVERIFY(!log.reader.isReading());
}

void AccountReaderFaultsTest::failsWhenProgramIsSilent_data()
{
    QTest::addColumn<QString>("commands");

    const QString command = Program::path() + QLatin1Char(' ') + writeAccountsCommand();
    QTest::newRow("from the beginning") << text("exec sleep 1000");
    QTest::newRow("within the groups") << command + text(" | head -c 3000; exec sleep 1000");
    QTest::newRow("stopped") << text("kill -STOP $$");
    QTest::newRow("deaf") << text("trap '' TERM INT HUP; exec sleep 1000");
}

void AccountReaderFaultsTest::failsWhenProgramIsSilent()
{
    QFETCH(QString, commands);

    ReadingLog log(script(commands));
    QVERIFY(log.read());
    QCOMPARE(log.message, text(silent));
    QVERIFY(log.users.isEmpty());
    // It is gone.
    QTRY_VERIFY_WITH_TIMEOUT(log.reader.findChildren<QProcess *>().isEmpty(), patience);
}

void AccountReaderFaultsTest::waitsForProgramThatIsAlive()
{
    Sandbox::write(text("/tmp/hello"), hello());
    Sandbox::write(text("/tmp/alive"), packet(AccountPacket::Alive));
    Sandbox::write(text("/tmp/end"), packet(AccountPacket::GroupsEnd, packed(true)) + packet(AccountPacket::UsersEnd));
    ReadingLog log(
        script(text("cat /tmp/hello; for i in 1 2 3 4 5; do sleep 0.4; cat /tmp/alive; done; cat /tmp/end")));
    QVERIFY(log.read());
    QCOMPARE(log.entries.constLast(), text("finished"));
}

void AccountReaderFaultsTest::failsWithoutProgram()
{
    ReadingLog log({text("/nowhere/program"), {}});
    QVERIFY(log.read());
    QCOMPARE(log.message, text("The accounts could not be read: '/nowhere/program' cannot be started."));
    QVERIFY(!log.reader.isReading());
}

void AccountReaderFaultsTest::refusesGarbage_data()
{
    QTest::addColumn<QByteArray>("output");

    const QByteArray badPacket("\xa5\x04\xff\xff\xff\xff", 6);
    QTest::newRow("text") << QByteArray("Segmentation fault (core dumped)\n");
    QTest::newRow("zeros") << QByteArray(100, '\0');
    QTest::newRow("no greeting") << packet(AccountPacket::GroupsEnd, packed(true));
    QTest::newRow("greeting of another version")
        << packet(AccountPacket::Hello, packed(text("ormel-users accounts 0")));
    QTest::newRow("greeting cut short") << packet(AccountPacket::Hello, packed(accountsHello()).chopped(1));
    QTest::newRow("two greetings") << hello() + hello();
    QTest::newRow("text behind the greeting") << hello() + "warning: something\n";
    QTest::newRow("unknown packet") << hello() + packet(AccountPacket::Type(99));
    QTest::newRow("endless packet") << hello() + badPacket;
    QTest::newRow("group cut short") << hello() + packet(AccountPacket::Groups, packed(text("staff"), 50U).chopped(1));
    QTest::newRow("group without members") << hello() + packet(AccountPacket::Groups, packed(text("staff"), 50U, true));
    QTest::newRow("too many members") << hello()
            + packet(AccountPacket::Groups, packed(text("staff"), 50U, true) + number(0x7fffffff));
    QTest::newRow("text that is not there") << hello() + packet(AccountPacket::Groups, number(70000));
    QTest::newRow("text beyond the packet") << hello() + packet(AccountPacket::Groups, number(1) + number(0xffffffff));
    QTest::newRow("user cut short") << hello() + packet(AccountPacket::Users, packed(text("ada"), 1000U, 50U));
    QTest::newRow("end of groups without an answer") << hello() + packet(AccountPacket::GroupsEnd);
    QTest::newRow("end of groups with more") << hello() + packet(AccountPacket::GroupsEnd, packed(true, true));
    QTest::newRow("end of users with more") << hello() + packet(AccountPacket::UsersEnd, packed(true));
    QTest::newRow("signs of life with more") << hello() + packet(AccountPacket::Alive, "x");
}

void AccountReaderFaultsTest::refusesGarbage()
{
    QFETCH(QByteArray, output);

    ReadingLog log(sourceOf(output));
    QVERIFY(log.read());
    QCOMPARE(log.entries.constLast(), text("failed"));
    QCOMPARE(log.message, text(other));
    QVERIFY(log.groups.isEmpty());
    QVERIFY(log.users.isEmpty());
}

void AccountReaderFaultsTest::takesWhatIsWrittenInPieces()
{
    Sandbox::setAccounts("root:x:0:0:root:/root:/bin/bash\n", "root:x:0:\n");
    const QString command = Program::path() + QLatin1Char(' ') + writeAccountsCommand();
    ReadingLog log(script(command + text(" | dd bs=1 2>/dev/null")));
    QVERIFY(log.read());
    QCOMPARE(log.users.size(), 1);
    QCOMPARE(log.users.at(0).shell, text("/bin/bash"));
}

void AccountReaderFaultsTest::namesUnreadableFiles_data()
{
    QTest::addColumn<QStringList>("missing");
    QTest::addColumn<QStringList>("entries");

    QTest::newRow("users") << QStringList(passwdPath())
                           << QStringList({text("administrators"), text("groups"), text("finished")});
    QTest::newRow("groups") << QStringList(groupPath()) << QStringList({text("users"), text("finished")});
    QTest::newRow("both") << QStringList({groupPath(), passwdPath()}) << QStringList(text("finished"));
}

void AccountReaderFaultsTest::namesUnreadableFiles()
{
    QFETCH(QStringList, missing);
    QFETCH(QStringList, entries);

    Sandbox::setAccounts("root:x:0:0:root:/root:/bin/bash\n", "root:x:0:\n");
    for (const QString &path : qAsConst(missing)) {
        Sandbox::remove(path);
    }
    ReadingLog log;
    QVERIFY(log.read());
    QCOMPARE(log.entries, entries);
    QStringList unreadable;
    for (const UnreadableFile &file : qAsConst(log.unreadable)) {
        QCOMPARE(file.reason, text("No such file or directory"));
        unreadable.append(file.path);
    }
    QCOMPARE(unreadable, missing);
}

void AccountReaderFaultsTest::endsWhenNobodyListens()
{
    // A file that never ends, and nobody who reads the output.
    Sandbox::remove(passwdPath());
    QCOMPARE(mkfifo(QFile::encodeName(passwdPath()).constData(), 0644), 0);
    const QString command = Program::path() + QLatin1Char(' ') + writeAccountsCommand();
    const Program::Result result = Program::run(text("/bin/sh"), {text("-c"), command + text(" | head -c 10 | wc -c")});
    QCOMPARE(result.output.trimmed(), QByteArray("10"));
    QCOMPARE(result.status, 0);
}

QTEST_GUILESS_MAIN(AccountReaderFaultsTest)

#include "accountreaderfaultstest.moc"

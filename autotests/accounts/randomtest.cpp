/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "accountmodel.h"
#include "describe.h"
#include "messagerecorder.h"
#include "sandbox.h"

#include <UserInfo>

#include <QTest>

#include <random>

namespace
{
/** A pseudo-random passwd and group file. There are few names and ids, so that they collide often. */
class RandomAccounts
{
public:
    explicit RandomAccounts(unsigned seed)
        : m_random(seed)
    {
    }

    QByteArray passwd()
    {
        QByteArray lines;
        for (int i = below(12); i >= 0; --i) {
            lines += oneIn(8)
                ? malformedLine()
                : userName() + ":x:" + id() + ':' + id() + ':' + gecos() + ":/home/" + userName() + ":/bin/sh";
            lines += '\n';
        }
        return lines;
    }

    QByteArray group()
    {
        QByteArray lines;
        for (int i = below(16); i >= 0; --i) {
            lines += oneIn(8) ? malformedLine() : groupName() + ":x:" + id() + ':' + members();
            lines += '\n';
        }
        return lines;
    }

    bool oneIn(int count)
    {
        return below(count) == 0;
    }

private:
    int below(int bound)
    {
        return static_cast<int>(m_random() % static_cast<unsigned>(bound));
    }

    QByteArray oneOf(const QVector<QByteArray> &texts)
    {
        return texts.at(below(texts.size()));
    }

    QByteArray userName()
    {
        return oneOf({"root", "alice", "bob", "carol", "dave", "ren\xe9", "x", "+nis"});
    }

    QByteArray groupName()
    {
        return oneOf({"ormel-admin", "staff", "audio", "alice", "bob", "g\xe4ste", "wheel", "-nis"});
    }

    QByteArray id()
    {
        return oneOf({"0", "27", "29", "50", "999", "1000", "1001", "65534", "4294967294"});
    }

    QByteArray gecos()
    {
        return oneOf({"", "Alice,,,", "Ren\xc3\xa9", "\xff\xfe", "a:b"});
    }

    QByteArray members()
    {
        QByteArrayList names;
        for (int i = below(5); i > 0; --i) {
            names.append(oneIn(6) ? QByteArray() : userName());
        }
        return names.join(',');
    }

    QByteArray malformedLine()
    {
        return oneOf(
            {"", "#comment", "alice", ":::", "bob:x:abc:1000::/:", "staff:x", "::0:0:::", ":x:50:alice", "+", "  "});
    }

    std::mt19937 m_random;
};
}

class AccountsRandomTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void agreesWithLookupsMadeOneByOne_data();
    void agreesWithLookupsMadeOneByOne();
};

void AccountsRandomTest::initTestCase()
{
    Sandbox::removeExtraAccounts();
}

void AccountsRandomTest::agreesWithLookupsMadeOneByOne_data()
{
    QTest::addColumn<unsigned>("firstSeed");

    for (unsigned seed = 0; seed < 600; seed += 100) {
        QTest::addRow("seeds %u to %u", seed, seed + 99) << seed;
    }
}

void AccountsRandomTest::agreesWithLookupsMadeOneByOne()
{
    QFETCH(unsigned, firstSeed);

    for (unsigned seed = firstSeed; seed < firstSeed + 100; ++seed) {
        RandomAccounts random(seed);
        const QByteArray passwd = random.passwd();
        const QByteArray group = random.group();
        Sandbox::setAccounts(passwd, group);
        if (random.oneIn(20)) {
            Sandbox::remove(passwdPath());
        }
        if (random.oneIn(20)) {
            Sandbox::remove(groupPath());
        }
        const QByteArray files = "seed " + QByteArray::number(seed) + '\n' + passwd + "--\n" + group;

        AccountModel expected;
        const QStringList users = expected.users();
        const QStringList groups = expected.groups();

        MessageRecorder recorder;
        const QStringList actualUsers = describe(UserInfo::getUsers());
        const QStringList actualGroups = describe(GroupInfo::getGroups());
        const QStringList warnings = recorder.takeTexts();

        QVERIFY2(actualUsers == users, files.constData());
        QVERIFY2(actualGroups == groups, files.constData());
        QVERIFY2(warnings == expected.warnings, files.constData());
    }
}

QTEST_GUILESS_MAIN(AccountsRandomTest)

#include "randomtest.moc"

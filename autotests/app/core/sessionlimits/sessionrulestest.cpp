/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsfixtures.h"
#include "sessionaccounts.h"
#include "sessioncomparison.h"

#include <QTest>

#include <memory>

namespace
{
/** The limits that are set, as "ITEM SOFT HARD", "ITEM VALUE" or "exempt". */
QString describe(const PamLimits::Answer &answer)
{
    QStringList limits;
    if (answer.exemption >= 0) {
        limits.append(QStringLiteral("exempt"));
    }
    for (int i = 0; i < PamLimits::itemCount; ++i) {
        const auto item = PamLimits::Item(i);
        const PamLimits::Limit &limit = answer.limit(item);
        const auto text = [item](const PamLimits::Value &value) {
            return value.isSet() ? QString::fromLatin1(value.toText(item)) : QStringLiteral("?");
        };
        if (limit.soft.isSet() || limit.hard.isSet()) {
            const QString soft =
                hasTwoLimits(PamLimits::kindOf(item)) ? text(limit.soft) + QLatin1Char(' ') : QString();
            limits.append(QString::fromLatin1(nameOf(item)) + QLatin1Char(' ') + soft + text(limit.hard));
        }
    }
    return limits.join(QLatin1String(", "));
}

QString highestOpenFiles()
{
    return QString::fromLatin1(contentOf(QStringLiteral("/proc/sys/fs/nr_open")).trimmed());
}

void addRow(const char *name, const QByteArray &rules, const char *user, const QString &limits)
{
    QTest::newRow(name) << rules << QByteArray(user) << limits;
}

void addRow(const char *name, const QByteArray &rules, const char *user, const char *limits)
{
    addRow(name, rules, user, QString::fromLatin1(limits));
}
}

/** What limits.conf(5) says, line by line, and what it leaves open. */
class SessionRulesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void gives_data();
    void gives();

private:
    std::unique_ptr<PamSessions> m_sessions;
    SessionComparison m_comparison;
};

void SessionRulesTest::initTestCase()
{
    setSessionAccounts();
    m_sessions = std::make_unique<PamSessions>();
}

static void addDomains()
{
    addRow("user name", "alice hard nproc 7\nbob hard nproc 8\n", "alice", "nproc ? 7");
    addRow("user name in capitals", "ALICE hard nproc 7\n", "alice", "");
    addRow("group name", "@staff hard nproc 7\n@users hard nproc 8\n", "alice", "nproc ? 7");
    addRow("primary group", "@users hard nproc 8\n", "bob", "nproc ? 8");
    addRow("another name of the group", "@twin hard nproc 8\n", "alice", "nproc ? 8");
    addRow("no such group", "@nosuch hard nproc 8\n", "alice", "");
    addRow("first of two groups of a name", "@twice hard nproc 8\n", "bob", "");
    addRow("wildcard", "* hard nproc 7\n", "alice", "nproc ? 7");
    addRow("logins of a group", "%staff - maxlogins 7\n", "alice", "maxlogins 7");
    addRow("logins of a group by gid", "%:50 - maxlogins 7\n", "alice", "maxlogins 7");
    addRow("logins of all", "% - maxlogins 7\n", "alice", "maxlogins 7");
    addRow("% for another item", "% - nproc 7\n%staff - maxsyslogins 3\n", "alice", "");
    addRow("% with a range", "%50:60 - maxlogins 7\n", "alice", "");
    addRow("uid", ":1001 hard nproc 7\n:1002 hard nproc 8\n", "alice", "nproc ? 7");
    addRow("uids from", "1001: hard nproc 7\n1002: hard nproc 8\n", "alice", "nproc ? 7");
    addRow("uids between", "1000:1001 hard nproc 7\n1002:1003 hard nproc 8\n", "alice", "nproc ? 7");
    addRow("uids in the wrong order", "1002:1000 hard nproc 7\n", "alice", "");
    addRow("uid without a colon", "1001 hard nproc 7\n", "alice", "");
    addRow("high uid", ":4294967290 hard nproc 7\n4294967291: hard nproc 8\n", "dave", "nproc ? 7");
    addRow("uid beyond 32 bits", ":4294968297 hard nproc 7\n", "alice", "nproc ? 7");
    addRow("uid beyond 64 bits", "0:99999999999999999999 hard nproc 7\n", "alice", "");
    addRow("no ids at all", ": hard nproc 7\n@: hard nproc 8\n", "alice", "");
    addRow("words for ids", "a:b hard nproc 7\n1001:b hard nproc 8\n", "alice", "");
    addRow("gid", "@:50 hard nproc 7\n", "alice", "nproc ? 7");
    addRow("gid without a group", "@:4242 hard nproc 7\n", "carol", "");
    addRow("gids of the primary group alone", "@100: hard nproc 7\n@40:60 hard nproc 8\n", "bob", "nproc ? 7");
    addRow("gids without a group", "@4242:4242 hard nproc 7\n", "carol", "nproc ? 7");
}

static void addRoot()
{
    addRow("root by name", "root hard nproc 7\n", "root", "nproc ? 7");
    addRow("wildcard for root", "* hard nproc 7\n", "root", "");
    addRow("group for root", "@root hard nproc 7\n%root - maxlogins 3\n% - maxlogins 4\n", "root", "");
    addRow("uid for root", ":0 hard nproc 7\n", "root", "nproc ? 7");
    addRow("gids for root count as uids",
           "@:0 hard nproc 7\n%0:9 hard core 8\n@:50 hard cpu 9\n",
           "toor",
           "core ? 8, nproc ? 7");
    addRow("another name for root", "root hard nproc 7\n* hard core 8\n", "toor", "");
    addRow("exemption of root by its group", "root hard nproc 7\n@root -\n", "root", "exempt");
    addRow("logins of root", "root - maxlogins 0\n", "root", "maxlogins 0");
}

static void addTypes()
{
    addRow("hard", "* hard nproc 7\n", "alice", "nproc ? 7");
    addRow("soft", "* soft nproc 7\n", "alice", "nproc 7 ?");
    addRow("both", "* - nproc 7\n", "alice", "nproc 7 7");
    addRow("capitals", "* HARD NProc 7\n* Soft CORE UNLIMITED\n", "alice", "core unlimited ?, nproc ? 7");
    addRow("unknown type", "* both nproc 7\n", "alice", "");
    addRow("unknown type for logins", "* both maxlogins 7\n* x nonewprivs 1\n", "alice", "maxlogins 7, nonewprivs 1");
    addRow("soft above hard", "* soft nproc 9\n* hard nproc 7\n", "alice", "nproc 7 7");
    addRow("soft nice above hard", "* soft nice -9\n* hard nice 7\n", "alice", "nice 7 7");
    addRow("exemption", "* - nproc 7\nalice -\n", "alice", "exempt");
    addRow("exemption of another", "* - nproc 7\nbob -\n", "alice", "nproc 7 7");
    addRow("exemption of a group", "alice - nproc 7\n@staff -\n", "alice", "exempt");
    addRow("exemption of ids", "alice - nproc 7\n1000:1001 -\n", "alice", "exempt");
    addRow("exemption of a gid", "alice - nproc 7\n@:50 -\n", "alice", "exempt");
    addRow("exemption of a primary group", "alice - nproc 7\n@1001: -\n", "alice", "exempt");
    addRow("exemption of gids after %, which count as uids", "alice - nproc 7\n%:1001 -\n", "alice", "exempt");
    addRow("exemption of everybody", "* - nproc 7\n* -\n% -\n%staff -\n", "alice", "nproc 7 7");
    addRow("exemption with another word", "alice - nproc 7\nalice -x\n", "alice", "exempt");
    addRow("exemption with three columns", "alice - nproc 7\nalice - nproc\n", "alice", "nproc 7 7");
}

static void addItems()
{
    addRow("kilobytes",
           "* - as 1\n* - core 2\n* - data 3\n* - fsize 4\n* - memlock 5\n* - rss 6\n* - stack 7\n",
           "alice",
           "as 1 1, core 2 2, data 3 3, fsize 4 4, memlock 5 5, rss 6 6, stack 7 7");
    addRow("numbers",
           "* - locks 1\n* - msgqueue 2\n* - nofile 30\n* - nproc 4\n* - rtprio 5\n* - sigpending 6\n",
           "alice",
           "locks 1 1, msgqueue 2 2, nofile 30 30, nproc 4 4, rtprio 5 5, sigpending 6 6");
    addRow("minutes", "* - cpu 2\n", "alice", "cpu 2 2");
    addRow("nice", "* - nice -5\n", "alice", "nice -5 -5");
    addRow("nice beyond its range", "* soft nice 40\n* hard nice -40\n", "alice", "nice 19 -20");
    addRow("priority", "* - priority -5\n", "alice", "priority -5");
    addRow("priority of the last rule", "alice - priority 3\n* - priority 5\n", "alice", "priority 5");
    addRow("nonewprivs", "* - nonewprivs 1\n", "alice", "nonewprivs 1");
    addRow("nonewprivs of the last rule", "alice - nonewprivs 1\n* soft nonewprivs 0\n", "alice", "nonewprivs 0");
    addRow(
        "nonewprivs that is no switch", "* - nonewprivs 2\n* - nonewprivs unlimited\n* - nonewprivs 01\n", "alice", "");
    addRow("chroot in small letters", "* - chroot /Srv\n", "alice", "chroot /srv");
    addRow("chroot of the last rule", "alice - chroot /a\n* soft chroot /b\n", "alice", "chroot /b");
    addRow("no logins", "* - maxlogins 0\n", "alice", "maxlogins 0");
    addRow("logins of system and user share a value",
           "alice - maxlogins 3\n* - maxsyslogins 9\n",
           "alice",
           "maxsyslogins 3");
    addRow("a bad value chooses between them", "* - maxlogins 3\n* - maxsyslogins x\n", "alice", "maxsyslogins 3");
    addRow("unknown item", "* - rttime 3\n* - nofiles 4\n", "alice", "");
}

static void addValues()
{
    addRow("no limit",
           "* - nproc -1\n* - core -\n* - cpu unlimited\n* - as infinity\n",
           "alice",
           "as unlimited unlimited, core unlimited unlimited, cpu unlimited unlimited, nproc unlimited unlimited");
    addRow("no limit for open files",
           "* - nofile unlimited\n",
           "alice",
           QStringLiteral("nofile %1 %1").arg(highestOpenFiles()));
    addRow("more open files than the kernel takes", "* - nofile 9999999999\n", "alice", "");
    addRow("soft limit above what the kernel takes", "* soft nofile 9999999999\n", "alice", "nofile 9999999999 ?");
    addRow("no limit where there must be one", "* - nice unlimited\n* - priority infinity\n* - nice -\n", "alice", "");
    addRow("-1 is a number for nice", "* - nice -1\n* - priority -1\n", "alice", "nice -1 -1, priority -1");
    addRow("more than 32 bits", "* - fsize 5000000000\n", "alice", "fsize 5000000000 5000000000");
    addRow("more bytes than 64 bits",
           "* - fsize 18014398509481983\n* - data 18014398509481982\n",
           "alice",
           "data 18014398509481982 18014398509481982, fsize unlimited unlimited");
    addRow("more seconds than 64 bits",
           "* soft cpu 307445734561825859\n* hard cpu 307445734561825860\n",
           "alice",
           "cpu 307445734561825859 unlimited");
    addRow("more than 64 bits", "* - nproc 99999999999999999999\n", "alice", "nproc unlimited unlimited");
    addRow("negative", "* - nproc -7\n", "alice", "nproc 18446744073709551609 18446744073709551609");
    addRow("negative logins", "* - maxlogins -7\n", "alice", "maxlogins unlimited");
    addRow("leading digits", "* - nproc 10k\n* - core 0x10\n* - cpu +7\n", "alice", "core 0 0, cpu 7 7, nproc 10 10");
    addRow("no digits", "* - nproc ten\n* - core --1\n* - cpu +\n", "alice", "");
}

static void addRanks()
{
    addRow("user before group", "alice hard nproc 7\n@staff hard nproc 8\n", "alice", "nproc ? 7");
    addRow("group before everybody", "@staff hard nproc 7\n* hard nproc 8\n", "alice", "nproc ? 7");
    addRow("group before logins of a group", "@staff - maxlogins 7\n%staff - maxlogins 8\n", "alice", "maxlogins 7");
    addRow("logins of a group before those of all", "%staff - maxlogins 7\n% - maxlogins 8\n", "alice", "maxlogins 7");
    addRow("logins of all before everybody", "% - maxlogins 7\n* - maxlogins 8\n", "alice", "maxlogins 7");
    addRow("ids are like a user", "alice hard nproc 7\n:1001 hard nproc 8\n", "alice", "nproc ? 8");
    addRow("gids are like a group", "@staff hard nproc 7\n@:50 hard nproc 8\n", "alice", "nproc ? 8");
    addRow("last of equal rank", "* hard nproc 7\n* hard nproc 8\n", "alice", "nproc ? 8");
    addRow("last of two groups", "@staff hard nproc 7\n@audio hard nproc 8\n", "alice", "nproc ? 8");
    addRow("soft and hard apart", "* - nproc 9\n@staff soft nproc 7\nalice hard nproc 8\n", "alice", "nproc 7 8");
    addRow("both lose with the soft limit", "alice soft nproc 7\n* - nproc 9\n", "alice", "nproc 7 ?");
    addRow("the soft limit wins with a lost hard one", "alice hard nproc 70\n* - nproc 9\n", "alice", "nproc 9 70");
}

static void addLines()
{
    const bool isEarlier = PamLimits::Module::installed().anySpaceSeparates;
    addRow("comments",
           "# * hard nproc 7\n  # x\n* hard core 8 # * hard nproc 9\n* hard cpu 7#5\n",
           "alice",
           "core ? 8, cpu ? 7");
    addRow("comment within a word", "* hard nproc#x 7\n", "alice", "");
    addRow("tabs", "*\thard\tnproc\t7\n\t@staff \t soft  core\t8\t\n", "alice", "core 8 ?, nproc ? 7");
    addRow("other blanks", "* hard nproc\v7\n", "alice", isEarlier ? "nproc ? 7" : "");
    addRow("line ends of other systems",
           "* hard nproc 7\r\n* hard core unlimited\r\n",
           "alice",
           isEarlier ? "core ? unlimited, nproc ? 7" : "nproc ? 7");
    addRow("more than four columns",
           "* hard nproc 7 8 9\n* hard core unlimited 8\n",
           "alice",
           isEarlier ? "core ? unlimited, nproc ? 7" : "nproc ? 7");
    addRow("fewer than four columns", "* hard nproc\n* hard\n*\n", "alice", "");
    addRow("no line end", "* hard nproc 7", "alice", "nproc ? 7");
    addRow("NUL", QByteArray("* hard nproc 7\0 8\n* hard\0 core 7\n", 34), "alice", "nproc ? 7");
    addRow("no folding", "* hard nproc \\\n7\n* hard core 8 \\\n", "alice", "core ? 8");
    addRow("rule on the edge of a long line", QByteArray(1023, ' ') + "* hard nproc 7\n", "alice", "nproc ? 7");
    addRow("rule cut by the edge", QByteArray(1015, ' ') + "* hard nproc 7\n", "alice", isEarlier ? "" : "nproc ? 7");
    addRow("comment that ends at the edge",
           QByteArray(1023, '#') + "* hard nproc 7\n",
           "alice",
           isEarlier ? "nproc ? 7" : "");
    addRow("line of a megabyte",
           QByteArray(1 << 20, ' ') + "* hard nproc 7\n* hard core 8\n",
           "alice",
           "core ? 8, nproc ? 7");
}

static void addVendors()
{
    addRow("sound of professionals",
           "@audio   -  rtprio     95\n@audio   -  memlock    unlimited\n#@audio   -  nice      -19\n",
           "alice",
           "memlock unlimited unlimited, rtprio 95 95");
    addRow("database",
           "oracle\tsoft\tnofile\t1024\nalice\tsoft\tnofile\t1024\nalice\thard\tnofile\t65536\nalice\tsoft\tstack\t1024"
           "0\n",
           "alice",
           "nofile 1024 65536, stack 10240 ?");
    addRow("processes of users",
           "*          soft    nproc     4096\nroot       soft    nproc     unlimited\n",
           "alice",
           "nproc 4096 ?");
    addRow("processes of root",
           "*          soft    nproc     4096\nroot       soft    nproc     unlimited\n",
           "root",
           "nproc unlimited ?");
    addRow("all ids", "0: - memlock unlimited\n", "root", "memlock unlimited unlimited");
    addRow("resident memory", "*\thard\trss\t10000\n@student - rss 5\n", "alice", "rss ? 10000");
    addRow("manual: everybody",
           "*               soft    core            0\n*               hard    nofile          512\n",
           "bob",
           "core 0 ?, nofile ? 512");
    addRow("manual: root",
           "*               hard    nofile          512\nroot            hard    core            100000\n",
           "root",
           "core ? 100000");
    addRow("manual: group",
           "@staff          soft    nproc           20\n@staff          hard    nproc           50\n",
           "bob",
           "nproc 20 50");
    addRow("manual: gid range", "@100:           soft    cpu             10000\n", "bob", "cpu 10000 ?");
    addRow("manual: uid",
           ":1001           hard    cpu             5000\n1000:1010       hard    locks           10\n",
           "alice",
           "cpu ? 5000, locks ? 10");
}

void SessionRulesTest::gives_data()
{
    QTest::addColumn<QByteArray>("rules");
    QTest::addColumn<QByteArray>("user");
    QTest::addColumn<QString>("limits");

    addDomains();
    addRoot();
    addTypes();
    addItems();
    addValues();
    addRanks();
    addLines();
    addVendors();
}

void SessionRulesTest::gives()
{
    QFETCH(QByteArray, rules);
    QFETCH(QByteArray, user);
    QFETCH(QString, limits);

    clearLimits();
    Sandbox::write(limitsPath(), rules);
    const PamLimits::SessionLimits found = PamLimits::SessionLimits::read();
    const PamLimits::Account account = *found.database().find(user);
    QCOMPARE(describe(found.answer(account)), limits);
    if (!m_sessions->error().isEmpty()) {
        QSKIP(qPrintable(m_sessions->error()));
    }
    QCOMPARE(m_comparison.differences(m_sessions->open(user), m_sessions->plain(), found, account), QStringList());
}

QTEST_GUILESS_MAIN(SessionRulesTest)

#include "sessionrulestest.moc"

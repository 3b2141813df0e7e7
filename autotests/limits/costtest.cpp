/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsfixtures.h"

#include <GroupInfo>
#include <UserInfo>

#include <QTest>

#include <cstdlib>

#include <dlfcn.h>
#include <malloc.h>

// The cost of a lookup in calls of malloc(), and that of a rule in memory.

namespace
{
bool s_counting = false;
int s_allocations = 0;
}

extern "C" Q_DECL_EXPORT void *malloc(size_t size) noexcept
{
    static const auto next = reinterpret_cast<void *(*)(size_t)>(dlsym(RTLD_NEXT, "malloc"));
    s_allocations += s_counting;
    return next(size);
}

namespace
{
template<typename Function>
int allocationsOf(Function function)
{
    s_allocations = 0;
    s_counting = true;
    function();
    s_counting = false;
    return s_allocations;
}

LimitsParser repeated(const QByteArray &rule, int count)
{
    return limitsOf(rule.repeated(count) + "* - nproc 5\n");
}
}

class LimitsCostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void countsAllocations();
    void passesOverRulesWithoutAllocation_data();
    void passesOverRulesWithoutAllocation();
    void keepsRepeatedWordsOnce();
};

void LimitsCostTest::init()
{
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts("alice:x:1000:1000::/:\n", "ormel-admin:x:27:\nalice:x:1000:\nstaff:x:50:alice\n");
}

void LimitsCostTest::countsAllocations()
{
    QCOMPARE(allocationsOf([] { QString(100, QLatin1Char('x')); }), 1);
    QCOMPARE(allocationsOf([] {}), 0);
}

void LimitsCostTest::passesOverRulesWithoutAllocation_data()
{
    QTest::addColumn<QByteArray>("rule");
    QTest::addColumn<QString>("item");

    const QString nproc = QStringLiteral("nproc");
    const QString maxlogins = QStringLiteral("maxlogins");
    QTest::newRow("another item") << QByteArray("alice - core 1\n") << nproc;
    QTest::newRow("ids of another item") << QByteArray("//:// - core 1\n") << nproc;
    QTest::newRow("another user") << QByteArray("bob - nproc 1\n") << nproc;
    QTest::newRow("another group") << QByteArray("@audio - nproc 1\n") << nproc;
    QTest::newRow("plain ids") << QByteArray("1000:2000 - nproc 1\n") << nproc;
    QTest::newRow("plain group ids") << QByteArray("@1000:2000 - nproc 1\n") << nproc;
    QTest::newRow("logins of another group") << QByteArray("%audio - maxlogins 1\n") << maxlogins;
}

void LimitsCostTest::passesOverRulesWithoutAllocation()
{
    QFETCH(QByteArray, rule);
    QFETCH(QString, item);

    const UserInfo alice = UserInfo::getUser(QStringLiteral("alice"));
    const GroupInfo staff = GroupInfo::getGroup(QStringLiteral("staff"));
    const LimitsParser few = repeated(rule, 10);
    const LimitsParser many = repeated(rule, 1000);
    QCOMPARE(many.fields().size(), 1001);

    const auto userCost = [&](const LimitsParser &limits) {
        return allocationsOf([&] { limits.getItem(alice, item); });
    };
    const auto groupCost = [&](const LimitsParser &limits) {
        return allocationsOf([&] { limits.getItem(staff, item); });
    };
    userCost(few); // builds what is built on first use
    QCOMPARE(userCost(many), userCost(few));
    QCOMPARE(groupCost(many), groupCost(few));
    QCOMPARE(allocationsOf([&] { many.findField(QStringLiteral("nobody"), item); }), 0);
}

void LimitsCostTest::keepsRepeatedWordsOnce()
{
    constexpr int count = 10000;
    constexpr int length = 1000;
    const QByteArray rule = QByteArray(length, 'd') + ' ' + QByteArray(length, 't') + ' ' + QByteArray(length, 'i');
    Sandbox::write(limitsPath(), QByteArray(rule + " 1\n").repeated(count));
    LimitsParser limits;
    QString error;

    const size_t before = mallinfo2().uordblks;
    QVERIFY(limits.readLimitsConf(error));
    const size_t bytes = mallinfo2().uordblks - before;
    QCOMPARE(limits.fields().size(), count);
    QVERIFY2(bytes / count < length, qPrintable(QString::number(bytes / count)));
}

QTEST_GUILESS_MAIN(LimitsCostTest)

#include "costtest.moc"

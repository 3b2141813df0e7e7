/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsfixtures.h"
#include "runtogether.h"

#include <GroupInfo>
#include <UserInfo>

#include <QTest>

#include <atomic>

// The library's sources are built with the thread sanitizer here, so that a race ends the program with a report.

namespace
{
constexpr int rounds = 200;
}

class LimitsThreadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void buildsToolTipsOnce();
    void looksUpInOneParser();
    void sharesValuesOfOneParser();
    void readsIntoParsersOfItsOwn();

private:
    UserInfo m_user;
    GroupInfo m_group;
};

void LimitsThreadTest::initTestCase()
{
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts("toor:x:0:0::/:\n", "ormel-admin:x:27:\nroot:x:0:\nstaff:x:50:toor\n");
    m_user = UserInfo::getUser(QStringLiteral("toor"));
    m_group = GroupInfo::getGroup(QStringLiteral("root"));
}

// This one comes first: it builds what is built on first use.
void LimitsThreadTest::buildsToolTipsOnce()
{
    std::atomic<int> wrong{0};
    runTogether([&wrong] {
        for (int i = 0; i < rounds; ++i) {
            wrong += !LimitsParser::typeToolTip(QStringLiteral("hard")).startsWith(QLatin1String("This is the hard"));
            wrong += LimitsParser::typeToolTip(QStringLiteral("both")) != QLatin1String("both");
            wrong +=
                LimitsParser::domainToolTip(QStringLiteral("//://")) != QLatin1String("User UID range from // to //");
            wrong += LimitsParser::domainToolTip(QStringLiteral("@//d://"))
                != QLatin1String("Group GID range from //d to //");
            wrong += LimitsParser::itemToolTip(QStringLiteral("data")) != QLatin1String("Maximum data size.");
            wrong += LimitsParser::valueToString(1024, QStringLiteral("data")) != QLatin1String("1024 KB");
            wrong += LimitsParser::availableItems().size() != 19;
            wrong += LimitsParser::fieldDescriptor(QStringLiteral("nice")).minValue != -20;
        }
    });
    QCOMPARE(wrong.load(), 0);
}

void LimitsThreadTest::looksUpInOneParser()
{
    const LimitsParser limits =
        limitsOf("bob - nproc 1\n//d:// - nproc 2\n@//:// - core 3\n* - chroot /srv\n%staff - maxlogins 4\n");
    std::atomic<int> wrong{0};
    runTogether([&wrong, &limits, this] {
        for (int i = 0; i < rounds; ++i) {
            wrong += limits.findField(QStringLiteral("bob"), QStringLiteral("nproc")) != QVariant(1);
            wrong += limits.getItem(m_user, QStringLiteral("nproc")) != QVariant(2);
            wrong += limits.getItem(m_user, QStringLiteral("core")) != QVariant(3);
            wrong += limits.getItem(m_user, QStringLiteral("maxlogins")) != QVariant(4);
            wrong += limits.getItem(m_group, QStringLiteral("core")) != QVariant(3);
            wrong += limits.getItem(m_group, QStringLiteral("chroot")) != QVariant(QStringLiteral("/srv"));
            wrong += limits.getItem(m_group, QStringLiteral("maxlogins")).isValid();
        }
    });
    QCOMPARE(wrong.load(), 0);
}

void LimitsThreadTest::sharesValuesOfOneParser()
{
    const LimitsParser limits = limitsOf("* - chroot /srv\n* - nproc 5\n");
    std::atomic<int> wrong{0};
    runTogether([&wrong, &limits] {
        for (int i = 0; i < rounds; ++i) {
            QList<LimitsParser::Field> rules = limits.fields();
            rules.first().domain.append(QLatin1Char('x'));
            wrong += rules.first().domain != QLatin1String("*x") || rules.last().domain != QLatin1String("*");
        }
    });
    QCOMPARE(wrong.load(), 0);
    const QList<LimitsParser::Field> rules = limits.fields();
    QCOMPARE(rules.first().domain, QStringLiteral("*"));
}

void LimitsThreadTest::readsIntoParsersOfItsOwn()
{
    limitsOf("* - chroot /srv\n* - nproc 5\n");
    std::atomic<int> wrong{0};
    runTogether([&wrong] {
        for (int i = 0; i < rounds / 4; ++i) {
            LimitsParser limits;
            QString error;
            wrong += !limits.readLimitsConf(error) || limits.fields().size() != 2;
        }
    });
    QCOMPARE(wrong.load(), 0);
}

QTEST_GUILESS_MAIN(LimitsThreadTest)

#include "threadtest.moc"

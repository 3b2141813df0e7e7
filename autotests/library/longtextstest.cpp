/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "limitsfixtures.h"
#include "messagerecorder.h"
#include "processortime.h"

#include <GroupInfo>
#include <UserInfo>
#include <UserUtils>

#include <QTest>
#include <QValidator>

#include <memory>

// Texts of megabytes for every parameter that is a text.

namespace
{
constexpr int megabyte = 1 << 20;
constexpr int many = 10 * megabyte;

QValidator::State stateOf(QValidator *(*create)(QObject *), QString text)
{
    const std::unique_ptr<QValidator> validator(create(nullptr));
    int position = text.size();
    return validator->validate(text, position);
}
}

class LongTextsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() const;

    void refusesLongNames();
    void takesLongGecos();
    void refusesNamesByLongPattern();
    void readsLongAccountLines();
    void findsNothingByLongNames();
    void readsLongRules();
    void hashesNoLongPasswords();

private:
    double m_start = 0;
};

void LongTextsTest::init()
{
    Sandbox::removeExtraAccounts();
    Sandbox::remove(adduserConfPath());
    m_start = processorSeconds(RUSAGE_SELF);
}

void LongTextsTest::cleanup() const
{
    const double taken = processorSeconds(RUSAGE_SELF) - m_start;
    QVERIFY2(taken < 10, qPrintable(QString::number(taken)));
}

void LongTextsTest::refusesLongNames()
{
    const QString name(megabyte, QLatin1Char('a'));
    QCOMPARE(stateOf(UserUtils::createUserNameValidator, name), QValidator::Invalid);
    QCOMPARE(stateOf(UserUtils::createGroupNameValidator, name), QValidator::Invalid);
}

void LongTextsTest::takesLongGecos()
{
    const QString field(megabyte, QLatin1Char('a'));
    QCOMPARE(stateOf(UserUtils::createGecosValidator, field), QValidator::Acceptable);
    QCOMPARE(stateOf(UserUtils::createGecosValidator, field + QLatin1String(",,,,") + field), QValidator::Acceptable);
    QCOMPARE(stateOf(UserUtils::createGecosValidator, field + QLatin1String(",,,,") + field + QLatin1Char(',')),
             QValidator::Invalid);
    QCOMPARE(stateOf(UserUtils::createGecosValidator, QString(megabyte, QLatin1Char(','))), QValidator::Invalid);
}

void LongTextsTest::refusesNamesByLongPattern()
{
    const QByteArray pattern(many, 'a');
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"" + pattern + "\"\n");
    const MessageRecorder qtMessages;
    // A pattern of this length is invalid, so no text matches.
    QCOMPARE(stateOf(UserUtils::createUserNameValidator, QStringLiteral("a")), QValidator::Invalid);
}

/** The C library reads a line again for each kilobyte of it: ten times the length takes a hundred times as long. */
void LongTextsTest::readsLongAccountLines()
{
    const QByteArray gecos(megabyte / 4, 'g');
    const QByteArray member(megabyte / 4, 'm');
    Sandbox::setAccounts("alice:x:1000:1000:" + gecos + ":/:\n", "ormel-admin:x:27:\nalice:x:1000:" + member + '\n');

    const QList<UserInfo> users = UserInfo::getUsers();
    QCOMPARE(users.size(), 1);
    QVERIFY(users.at(0).gecos().toLatin1() == gecos);
    QVERIFY(UserInfo::getUser(QStringLiteral("alice")).gecos() == users.at(0).gecos());
    QVERIFY(UserInfo::getUser(1000U).gecos() == users.at(0).gecos());
    const GroupInfo group = GroupInfo::getGroup(1000U);
    QVERIFY(group.users() == QStringList({QString::fromLatin1(member), QStringLiteral("alice")}));
    QVERIFY(GroupInfo::getGroups().at(1) == group);
    QVERIFY(users.at(0).primaryGroup() == group);
}

void LongTextsTest::findsNothingByLongNames()
{
    Sandbox::setAccounts(manyUsers(1), manyGroups(1));
    const QString name(many, QLatin1Char('a'));
    MessageRecorder recorder;
    QVERIFY(UserInfo::getUser(name).isEmpty());
    QVERIFY(!GroupInfo::getGroup(1000U).isPrimaryOf(name));
    QVERIFY(recorder.takeTexts().isEmpty());
    QVERIFY(GroupInfo::getGroup(name).isEmpty());
    QVERIFY(recorder.takeTexts() == QStringList(groupNotFound(name)));
}

void LongTextsTest::readsLongRules()
{
    const QByteArray domain(many, 'd');
    const QList<LimitsParser::Field> rules =
        limitsOf(domain + " hard nofile 1 " + QByteArray(many, 'x') + '\n' + QByteArray(many, ' ') + "a - core 2\n")
            .fields();
    QCOMPARE(rules.size(), 2);
    QVERIFY(rules.at(0).domain.toLatin1() == domain);
    QCOMPARE(rules.at(1).value.toInt(), 2);
    QVERIFY(LimitsParser::domainToolTip(rules.at(0).domain)
            == QString(QLatin1String("User name: \"") + rules.at(0).domain + QLatin1Char('"')));
    QVERIFY(LimitsParser::typeToolTip(rules.at(0).domain) == rules.at(0).domain);
    QVERIFY(LimitsParser::itemToolTip(rules.at(0).domain) == rules.at(0).domain);
}

void LongTextsTest::hashesNoLongPasswords()
{
    const QString password(many, QLatin1Char('p'));
    QVERIFY(UserUtils::saltPassword(password, false).startsWith(QLatin1Char('*')));
#ifdef BUILT_GOST_CRYPT
    QVERIFY(UserUtils::saltPassword(password, true).isNull());
#endif
}

QTEST_GUILESS_MAIN(LongTextsTest)

#include "longtextstest.moc"

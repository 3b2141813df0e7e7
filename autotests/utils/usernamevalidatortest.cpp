/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "messagerecorder.h"
#include "processortime.h"
#include "sandbox.h"
#include "validatorfixtures.h"

#include <UserUtils>

#include <QTest>

#include <memory>

class UserNameValidatorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void checksUserNamesWithoutConfiguration_data();
    void checksUserNamesWithoutConfiguration();
    void matchesWholeNameWithConfiguredPattern_data();
    void matchesWholeNameWithConfiguredPattern();
    void acceptsNothingWithInvalidPattern();
    void takesPatternThatIsValidInsideAnchorsOnly();

    void givesUpPatternsThatBacktrackWithoutEnd_data();
    void givesUpPatternsThatBacktrackWithoutEnd();
};

void UserNameValidatorTest::init()
{
    Sandbox::remove(adduserConfPath());
}

void UserNameValidatorTest::checksUserNamesWithoutConfiguration_data()
{
    addRows({
        {"user1", Accepted},
        {"a", Accepted},
        {"a-b_c9-", Accepted},
        {"", Unfinished},
        {"_user", Rejected},
        {"user$", Rejected},
        {"1user", Rejected},
        {"-user", Rejected},
        {"User", Rejected},
        {"usEr", Rejected},
        {"us er", Rejected},
        {" user", Rejected},
        {"user ", Rejected},
        {"us.er", Rejected},
        {"us\\er", Rejected},
        {"ren\u00e9", Rejected},
    });
}

void UserNameValidatorTest::checksUserNamesWithoutConfiguration()
{
    QFETCH(QString, text);
    QFETCH(QValidator::State, state);

    MessageRecorder recorder;
    QCOMPARE(check(UserUtils::createUserNameValidator, text), state);
    QCOMPARE(namePattern(), fallback());
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserNameValidatorTest::matchesWholeNameWithConfiguredPattern_data()
{
    QTest::addColumn<QByteArray>("pattern");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("state");

    const auto add = [](const char *pattern, const QString &text, QValidator::State state) {
        QTest::addRow("%s with %s", qPrintable(text), qPrintable(QString::fromLatin1(pattern)))
            << QByteArray(pattern) << text << state;
    };
    add("[a-z]+", QStringLiteral("abc"), Accepted);
    add("[a-z]+", QStringLiteral("abc1"), Rejected);
    add("[a-z]+", QStringLiteral("1abc"), Rejected);
    add("^[a-z]+$", QStringLiteral("abc"), Accepted);
    add("a|bc", QStringLiteral("bc"), Accepted);
    add("a|bc", QStringLiteral("b"), Unfinished);
    add("a|bc", QStringLiteral("abc"), Rejected);
    add("[a-z]+-[0-9]{2}", QStringLiteral("abc"), Unfinished);
    add("[a-z]+-[0-9]{2}", QStringLiteral("abc-1"), Unfinished);
    add("[a-z]+-[0-9]{2}", QStringLiteral("abc-12"), Accepted);
    add("[a-z]+-[0-9]{2}", QStringLiteral("abc-123"), Rejected);
    add("ren\xe9", QStringLiteral("ren\u00e9"), Accepted);
    add("\\w+", QStringLiteral("\u00e9"), Rejected);
    add("(?i)user", QStringLiteral("UsEr"), Accepted);
    add(".*", QStringLiteral("Any Name: 1"), Accepted);
}

void UserNameValidatorTest::matchesWholeNameWithConfiguredPattern()
{
    QFETCH(QByteArray, pattern);
    QFETCH(QString, text);
    QFETCH(QValidator::State, state);

    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"" + pattern + "\"\n");
    QCOMPARE(check(UserUtils::createUserNameValidator, text), state);
}

void UserNameValidatorTest::acceptsNothingWithInvalidPattern()
{
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"[a-z\"\n");
    QCOMPARE(namePattern(), QStringLiteral("[a-z"));
    for (const char *text : {"user", "[a-z", "a"}) {
        QTest::ignoreMessage(QtWarningMsg,
                             "QRegularExpressionPrivate::doMatch(): called on an invalid QRegularExpression object");
        QCOMPARE(check(UserUtils::createUserNameValidator, QLatin1String(text)), Rejected);
    }
}

void UserNameValidatorTest::takesPatternThatIsValidInsideAnchorsOnly()
{
    // Qt puts the pattern into a group, which this pattern closes and opens again.
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"[a-z]+)(?:[0-9]\"\n");
    QCOMPARE(check(UserUtils::createUserNameValidator, QStringLiteral("user1")), Accepted);
    QCOMPARE(check(UserUtils::createUserNameValidator, QStringLiteral("user")), Unfinished);
    QCOMPARE(check(UserUtils::createUserNameValidator, QStringLiteral("user12")), Rejected);
}

void UserNameValidatorTest::givesUpPatternsThatBacktrackWithoutEnd_data()
{
    QTest::addColumn<QByteArray>("pattern");

    const char *patterns[] = {
        "^(a+)+$",
        "(a|aa)+",
        "([a-z]+)*[0-9]",
        "(.*)*x",
        "((a+)+)+b",
        "(a+)+\\1",
        "a*a*a*a*a*a*a*a*a*a*a*a*b",
        "(?:a?){32}a{32}",
        "(?=(a+)+$)(a+)+$",
        "(a|(?1)(?1))*b",
    };
    for (const char *pattern : patterns) {
        QTest::newRow(pattern) << QByteArray(pattern);
    }
}

/** The user goes on typing while the regular expression is matched. */
void UserNameValidatorTest::givesUpPatternsThatBacktrackWithoutEnd()
{
    QFETCH(QByteArray, pattern);

    constexpr double longest = 1; // in seconds; a fiftieth of it is usual
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"" + pattern + "\"\n");
    const std::unique_ptr<QValidator> validator(UserUtils::createUserNameValidator(nullptr));
    for (const int length : {1, 10, 20, 25, 31}) {
        QString text = letters(length) + QLatin1Char('!');
        int position = 0;
        const double start = processorSeconds(RUSAGE_SELF);
        QVERIFY(validator->validate(text, position) != Accepted);
        const double taken = processorSeconds(RUSAGE_SELF) - start;
        QVERIFY2(taken < longest, qPrintable(QString::number(taken) + QLatin1Char(' ') + text));
    }
}

QTEST_GUILESS_MAIN(UserNameValidatorTest)

#include "usernamevalidatortest.moc"

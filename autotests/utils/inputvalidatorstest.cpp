/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "sandbox.h"
#include "validatorfixtures.h"

#include <UserUtils>

#include <QPointer>
#include <QRegularExpressionValidator>
#include <QTest>

#include <memory>
#include <type_traits>

static_assert(!std::is_default_constructible_v<UserUtils> && !std::is_destructible_v<UserUtils>);

class InputValidatorsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void checksGroupNames_data();
    void checksGroupNames();
    void checksGecos_data();
    void checksGecos();
    void checksLongGecos();

    void createsOneForEachCall_data();
    void createsOneForEachCall();
    void matchesWithDefaultOptions_data();
    void matchesWithDefaultOptions();
    void movesPositionLikeQt_data();
    void movesPositionLikeQt();
    void isOwnedByParent_data();
    void isOwnedByParent();
    void hasNoMetaObjectOfItsOwn_data();
    void hasNoMetaObjectOfItsOwn();
};

void InputValidatorsTest::init()
{
    Sandbox::remove(adduserConfPath());
}

void InputValidatorsTest::checksGroupNames_data()
{
    addRows({
        {"staff", Accepted},
        {"_grp", Accepted},
        {"machine$", Accepted},
        {"_", Accepted},
        {"a-b_c9-", Accepted},
        {"_$", Accepted},
        {"", Unfinished},
        {"$", Rejected},
        {"Grp", Rejected},
        {"1grp", Rejected},
        {"-grp", Rejected},
        {"machine$$", Rejected},
        {"ma$chine", Rejected},
        {"gr p", Rejected},
        {"g\u00e4ste", Rejected},
    });
}

void InputValidatorsTest::checksGroupNames()
{
    QFETCH(QString, text);
    QFETCH(QValidator::State, state);

    // The file only applies to user names.
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"[0-9]+\"\n");
    QCOMPARE(check(UserUtils::createGroupNameValidator, text), state);
}

void InputValidatorsTest::checksGecos_data()
{
    addRows({
        {"", Accepted},
        {"a,b,c,d,e", Accepted},
        {",,,,", Accepted},
        {"Ren\u00e9 M\u00fcller, 1 <x@y>: \"'\\", Accepted},
        {"a,b,c,d,e,f", Rejected},
        {",,,,,", Rejected},
        {"a,b,c,d,e,", Rejected},
    });
}

void InputValidatorsTest::checksGecos()
{
    QFETCH(QString, text);
    QFETCH(QValidator::State, state);

    QCOMPARE(check(UserUtils::createGecosValidator, text), state);
}

void InputValidatorsTest::checksLongGecos()
{
    const QString longText = letters(10000);
    QCOMPARE(check(UserUtils::createGecosValidator, longText), Accepted);
    QCOMPARE(check(UserUtils::createGecosValidator, longText + QStringLiteral("\n\t,,,,") + longText), Accepted);
    QCOMPARE(check(UserUtils::createGecosValidator, longText + QStringLiteral(",,,,,")), Rejected);
}

void InputValidatorsTest::createsOneForEachCall_data()
{
    addFactories();
}

void InputValidatorsTest::createsOneForEachCall()
{
    QFETCH(Factory, create);

    const std::unique_ptr<QValidator> first(create(nullptr));
    const std::unique_ptr<QValidator> second(create(nullptr));
    QVERIFY(first != second);
    QVERIFY(!first->parent());
    QCOMPARE(patternOf(first.get()), patternOf(second.get()));
}

void InputValidatorsTest::matchesWithDefaultOptions_data()
{
    addFactories();
}

void InputValidatorsTest::matchesWithDefaultOptions()
{
    QFETCH(Factory, create);

    const std::unique_ptr<QValidator> validator(create(nullptr));
    QCOMPARE(int(expressionOf(validator.get()).patternOptions()), int(QRegularExpression::NoPatternOption));
}

void InputValidatorsTest::movesPositionLikeQt_data()
{
    addFactories();
}

void InputValidatorsTest::movesPositionLikeQt()
{
    QFETCH(Factory, create);

    const std::unique_ptr<QValidator> validator(create(nullptr));
    const QRegularExpressionValidator plain(QRegularExpression(patternOf(validator.get())));
    for (const char *text : {"", "user", "US", ",,,,,", "a$b"}) {
        QString input = QLatin1String(text);
        QString plainInput = input;
        int pos = 1;
        int plainPos = 1;
        QCOMPARE(validator->validate(input, pos), plain.validate(plainInput, plainPos));
        QCOMPARE(input, plainInput);
        QCOMPARE(pos, plainPos);
    }
}

void InputValidatorsTest::isOwnedByParent_data()
{
    addFactories();
}

void InputValidatorsTest::isOwnedByParent()
{
    QFETCH(Factory, create);

    auto parent = std::make_unique<QObject>();
    const QPointer<QValidator> validator = create(parent.get());
    QCOMPARE(validator->parent(), parent.get());
    parent.reset();
    QVERIFY(!validator);
}

void InputValidatorsTest::hasNoMetaObjectOfItsOwn_data()
{
    addFactories();
}

void InputValidatorsTest::hasNoMetaObjectOfItsOwn()
{
    QFETCH(Factory, create);

    const std::unique_ptr<QValidator> validator(create(nullptr));
    QCOMPARE(validator->metaObject(), &QRegularExpressionValidator::staticMetaObject);
}

QTEST_GUILESS_MAIN(InputValidatorsTest)

#include "inputvalidatorstest.moc"

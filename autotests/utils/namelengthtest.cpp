/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "sandbox.h"
#include "validatorfixtures.h"

#include <UserUtils>

#include <QLineEdit>
#include <QTest>

#include <memory>

class NameLengthTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void limitsNames_data();
    void limitsNames();
    void limitsNamesThatCouldBecomeValid();
    void countsUtf16Units();
    void leavesTooLongInputAlone_data();
    void leavesTooLongInputAlone();
    void stopsTypingAtTheLimit_data();
    void stopsTypingAtTheLimit();
};

void NameLengthTest::init()
{
    Sandbox::remove(adduserConfPath());
}

void NameLengthTest::limitsNames_data()
{
    addNameFactories();
}

void NameLengthTest::limitsNames()
{
    QFETCH(Factory, create);

    QCOMPARE(check(create, letters(31)), Accepted);
    QCOMPARE(check(create, letters(32)), Accepted);
    QCOMPARE(check(create, letters(33)), Rejected);
    QCOMPARE(check(create, letters(1000)), Rejected);
}

void NameLengthTest::limitsNamesThatCouldBecomeValid()
{
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"a*b\"\n");
    QCOMPARE(check(UserUtils::createUserNameValidator, letters(32)), Unfinished);
    QCOMPARE(check(UserUtils::createUserNameValidator, letters(33)), Rejected);
}

void NameLengthTest::countsUtf16Units()
{
    const QString smile = QString::fromUtf8("\xf0\x9f\x99\x82");
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\".*\"\n");
    QCOMPARE(check(UserUtils::createUserNameValidator, smile.repeated(16)), Accepted);
    QCOMPARE(check(UserUtils::createUserNameValidator, smile.repeated(16) + QLatin1Char('a')), Rejected);
}

void NameLengthTest::leavesTooLongInputAlone_data()
{
    addNameFactories();
}

void NameLengthTest::leavesTooLongInputAlone()
{
    QFETCH(Factory, create);

    const std::unique_ptr<QValidator> validator(create(nullptr));
    QString input = letters(33);
    int pos = 7;
    QCOMPARE(validator->validate(input, pos), Rejected);
    QCOMPARE(input, letters(33));
    QCOMPARE(pos, 7);
}

void NameLengthTest::stopsTypingAtTheLimit_data()
{
    addNameFactories();
}

void NameLengthTest::stopsTypingAtTheLimit()
{
    QFETCH(Factory, create);

    QLineEdit edit;
    edit.setValidator(create(&edit));
    QTest::keyClicks(&edit, letters(32));
    QCOMPARE(edit.text(), letters(32));
    QTest::keyClick(&edit, Qt::Key_A);
    QCOMPARE(edit.text(), letters(32));

    QTest::keyClick(&edit, Qt::Key_Backspace);
    QTest::keyClicks(&edit, QStringLiteral("Bb"));
    QCOMPARE(edit.text(), letters(31) + QLatin1Char('b'));
}

QTEST_MAIN(NameLengthTest)

#include "namelengthtest.moc"

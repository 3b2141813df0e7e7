/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "randomscript.h"
#include "sandbox.h"
#include "usericonfixtures.h"

#include <UserUtils>

#include <QFile>
#include <QTest>

class DefaultUserIconTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void prefersDefaultInSubdirectory();
    void prefersFirstDefault();
    void prefersOwnDefaultToThatOfParent();
    void prefersFilesThatBeginWithDefaultNameOnly_data();
    void prefersFilesThatBeginWithDefaultNameOnly();

    void looksAtNamesOfFilesOnly();
    void returnsPathOfLink();

    void avoidsDefault();
    void avoidsNameAnywhere_data();
    void avoidsNameAnywhere();
    void movesFromLastToFirst();
    void movesOnceOnly();
    void returnsDefaultWhenItIsTheOnlyOne();
    void returnsOtherDefaultWhenThereAreOnlySuch();
    void avoidsOtherNamesThatContainItWhenPreferring();
};

void DefaultUserIconTest::init()
{
    Sandbox::clear(inKiv(""));
}

void DefaultUserIconTest::prefersDefaultInSubdirectory()
{
    makeFaces({"a.png", "b.png", "sub/default-user-red.png"});
    const QString icon = inFaces("sub/default-user-red.png");
    for (int i = 0; i < 50; ++i) {
        QCOMPARE(UserUtils::getRandomUserIcon(true), icon);
    }
}

void DefaultUserIconTest::prefersFirstDefault()
{
    makeFaces({"default-user-red.svg", "default-user-red.png", "sub/default-user-red."});
    QCOMPARE(UserUtils::getRandomUserIcon(true), inFaces("") + listed("").at(0));
}

void DefaultUserIconTest::prefersOwnDefaultToThatOfParent()
{
    makeFaces({"default-user-red.png"});
    make({inKiv("default-user-red.jpg")});
    QCOMPARE(UserUtils::getRandomUserIcon(true), inFaces("default-user-red.png"));

    Sandbox::clear(inFaces(""));
    QCOMPARE(UserUtils::getRandomUserIcon(true), inKiv("default-user-red.jpg"));
}

void DefaultUserIconTest::prefersFilesThatBeginWithDefaultNameOnly_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("preferred");

    QTest::newRow("default-user-red.png") << QStringLiteral("default-user-red.png") << true;
    QTest::newRow("default-user-red.") << QStringLiteral("default-user-red.") << true;
    QTest::newRow("default-user-red.old.png") << QStringLiteral("default-user-red.old.png") << true;
    QTest::newRow("default-user-red") << QStringLiteral("default-user-red") << false;
    QTest::newRow("default-user-red-png") << QStringLiteral("default-user-red-png") << false;
    QTest::newRow("Default-user-red.png") << QStringLiteral("Default-user-red.png") << false;
    QTest::newRow("default-user-RED.png") << QStringLiteral("default-user-RED.png") << false;
    QTest::newRow("my-default-user-red.png") << QStringLiteral("my-default-user-red.png") << false;
}

void DefaultUserIconTest::prefersFilesThatBeginWithDefaultNameOnly()
{
    QFETCH(QString, name);
    QFETCH(bool, preferred);

    makeFaces({"sub/other.png"});
    make({inFaces("sub/") + name});
    const RandomScript random;
    const QString icon = UserUtils::getRandomUserIcon(true);
    QCOMPARE(random.globalDraws(), preferred ? 0 : 1);
    QVERIFY(!preferred || icon == inFaces("sub/") + name);
}

void DefaultUserIconTest::looksAtNamesOfFilesOnly()
{
    makeFaces({"default-user-red.d/one.png", "default-user-red.d/two.png"});
    QStringList expected;
    const QStringList names = listed("default-user-red.d");
    for (const QString &name : names) {
        expected.append(inFaces("default-user-red.d/") + name);
    }
    QCOMPARE(picks(2), expected);
    QCOMPARE(picks(2, true), expected);
}

void DefaultUserIconTest::returnsPathOfLink()
{
    makeFaces({});
    make({inKiv("icons/red.png")});
    const QString link = inFaces("default-user-red.png");
    QVERIFY(QFile::link(inKiv("icons/red.png"), link));
    QCOMPARE(UserUtils::getRandomUserIcon(true), link);
    QCOMPARE(picks(2), QStringList({link, link}));
}

void DefaultUserIconTest::avoidsDefault()
{
    makeFaces({"sub/default-user-red.png", "sub/other.png"});
    const QString other = inFaces("sub/other.png");
    QCOMPARE(picks(2), QStringList({other, other}));
}

void DefaultUserIconTest::avoidsNameAnywhere_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("avoided");

    QTest::newRow("default-user-red.png") << QStringLiteral("default-user-red.png") << true;
    QTest::newRow("my-default-user-red.png") << QStringLiteral("my-default-user-red.png") << true;
    QTest::newRow("my-default-user-red.") << QStringLiteral("my-default-user-red.") << true;
    QTest::newRow("default-user-red") << QStringLiteral("default-user-red") << false;
    QTest::newRow("Default-user-red.png") << QStringLiteral("Default-user-red.png") << false;
}

void DefaultUserIconTest::avoidsNameAnywhere()
{
    QFETCH(QString, name);
    QFETCH(bool, avoided);

    makeFaces({"sub/other.png"});
    make({inFaces("sub/") + name});
    QCOMPARE(picks(2).count(inFaces("sub/") + name), avoided ? 0 : 1);
}

void DefaultUserIconTest::movesFromLastToFirst()
{
    makeFaces({"sub/a.png", "sub/b.png", "sub/x-default-user-red.png"});
    const QStringList names = listed("sub");
    const int at = names.indexOf(QStringLiteral("x-default-user-red.png"));
    QCOMPARE(picks(3).at(at), inFaces("sub/") + names.at((at + 1) % 3));
}

void DefaultUserIconTest::movesOnceOnly()
{
    makeFaces({"sub/default-user-red.1", "sub/default-user-red.2", "sub/other.png"});
    const QStringList names = listed("sub");
    QStringList expected;
    for (int i = 0; i < 3; ++i) {
        const bool isDefault = names.at(i).startsWith(QLatin1String("default"));
        expected.append(inFaces("sub/") + names.at(isDefault ? (i + 1) % 3 : i));
    }
    QCOMPARE(picks(3), expected);
    QCOMPARE(expected.count(inFaces("sub/other.png")), 2);
}

void DefaultUserIconTest::returnsDefaultWhenItIsTheOnlyOne()
{
    makeFaces({"sub/default-user-red.png"});
    QCOMPARE(picks(1), QStringList(inFaces("sub/default-user-red.png")));
}

void DefaultUserIconTest::returnsOtherDefaultWhenThereAreOnlySuch()
{
    makeFaces({"sub/default-user-red.1", "sub/default-user-red.2"});
    const QStringList names = listed("sub");
    QCOMPARE(picks(2),
             QStringList({
                 inFaces("sub/") + names.at(1),
                 inFaces("sub/") + names.at(0),
             }));
}

void DefaultUserIconTest::avoidsOtherNamesThatContainItWhenPreferring()
{
    // Not preferred, since its name begins otherwise. Avoided after that.
    makeFaces({"sub/my-default-user-red.png", "sub/other.png"});
    const QString other = inFaces("sub/other.png");
    QCOMPARE(picks(2, true), QStringList({other, other}));
}

QTEST_GUILESS_MAIN(DefaultUserIconTest)

#include "defaultusericontest.moc"

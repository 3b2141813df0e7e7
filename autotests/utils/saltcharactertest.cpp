/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "randomscript.h"
#include "saltdraws.h"

#include <UserUtils>

#include <QTest>

class SaltCharacterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mapsDrawsToSaltCharacters_data();
    void mapsDrawsToSaltCharacters();
    void drawsFromSystemGenerator();
    void drawsSaltCharactersUniformly();
};

void SaltCharacterTest::mapsDrawsToSaltCharacters_data()
{
    QTest::addColumn<quint32>("lowest");
    QTest::addColumn<quint32>("highest");
    QTest::addColumn<char>("character");

    for (quint32 i = 0; i < 64; ++i) {
        QTest::addRow("%c", saltAlphabet[i]) << (i << 26) << (i << 26 | 0x3ffffff) << saltAlphabet[i];
    }
}

void SaltCharacterTest::mapsDrawsToSaltCharacters()
{
    QFETCH(quint32, lowest);
    QFETCH(quint32, highest);
    QFETCH(char, character);

    const RandomScript random({lowest, highest});
    QCOMPARE(UserUtils::saltCharacter(), character);
    QCOMPARE(UserUtils::saltCharacter(), character);
}

void SaltCharacterTest::drawsFromSystemGenerator()
{
    const RandomScript random;
    UserUtils::saltCharacter();
    QCOMPARE(random.systemDraws(), 1);
    QCOMPARE(random.globalDraws(), 0);
    QCOMPARE(random.otherDraws(), 0);
}

void SaltCharacterTest::drawsSaltCharactersUniformly()
{
    constexpr int draws = 100000;
    constexpr double expected = draws / 64.0;
    QHash<char, int> counts;
    for (int i = 0; i < draws; ++i) {
        ++counts[UserUtils::saltCharacter()];
    }

    double chiSquare = 0;
    int counted = 0;
    const QByteArray alphabet = saltAlphabet;
    for (const char c : alphabet) {
        const double difference = counts.value(c) - expected;
        chiSquare += difference * difference / expected;
        counted += counts.value(c);
    }
    QCOMPARE(counted, draws);
    // With 63 degrees of freedom, a uniform source exceeds this once in 10^9 runs.
    QVERIFY2(chiSquare < 155.1, QByteArray::number(chiSquare).constData());
}

QTEST_GUILESS_MAIN(SaltCharacterTest)

#include "saltcharactertest.moc"

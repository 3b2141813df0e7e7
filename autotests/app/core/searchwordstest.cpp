/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "searchwords.h"

#include <QTest>

class SearchWordsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesTextApart_data();
    void takesTextApart();
    void findsWordsInAnyCase();
    void findsNumbersByTheirDigits();
    void tellsWhereHitsAre_data();
    void tellsWhereHitsAre();
};

void SearchWordsTest::takesTextApart_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("words");

    QTest::newRow("nothing") << QString() << QString();
    QTest::newRow("spaces") << QStringLiteral(" \t ") << QString();
    QTest::newRow("one word") << QStringLiteral("ada") << QStringLiteral("ada");
    QTest::newRow("two words") << QStringLiteral("  ada \t 10 ") << QStringLiteral("ada|10 number");
    QTest::newRow("other digits") << QStringLiteral(u"\u0661") << QStringLiteral(u"\u0661");
    QTest::newRow("signs") << QStringLiteral("-1 .* /bin/") << QStringLiteral("-1|.*|/bin/");
}

void SearchWordsTest::takesTextApart()
{
    QFETCH(QString, text);
    QFETCH(QString, words);

    const SearchWords search(text);
    QStringList found;
    for (const SearchWords::Word &word : search.words()) {
        found.append(word.text + (word.isNumber ? QStringLiteral(" number") : QString()));
    }
    QCOMPARE(found.join(QLatin1Char('|')), words);
    QCOMPARE(search.isEmpty(), words.isEmpty());
}

void SearchWordsTest::findsWordsInAnyCase()
{
    const SearchWords::Word word = SearchWords(QStringLiteral(u"\u00d6St")).words().at(0);
    QVERIFY(word.isIn(QStringLiteral(u"Ada \u00f6stlund")));
    QVERIFY(!word.isIn(QStringLiteral("Ada Ostlund")));
    QVERIFY(word.isIn(QStringList({QStringLiteral("a"), QStringLiteral(u"\u00f6ST")})));
    QVERIFY(!word.isIn(QStringList()));
}

void SearchWordsTest::findsNumbersByTheirDigits()
{
    const SearchWords::Word word = SearchWords(QStringLiteral("100")).words().at(0);
    QVERIFY(word.isIn(1001U));
    QVERIFY(word.isIn(21003U));
    QVERIFY(!word.isIn(1010U));
    QVERIFY(!SearchWords(QStringLiteral("a1")).words().at(0).isIn(1U));
    QVERIFY(SearchWords(QStringLiteral("90")).words().at(0).isIn(1900U));
}

void SearchWordsTest::tellsWhereHitsAre_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("marked");

    QTest::newRow("none") << "x"
                          << "ada"
                          << "ada";
    QTest::newRow("at the edges") << "a"
                                  << "ada"
                                  << "[a]d[a]";
    QTest::newRow("all") << "ADA"
                         << "ada"
                         << "[ada]";
    QTest::newRow("two words") << "by ad"
                               << "Ada Byron"
                               << "[Ad]a [By]ron";
    QTest::newRow("words that overlap") << "ana nan"
                                        << "banana"
                                        << "b[anana]";
    QTest::newRow("word that overlaps itself") << "aa"
                                               << "baaac"
                                               << "b[aaa]c";
    QTest::newRow("one word in another") << "a ada"
                                         << "ada and"
                                         << "[ada] [a]nd";
    QTest::newRow("empty text") << "a"
                                << ""
                                << "";
    QTest::newRow("no search") << ""
                               << "ada"
                               << "ada";
}

void SearchWordsTest::tellsWhereHitsAre()
{
    QFETCH(QString, search);
    QFETCH(QString, text);
    QFETCH(QString, marked);

    QVector<SearchWords::Hit> hits = SearchWords(search).hitsIn(text);
    while (!hits.isEmpty()) {
        const SearchWords::Hit hit = hits.takeLast();
        text.insert(hit.start + hit.length, QLatin1Char(']'));
        text.insert(hit.start, QLatin1Char('['));
    }
    QCOMPARE(text, marked);
}

QTEST_GUILESS_MAIN(SearchWordsTest)

#include "searchwordstest.moc"

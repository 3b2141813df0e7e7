/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "csv.h"

#include <QTest>

class CsvTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quotesWhereNeeded_data();
    void quotesWhereNeeded();
};

void CsvTest::quotesWhereNeeded_data()
{
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QString>("line");

    QTest::newRow("words") << QStringList({QStringLiteral("a"), QStringLiteral("b c")}) << QStringLiteral("a,b c\n");
    QTest::newRow("comma") << QStringList(QStringLiteral("a,b")) << QStringLiteral("\"a,b\"\n");
    QTest::newRow("quotes") << QStringList(QStringLiteral("a\"b\"")) << QStringLiteral("\"a\"\"b\"\"\"\n");
    QTest::newRow("space before") << QStringList(QStringLiteral(" a")) << QStringLiteral("\" a\"\n");
    QTest::newRow("space behind") << QStringList(QStringLiteral("a ")) << QStringLiteral("\"a \"\n");
    QTest::newRow("line end") << QStringList(QStringLiteral("a\nb")) << QStringLiteral(u"a\u240ab\n");
}

void CsvTest::quotesWhereNeeded()
{
    QFETCH(QStringList, values);
    QFETCH(QString, line);

    QCOMPARE(csvLine(values), line);
}

QTEST_GUILESS_MAIN(CsvTest)

#include "csvtest.moc"

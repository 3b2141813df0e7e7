/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "rowtable.h"
#include "texts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace
{
RowTable::Cell cell(const QString &text)
{
    return {text, text};
}

RowTable table(const QVector<RowTable::Cell> &row)
{
    RowTable table;
    for (int column = 0; column < row.size(); ++column) {
        table.ids.append(text("id%1").arg(column));
        table.titles.append(text("Title %1").arg(column));
    }
    table.rows = {row};
    return table;
}
}

class RowTableTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesLines();
    void writesCsvFields_data();
    void writesCsvFields();
    void writesTitlesAboveCsv();
    void writesJson();
    void writesNothingOfNoRows();
};

void RowTableTest::writesLines()
{
    RowTable rows = table({cell(text("ada")), cell(text("Ada\tB\nC\x1b"))});
    rows.rows.append({cell(text("bob")), cell(QString())});
    const QStringList lines = rows.toText().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.at(0).count(QLatin1Char('\t')), 1);
    QVERIFY(!lines.at(0).contains(QChar(0x1b)));
    QCOMPARE(lines.at(1), text("bob\t"));
}

void RowTableTest::writesCsvFields_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("field");

    QTest::newRow("plain") << text("ada") << text("ada");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("comma") << text("a,b") << text("\"a,b\"");
    QTest::newRow("quote") << text(R"(a "b")") << text(R"("a ""b""")");
    QTest::newRow("line end") << text("a\nb") << text("\"a\nb\"");
    QTest::newRow("carriage return") << text("a\rb") << text("\"a\rb\"");
    QTest::newRow("spaces at the ends") << text(" a ") << text("\" a \"");
    QTest::newRow("spaces within") << text("a b") << text("a b");
    QTest::newRow("number") << text("1000") << text("1000");
    for (const char *formula : {"=1+1", "+49", "-2", "@SUM(A1)"}) {
        QTest::newRow(formula) << text(formula) << text("\"'%1\"").arg(text(formula));
    }
}

void RowTableTest::writesCsvFields()
{
    QFETCH(QString, value);
    QFETCH(QString, field);

    QCOMPARE(table({cell(value), cell(text("x"))}).toCsv(), text("Title 0,Title 1\r\n") + field + text(",x\r\n"));
}

void RowTableTest::writesTitlesAboveCsv()
{
    RowTable rows = table({cell(text("x"))});
    rows.titles = QStringList(text("a,b"));
    QCOMPARE(rows.toCsv(), text("\"a,b\"\r\nx\r\n"));
}

void RowTableTest::writesJson()
{
    // The override of the writing direction is written in parts, so that it does not act on this source.
    const QString misleading = text("ada \x1b") + QChar(0x202e);
    const RowTable rows = table({
        {misleading, misleading},
        {text("1,000"), 4294967295U},
        {text("Yes"), true},
        {text("a, b"), QStringList({text("a"), text("b")})},
    });
    const QByteArray json = rows.toJson();
    const QJsonObject expected{
        {text("id0"), misleading},
        {text("id1"), 4294967295.0},
        {text("id2"), true},
        {text("id3"), QJsonArray({text("a"), text("b")})},
    };
    QCOMPARE(QJsonDocument::fromJson(json).array(), QJsonArray({expected}));
    QVERIFY(json.contains(R"(\u202e)"));
}

void RowTableTest::writesNothingOfNoRows()
{
    const RowTable empty;
    QCOMPARE(empty.toText(), QString());
    QCOMPARE(QJsonDocument::fromJson(empty.toJson()).array(), QJsonArray());
    RowTable titled = table({cell(text("x"))});
    titled.rows.clear();
    QCOMPARE(titled.toCsv(), text("Title 0\r\n"));
}

QTEST_GUILESS_MAIN(RowTableTest)

#include "rowtabletest.moc"

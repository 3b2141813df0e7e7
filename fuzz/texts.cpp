/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "csv.h"
#include "fuzzing.h"
#include "recordtext.h"
#include "rowtable.h"
#include "texttable.h"
#include "visibletext.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using Fuzzing::require;
using Fuzzing::requireEqual;

// An input is a table: each line is a row, with a tab between its cells, which are bytes as account
// files have them. "\n", "\t" and "\\" in a cell stand for these characters.

namespace
{
constexpr int mostRows = 50;
constexpr int columnCount = 3;

/** The bytes of @p cell as the library's records hold them. */
QString unescaped(QByteArray cell)
{
    cell.replace("\\n", "\n").replace("\\t", "\t").replace("\\\\", "\\");
    return QString::fromLatin1(cell);
}

/** Whether a character acts on what is around it. Goes by its number, unlike the code under test. */
bool isActive(uint character)
{
    return character < 0x20 || (character >= 0x7f && character <= 0x9f) || character == 0xad || character == 0x61c
        || character == 0x200b || character == 0x200e || character == 0x200f
        || (character >= 0x2028 && character <= 0x202e) || (character >= 0x2060 && character <= 0x206f)
        || character == 0xfeff || (character >= 0xe0000 && character <= 0xe007f);
}

void requireHarmless(const QString &text, const QString &allowed, const char *about)
{
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters) {
        require(!isActive(character) || (character < 0x80 && allowed.contains(QChar(character))),
                QStringLiteral("%1 has the character %2").arg(QLatin1String(about)).arg(character, 0, 16));
    }
}

/** The cells of a line of comma-separated values, and the text after it. */
QStringList takeCsvLine(QString &csv, const QString &lineEnd)
{
    QStringList cells{QString()};
    bool isQuoted = false;
    int at = 0;
    for (; at < csv.size(); ++at) {
        const QChar c = csv.at(at);
        if (isQuoted && c == QLatin1Char('"') && csv.mid(at + 1, 1) == QLatin1String("\"")) {
            cells.last() += csv.at(++at);
        } else if (c == QLatin1Char('"')) {
            isQuoted = !isQuoted;
        } else if (!isQuoted && csv.midRef(at).startsWith(lineEnd)) {
            break;
        } else if (!isQuoted && c == QLatin1Char(',')) {
            cells.append(QString());
        } else {
            cells.last() += c;
        }
    }
    require(at < csv.size(), QStringLiteral("A line has an end"));
    csv.remove(0, at + lineEnd.size());
    return cells;
}

QString joined(const QStringList &texts)
{
    return texts.join(QChar(0xffff));
}

void checkCell(const QString &record)
{
    const QString text = RecordText::decode(record);
    require(RecordText::encode(text).contains(record), QStringLiteral("A record is found by what is shown of it"));
    const QString visible = VisibleText::fromText(text);
    requireHarmless(visible, {}, "A visible text");
    requireEqual(VisibleText::fromText(visible), visible, "A visible text, made visible again");
    require(VisibleText::isolated(text).contains(visible), QStringLiteral("An isolated text is the visible one"));
}

void checkLine(const QStringList &cells)
{
    QStringList visible = cells;
    std::transform(visible.begin(), visible.end(), visible.begin(), VisibleText::fromText);
    QString csv = csvLine(cells);
    requireHarmless(csv, QStringLiteral("\n"), "A line of values");
    requireEqual(joined(takeCsvLine(csv, QStringLiteral("\n"))), joined(visible), "A line of values, read again");
    require(csv.isEmpty(), QStringLiteral("It is one line"));
}

/** The text with an apostrophe in front if a spreadsheet would take it for a formula. */
QString withoutFormula(const QString &text)
{
    const bool isFormula = !text.isEmpty() && QStringLiteral("=+-@\t\r").contains(text.at(0));
    return isFormula ? QLatin1Char('\'') + text : text;
}

void checkCsv(const RowTable &table, const QVector<QStringList> &rows)
{
    QString csv = table.toCsv();
    takeCsvLine(csv, QStringLiteral("\r\n"));
    for (QStringList row : rows) {
        std::transform(row.begin(), row.end(), row.begin(), withoutFormula);
        requireEqual(joined(takeCsvLine(csv, QStringLiteral("\r\n"))), joined(row), "A row, read again");
    }
    require(csv.isEmpty(), QStringLiteral("There is no further row"));
}

void checkJson(const RowTable &table, const QVector<QStringList> &rows)
{
    const QByteArray json = table.toJson();
    requireHarmless(QString::fromUtf8(json), QStringLiteral("\n"), "JSON");
    const QJsonArray array = QJsonDocument::fromJson(json).array();
    require(array.size() == rows.size(), QStringLiteral("JSON has each row"));
    for (int row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < columnCount; ++column) {
            // Half of a surrogate pair is no text.
            const QString expected = QString::fromUtf8(rows.at(row).at(column).toUtf8());
            requireEqual(array.at(row).toObject().value(table.ids.at(column)).toString(), expected, "A value");
        }
    }
}

void checkText(const RowTable &table, const QVector<QStringList> &rows)
{
    const QString text = table.toText();
    requireHarmless(text, QStringLiteral("\t\n"), "A text to be copied");
    require(text.count(QLatin1Char('\t')) == rows.size() * (columnCount - 1)
                && text.count(QLatin1Char('\n')) == qMax(0, rows.size() - 1),
            QStringLiteral("A text has a line for each row"));
}

void checkTerminal(const QVector<QStringList> &rows)
{
    TextTable table({{QStringLiteral("a")}, {QStringLiteral("b"), Qt::AlignRight, false}, {QStringLiteral("c")}});
    for (const QStringList &row : rows) {
        table.addRow(row);
    }
    requireHarmless(table.toString(), QStringLiteral("\n"), "A table");
}
}

void Target::prepare()
{
}

void Target::run(const QByteArray &input)
{
    RowTable table;
    table.ids = QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    table.titles = table.ids;
    QVector<QStringList> rows;
    const QList<QByteArray> lines = input.split('\n').mid(0, mostRows);
    for (const QByteArray &line : lines) {
        const QList<QByteArray> cells = line.split('\t');
        QStringList row;
        QVector<RowTable::Cell> values;
        for (int column = 0; column < columnCount; ++column) {
            const QString record = unescaped(cells.value(column));
            checkCell(record);
            row.append(RecordText::decode(record));
            values.append({row.last(), row.last()});
        }
        checkLine(row);
        rows.append(row);
        table.rows.append(values);
    }
    checkCsv(table, rows);
    checkJson(table, rows);
    checkText(table, rows);
    checkTerminal(rows);
}

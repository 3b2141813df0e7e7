/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "rowtable.h"

#include "csv.h"
#include "visibletext.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{
bool isFormula(const QString &text)
{
    return !text.isEmpty() && QStringLiteral("=+-@\t\r").contains(text.at(0));
}

QString toCsvField(const QString &text)
{
    return isFormula(text) ? csvQuoted(QLatin1Char('\'') + text) : csvField(text);
}

QString toCsvLine(const QStringList &texts)
{
    QStringList fields;
    fields.reserve(texts.size());
    for (const QString &text : texts) {
        fields.append(toCsvField(text));
    }
    return fields.join(QLatin1Char(',')) + QLatin1String("\r\n");
}

QStringList textsOf(const QVector<RowTable::Cell> &row)
{
    QStringList texts;
    texts.reserve(row.size());
    for (const RowTable::Cell &cell : row) {
        texts.append(cell.text);
    }
    return texts;
}
}

QString RowTable::toText() const
{
    QStringList lines;
    lines.reserve(rows.size());
    for (const QVector<Cell> &row : rows) {
        QStringList texts = textsOf(row);
        for (QString &text : texts) {
            text = VisibleText::fromText(text);
        }
        lines.append(texts.join(QLatin1Char('\t')));
    }
    return lines.join(QLatin1Char('\n'));
}

QString RowTable::toCsv() const
{
    QString csv = toCsvLine(titles);
    for (const QVector<Cell> &row : rows) {
        csv += toCsvLine(textsOf(row));
    }
    return csv;
}

QByteArray RowTable::toJson() const
{
    QJsonArray array;
    for (const QVector<Cell> &row : rows) {
        QJsonObject object;
        for (int column = 0; column < row.size(); ++column) {
            object.insert(ids.at(column), QJsonValue::fromVariant(row.at(column).value));
        }
        array.append(object);
    }
    return VisibleText::fromJson(QJsonDocument(array).toJson());
}

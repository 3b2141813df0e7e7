/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "visibletext.h"

#include "readingorder.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QVector>

#include <algorithm>

namespace
{
constexpr uint firstPrintable = 0x20;
constexpr uint deleteCharacter = 0x7f;
constexpr uint controlPictures = 0x2400;
constexpr QChar pictureOfDelete(0x2421);

bool isJoiner(uint character)
{
    constexpr uint zeroWidthNonJoiner = 0x200c;
    constexpr uint zeroWidthJoiner = 0x200d;
    return character == zeroWidthNonJoiner || character == zeroWidthJoiner;
}

bool isInvisible(uint character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    case QChar::Other_Format:
        return !isJoiner(character);
    default:
        return false;
    }
}

bool isReadFromRight(uint character)
{
    return QChar::direction(character) == QChar::DirR || QChar::direction(character) == QChar::DirAL;
}

QChar signFor(uint character)
{
    if (character < firstPrintable) {
        return QChar(controlPictures + character);
    }
    return character == deleteCharacter ? pictureOfDelete : QChar(QChar::ReplacementCharacter);
}

QString toText(uint character)
{
    if (QChar::requiresSurrogates(character)) {
        return QString(QChar(QChar::highSurrogate(character))) + QChar(QChar::lowSurrogate(character));
    }
    return QChar(character);
}

/** @p character as JSON strings have it, one escape for each half of a surrogate pair. */
QString escaped(uint character)
{
    QString result;
    const QString text = toText(character);
    for (const QChar unit : text) {
        result += QStringLiteral("\\u%1").arg(unit.unicode(), 4, 16, QLatin1Char('0'));
    }
    return result;
}
}

QString VisibleText::fromText(const QString &text)
{
    const QVector<uint> characters = text.toUcs4();
    if (std::none_of(characters.begin(), characters.end(), isInvisible)) {
        return text;
    }
    QString result;
    result.reserve(text.size());
    for (const uint character : characters) {
        result += isInvisible(character) ? QString(signFor(character)) : toText(character);
    }
    return result;
}

QByteArray VisibleText::fromJson(const QByteArray &json)
{
    // Characters below the first printable one are white space between the values. In strings they are already
    // escaped.
    const auto mustBeEscaped = [](uint character) { return character > firstPrintable && isInvisible(character); };
    const QVector<uint> characters = QString::fromUtf8(json).toUcs4();
    if (std::none_of(characters.begin(), characters.end(), mustBeEscaped)) {
        return json;
    }
    QString result;
    result.reserve(characters.size());
    for (const uint character : characters) {
        result += mustBeEscaped(character) ? escaped(character) : toText(character);
    }
    return result.toUtf8();
}

QString VisibleText::isolated(const QString &text)
{
    const QString visible = fromText(text);
    const QVector<uint> characters = visible.toUcs4();
    const bool canChange =
        QGuiApplication::isRightToLeft() || std::any_of(characters.begin(), characters.end(), isReadFromRight);
    return canChange ? ReadingOrder::isolated(visible) : visible;
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "visibletext.h"

#include <QByteArray>

#include <algorithm>

namespace
{
constexpr ushort firstPrintable = 0x20;
constexpr ushort deleteCharacter = 0x7f;
constexpr ushort controlPictures = 0x2400;
constexpr QChar pictureOfDelete(0x2421);
constexpr QChar firstStrongIsolate(0x2068);
constexpr QChar popDirectionalIsolate(0x2069);

bool isJoiner(QChar character)
{
    constexpr ushort zeroWidthNonJoiner = 0x200c;
    constexpr ushort zeroWidthJoiner = 0x200d;
    return character == QChar(zeroWidthNonJoiner) || character == QChar(zeroWidthJoiner);
}

bool isInvisible(QChar character)
{
    switch (character.category()) {
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

bool isRightToLeft(QChar character)
{
    return character.direction() == QChar::DirR || character.direction() == QChar::DirAL;
}

QChar signFor(QChar character)
{
    if (character.unicode() < firstPrintable) {
        return QChar(controlPictures + character.unicode());
    }
    return character.unicode() == deleteCharacter ? pictureOfDelete : QChar(QChar::ReplacementCharacter);
}
}

QString VisibleText::fromText(const QString &text)
{
    QString result = text;
    if (std::any_of(text.begin(), text.end(), isInvisible)) {
        std::transform(text.begin(), text.end(), result.begin(), [](QChar character) {
            return isInvisible(character) ? signFor(character) : character;
        });
    }
    return result;
}

QByteArray VisibleText::fromJson(const QByteArray &json)
{
    // Those below the first printable one are white space between the values; in strings they are escaped already.
    const auto mustBeEscaped = [](QChar character) {
        return character.unicode() > firstPrintable && isInvisible(character);
    };
    const QString text = QString::fromUtf8(json);
    if (std::none_of(text.begin(), text.end(), mustBeEscaped)) {
        return json;
    }
    QString result;
    result.reserve(text.size());
    for (const QChar character : text) {
        if (mustBeEscaped(character)) {
            result += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
        } else {
            result += character;
        }
    }
    return result.toUtf8();
}

QString VisibleText::isolated(const QString &text)
{
    const QString visible = fromText(text);
    return std::any_of(visible.begin(), visible.end(), isRightToLeft)
        ? firstStrongIsolate + visible + popDirectionalIsolate
        : visible;
}

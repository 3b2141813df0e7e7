/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "shellquote.h"

#include "visibletext.h"

#include <algorithm>

namespace
{
bool isLetterOrDigit(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z')
        || (character >= '0' && character <= '9');
}

/** Whether the character stands for itself in every shell and in every position. */
bool isPlain(char character)
{
    return isLetterOrDigit(character) || QByteArray("_./,:@+-").contains(character);
}

bool isVisible(const QByteArray &argument)
{
    const QString text = QString::fromUtf8(argument);
    return text.toUtf8() == argument && VisibleText::fromText(text) == text;
}

QByteArray octal(char character)
{
    const QByteArray digits = QByteArray::number(uchar(character), 8);
    return '\\' + QByteArray(3 - digits.size(), '0') + digits;
}

/** The argument as the output of printf. The shell drops line ends at the end of it, so these follow. */
QByteArray printed(const QByteArray &argument)
{
    int end = argument.size();
    while (end > 0 && argument.at(end - 1) == '\n') {
        --end;
    }
    const QByteArray line = argument.left(end);
    QByteArray format;
    for (const char character : line) {
        format += isLetterOrDigit(character) || character == ' ' ? QByteArray(1, character) : octal(character);
    }
    const QByteArray lineEnds = argument.mid(end);
    return (format.isEmpty() ? QByteArray() : "\"$(printf '" + format + "')\"")
        + (lineEnds.isEmpty() ? QByteArray() : '\'' + lineEnds + '\'');
}
}

QByteArray quoteForShell(const QByteArray &argument)
{
    if (!argument.isEmpty() && std::all_of(argument.begin(), argument.end(), isPlain)) {
        return argument;
    }
    if (!isVisible(argument)) {
        return printed(argument);
    }
    QByteArray quoted = argument;
    return '\'' + quoted.replace('\'', "'\\''") + '\'';
}

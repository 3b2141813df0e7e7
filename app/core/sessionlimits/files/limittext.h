/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITTEXT_H
#define LIMITTEXT_H

#include <QByteArray>

#include <string_view>

namespace PamLimits
{
/** A part of a file that stays in memory. There may be many lines, so their parts are not copied. */
using Text = std::string_view;

inline QByteArray copyOf(Text text)
{
    return {text.data(), int(text.size())};
}

/** As isspace() in the C locale. */
bool isSpace(char c);

/** A number at the beginning of a text, as strtoul() finds it in base 10. */
struct Number {
    bool hasDigits = false;
    bool isNegative = false;
    /** Whether it needs more than 64 bits; the magnitude is the highest number then. */
    bool isTooLarge = false;
    quint64 magnitude = 0;
    /** How long the text of the number is. */
    size_t length = 0;
};

Number readNumber(Text text);

/** Whether @p text is @p word in lower or upper case. @p word itself is in lower case. */
bool isWord(Text text, Text word);
}

#endif

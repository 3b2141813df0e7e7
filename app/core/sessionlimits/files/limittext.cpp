/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limittext.h"

#include <algorithm>

namespace
{
constexpr quint64 base = 10;
constexpr quint64 highest = ~quint64(0);

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

char toLower(char c)
{
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

void addDigit(PamLimits::Number &number, char c)
{
    const auto digit = quint64(c - '0');
    number.hasDigits = true;
    if (number.isTooLarge || number.magnitude > (highest - digit) / base) {
        number.isTooLarge = true;
        number.magnitude = highest;
    } else {
        number.magnitude = number.magnitude * base + digit;
    }
}
}

bool PamLimits::isSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

PamLimits::Number PamLimits::readNumber(Text text)
{
    Number number;
    size_t i = 0;
    while (i < text.size() && isSpace(text[i])) {
        ++i;
    }
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) {
        number.isNegative = text[i] == '-';
        ++i;
    }
    for (; i < text.size() && isDigit(text[i]); ++i) {
        addDigit(number, text[i]);
    }
    number.length = i;
    return number;
}

bool PamLimits::isWord(Text text, Text word)
{
    return text.size() == word.size()
        && std::equal(text.begin(), text.end(), word.begin(), [](char c, char small) { return toLower(c) == small; });
}

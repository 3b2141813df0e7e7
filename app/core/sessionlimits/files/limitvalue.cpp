/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitvalue.h"

#include <algorithm>
#include <limits>

namespace
{
using PamLimits::Item;
using PamLimits::Number;
using PamLimits::Text;

constexpr int lowestNice = -20;
constexpr int highestNice = 19;

bool meansUnlimited(Text text)
{
    return text == "-1" || text == "-" || PamLimits::isWord(text, "unlimited") || PamLimits::isWord(text, "infinity");
}

bool readSigned(Text text, quint64 &value)
{
    const Number number = PamLimits::readNumber(text);
    // The kernel has no other values. It cuts them, and the module does not refuse them.
    const int limit = number.isNegative ? -lowestNice : highestNice;
    const auto magnitude = int(std::min(number.magnitude, quint64(limit)));
    value = quint64(number.isNegative ? -magnitude : magnitude);
    return number.hasDigits;
}

bool readUnsigned(Item item, Text text, quint64 &value)
{
    const Number number = PamLimits::readNumber(text);
    value = number.isNegative && !number.isTooLarge ? -number.magnitude : number.magnitude;
    if (value >= PamLimits::lowestUnlimited(item)) {
        value = PamLimits::unlimited;
    }
    return number.hasDigits;
}

bool readLogins(Text text, quint64 &value)
{
    const Number number = PamLimits::readNumber(text);
    const bool isNegative = number.isNegative && number.magnitude > 0;
    value = isNegative ? PamLimits::unlimited : std::min(number.magnitude, quint64(std::numeric_limits<int>::max()));
    return number.hasDigits;
}

bool readSwitch(Text text, quint64 &value)
{
    value = text == "1" ? 1 : 0;
    return text == "1" || text == "0";
}
}

bool PamLimits::readValue(Item item, Text text, quint64 &value)
{
    const ItemKind kind = kindOf(item);
    if (kind == ItemKind::Directory) {
        return true;
    }
    if (kind == ItemKind::Switch) {
        return readSwitch(text, value);
    }
    if (isSigned(kind)) {
        return readSigned(text, value);
    }
    if (meansUnlimited(text)) {
        value = unlimited;
        return true;
    }
    return kind == ItemKind::Logins ? readLogins(text, value) : readUnsigned(item, text, value);
}

PamLimits::Value PamLimits::Value::of(Item item, quint64 number)
{
    const bool isUnlimited = number == unlimited && !isSigned(kindOf(item));
    return {isUnlimited ? Kind::Unlimited : Kind::Number, number, {}};
}

QByteArray PamLimits::Value::toText(Item item) const
{
    switch (kind) {
    case Kind::None:
        return {};
    case Kind::Unlimited:
        return "unlimited";
    case Kind::Path:
        return path;
    case Kind::Number:
        break;
    }
    return isSigned(kindOf(item)) ? QByteArray::number(qint64(number)) : QByteArray::number(number);
}

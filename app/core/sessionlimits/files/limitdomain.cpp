/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitdomain.h"

namespace
{
using PamLimits::Domain;
using PamLimits::Number;
using PamLimits::Text;

Domain::Prefix prefixOf(Text text)
{
    switch (text.empty() ? '\0' : text.front()) {
    case '@':
        return Domain::Prefix::Group;
    case '%':
        return Domain::Prefix::Logins;
    default:
        return Domain::Prefix::None;
    }
}

/** Reads the whole @p text as an id. The module keeps 32 bits of it. */
bool readId(Text text, quint32 &id)
{
    const Number number = PamLimits::readNumber(text);
    id = quint32(number.isNegative ? -number.magnitude : number.magnitude);
    return number.hasDigits && !number.isTooLarge && number.length == text.size();
}

Domain::Range readRange(Text text, quint32 &first, quint32 &last)
{
    const size_t colon = text.find(':');
    const Text lower = text.substr(0, colon);
    const Text upper = text.substr(colon + 1);
    if ((lower.empty() && upper.empty()) || (!lower.empty() && !readId(lower, first))
        || (!upper.empty() && !readId(upper, last))) {
        return Domain::Range::Invalid;
    }
    if (lower.empty()) {
        first = last;
        return Domain::Range::One;
    }
    return upper.empty() ? Domain::Range::From : Domain::Range::Between;
}
}

PamLimits::Domain PamLimits::Domain::parse(Text text)
{
    Domain domain;
    domain.text = copyOf(text);
    domain.prefix = prefixOf(text);
    if (text.find(':') != Text::npos) {
        domain.range = readRange(domain.prefix == Prefix::None ? text : text.substr(1), domain.first, domain.last);
    }
    return domain;
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitline.h"

#include "limitvalue.h"

namespace
{
using PamLimits::ItemKind;
using PamLimits::Line;
using PamLimits::LineKind;
using PamLimits::Text;

bool isBlank(char c, const PamLimits::Module &module)
{
    return c == ' ' || c == '\t' || (module.anySpaceSeparates && c >= '\n' && c <= '\r');
}

size_t skip(Text text, size_t at, bool blanks, const PamLimits::Module &module)
{
    while (at < text.size() && isBlank(text[at], module) == blanks) {
        ++at;
    }
    return at;
}

/** The type flags of a word; 0 when it is none. */
quint8 typeOf(Text type)
{
    if (PamLimits::isWord(type, "soft")) {
        return PamLimits::Soft;
    }
    if (PamLimits::isWord(type, "hard")) {
        return PamLimits::Hard;
    }
    return type == "-" ? PamLimits::Both : 0;
}

LineKind readRule(const PamLimits::Columns &columns, Line &line)
{
    line.hasItem = PamLimits::findItem(columns.at(2), line.item);
    if (!line.hasItem) {
        return LineKind::UnknownItem;
    }
    const ItemKind kind = PamLimits::kindOf(line.item);
    const quint8 type = typeOf(columns.at(1));
    const bool needsType = kind != ItemKind::Logins && kind != ItemKind::Switch;
    if (type == 0 && needsType) {
        return LineKind::UnknownType;
    }
    line.type = PamLimits::hasTwoLimits(kind) ? type : quint8(PamLimits::Both);
    return PamLimits::readValue(line.item, columns.at(3), line.value) ? LineKind::Rule : LineKind::BadValue;
}
}

PamLimits::Columns PamLimits::columnsOf(Text text, const Module &module)
{
    Columns columns;
    size_t end = 0;
    for (Text &column : columns) {
        const size_t begin = skip(text, end, true, module);
        const bool takesRest = module.valueIsRest && &column == &columns.back();
        end = takesRest ? text.size() : skip(text, begin, false, module);
        column = text.substr(begin, end - begin);
    }
    return columns;
}

void PamLimits::readColumns(const Columns &columns, Line &line)
{
    if (!columns.at(3).empty()) {
        line.kind = readRule(columns, line);
    } else if (columns.at(2).empty() && !columns.at(1).empty() && columns.at(1).front() == '-') {
        line.kind = LineKind::Exemption;
    } else {
        line.kind = LineKind::BadColumns;
    }
}

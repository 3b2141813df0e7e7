/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITLINE_H
#define LIMITLINE_H

#include "limititem.h"
#include "pammodule.h"

#include <array>

namespace PamLimits
{
/** What pam_limits makes of a line. */
enum class LineKind : quint8 {
    Rule,
    Exemption, ///< "alice -": no limits at all for the domain
    BadRange, ///< ids in the domain that it does not understand
    BadColumns, ///< neither four columns nor an exemption
    UnknownItem,
    UnknownType,
    BadValue,
};

/** What a rule is for. */
enum TypeFlag : quint8 {
    Soft = 1,
    Hard = 2,
    Both = Soft | Hard,
};

/** A line that is neither empty nor a comment. It is small, since there may be a million. */
struct Line {
    /** The value in the unit of the file; a negative one in two's complement. A Directory has none. */
    quint64 value = 0;
    /** Where the line is in its file, without blanks around it. */
    quint32 offset = 0;
    quint32 length = 0;
    /** From 1. */
    quint32 number = 0;
    /** The place of its domain among all domains. */
    quint32 domain = 0;
    quint16 file = 0;
    LineKind kind = LineKind::Rule;
    Item item = Item::As;
    quint8 type = Both;
    /** Whether the item is known. Rules have a known item, other lines of four columns may have one. */
    bool hasItem = false;
};

constexpr int columnCount = 4;

/** The columns of a line; those that it does not have are empty. */
using Columns = std::array<Text, columnCount>;

/** Splits @p text, which has no blanks at its end, as @p module does. */
Columns columnsOf(Text text, const Module &module);

/** Reads the other columns of a line whose domain is valid. */
void readColumns(const Columns &columns, Line &line);
}

#endif

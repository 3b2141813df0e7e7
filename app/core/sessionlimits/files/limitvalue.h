/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITVALUE_H
#define LIMITVALUE_H

#include "limititem.h"

namespace PamLimits
{
/**
 * Reads @p text as a value of @p item: "unlimited" and the like, or the number that it begins with.
 * False when there is none. A Directory has no number: its value is the text itself.
 */
bool readValue(Item item, Text text, quint64 &value);

/** The value of an item in a session. */
struct Value {
    enum class Kind : quint8 { None, Number, Unlimited, Path };

    Kind kind = Kind::None;
    /** In two's complement when the item may be negative. */
    quint64 number = 0;
    QByteArray path;

    static Value of(Item item, quint64 number);

    bool isSet() const
    {
        return kind != Kind::None;
    }

    bool operator==(const Value &other) const
    {
        return kind == other.kind && number == other.number && path == other.path;
    }

    /** As it would be written in a file; empty when it is not set. */
    QByteArray toText(Item item) const;
};
}

#endif

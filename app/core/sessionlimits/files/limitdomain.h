/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITDOMAIN_H
#define LIMITDOMAIN_H

#include "limittext.h"

namespace PamLimits
{
/** The first column of a line, which says whom it is for. */
struct Domain {
    enum class Prefix : quint8 { None, Group, Logins };
    enum class Range : quint8 { None, One, From, Between, Invalid };

    /** As it is written. */
    QByteArray text;
    Prefix prefix = Prefix::None;
    Range range = Range::None;
    quint32 first = 0;
    quint32 last = 0;

    static Domain parse(Text text);

    /** The text without "@" or "%". */
    QByteArray name() const
    {
        return prefix == Prefix::None ? text : text.mid(1);
    }

    /** Whether there is a range and @p id is in it. */
    bool contains(quint32 id) const
    {
        return range != Range::None && id >= first && (range == Range::From || id <= last);
    }
};
}

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITITEM_H
#define LIMITITEM_H

#include "limittext.h"

namespace PamLimits
{
/** What limits.conf(5) can limit, in the order of the names. */
enum class Item : quint8 {
    As,
    Chroot,
    Core,
    Cpu,
    Data,
    Fsize,
    Locks,
    MaxLogins,
    MaxSysLogins,
    MemLock,
    MsgQueue,
    Nice,
    NoFile,
    NoNewPrivs,
    NProc,
    Priority,
    Rss,
    RtPrio,
    SigPending,
    Stack,
};

constexpr int itemCount = int(Item::Stack) + 1;

/** The value for "unlimited", the highest possible one. */
constexpr quint64 unlimited = ~quint64(0);

/** How the value of an item is read, and how the deciding rule is found. */
enum class ItemKind : quint8 {
    Resource, ///< a number; soft and hard limit are decided apart, by rank
    Niceness, ///< a signed number; soft and hard limit are decided apart, by rank
    Logins, ///< a number; by rank, one for both items of this kind
    Priority, ///< a signed number; the last rule decides, whatever its rank
    Switch, ///< 0 or 1; the last rule decides
    Directory, ///< a path; the last rule decides
};

ItemKind kindOf(Item item);
QByteArray nameOf(Item item);

/** The lowest value that means no limit, because the kernel cannot hold it in its own unit. */
quint64 lowestUnlimited(Item item);

/** Finds the item that @p text names in small or capital letters; false when there is none. */
bool findItem(Text text, Item &item);

/** Whether an item of this @p kind may be negative. */
inline bool isSigned(ItemKind kind)
{
    return kind == ItemKind::Niceness || kind == ItemKind::Priority;
}

/** Whether an item of this @p kind has a soft and a hard limit. */
inline bool hasTwoLimits(ItemKind kind)
{
    return kind == ItemKind::Resource || kind == ItemKind::Niceness;
}
}

#endif

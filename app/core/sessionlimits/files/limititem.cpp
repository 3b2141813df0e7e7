/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limititem.h"

#include <algorithm>
#include <iterator>

namespace
{
using PamLimits::ItemKind;

struct Entry {
    PamLimits::Text name;
    ItemKind kind;
    /** How many of the kernel's units one unit of the file is. */
    quint64 factor;
};

constexpr quint64 bytesOfKilobyte = 1024;
constexpr quint64 secondsOfMinute = 60;

/** In the order of the enumeration, which is that of the names. */
constexpr Entry entries[] = {
    {"as", ItemKind::Resource, bytesOfKilobyte},
    {"chroot", ItemKind::Directory, 1},
    {"core", ItemKind::Resource, bytesOfKilobyte},
    {"cpu", ItemKind::Resource, secondsOfMinute},
    {"data", ItemKind::Resource, bytesOfKilobyte},
    {"fsize", ItemKind::Resource, bytesOfKilobyte},
    {"locks", ItemKind::Resource, 1},
    {"maxlogins", ItemKind::Logins, 1},
    {"maxsyslogins", ItemKind::Logins, 1},
    {"memlock", ItemKind::Resource, bytesOfKilobyte},
    {"msgqueue", ItemKind::Resource, 1},
    {"nice", ItemKind::Niceness, 1},
    {"nofile", ItemKind::Resource, 1},
    {"nonewprivs", ItemKind::Switch, 1},
    {"nproc", ItemKind::Resource, 1},
    {"priority", ItemKind::Priority, 1},
    {"rss", ItemKind::Resource, bytesOfKilobyte},
    {"rtprio", ItemKind::Resource, 1},
    {"sigpending", ItemKind::Resource, 1},
    {"stack", ItemKind::Resource, bytesOfKilobyte},
};
static_assert(std::size(entries) == PamLimits::itemCount);

const Entry &entryOf(PamLimits::Item item)
{
    return entries[int(item)];
}
}

PamLimits::ItemKind PamLimits::kindOf(Item item)
{
    return entryOf(item).kind;
}

QByteArray PamLimits::nameOf(Item item)
{
    return copyOf(entryOf(item).name);
}

quint64 PamLimits::lowestUnlimited(Item item)
{
    return unlimited / entryOf(item).factor;
}

bool PamLimits::findItem(Text text, Item &item)
{
    const auto *const found = std::find_if(
        std::begin(entries), std::end(entries), [text](const Entry &entry) { return isWord(text, entry.name); });
    if (found == std::end(entries)) {
        return false;
    }
    item = Item(found - std::begin(entries));
    return true;
}

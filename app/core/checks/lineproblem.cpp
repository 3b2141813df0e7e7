/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "lineproblem.h"

#include "recordtext.h"

#include <GroupInfo>

#include <grp.h>

QString textOf(const QByteArray &text)
{
    return RecordText::decode(QString::fromLatin1(text));
}

bool isIdOfSystem(uint id)
{
    group entry = {};
    entry.gr_gid = id;
    return GroupInfo::getGroup(&entry).isSystem();
}

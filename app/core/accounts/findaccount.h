/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef FINDACCOUNT_H
#define FINDACCOUNT_H

class GroupInfo;
class QString;
class UserInfo;

/** The accounts that people name; empty when there is none. The files may hold a name in UTF-8 or in Latin-1. */
namespace FindAccount
{
UserInfo user(const QString &name);
GroupInfo group(const QString &name);
}

#endif

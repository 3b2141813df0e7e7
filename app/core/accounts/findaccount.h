/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef FINDACCOUNT_H
#define FINDACCOUNT_H

class GroupInfo;
class QString;
class UserInfo;

/** The account with a name that somebody typed; empty when there is none. Files may have it in UTF-8 or in Latin-1. */
namespace FindAccount
{
UserInfo user(const QString &name);
GroupInfo group(const QString &name);
}

#endif

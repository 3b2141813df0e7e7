/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "usercolumns.h"

#include "recordtext.h"

namespace
{
QVariant name(const UserInfo &user)
{
    return RecordText::decode(user.name());
}

/** The first part of the GECOS field. */
QVariant fullName(const UserInfo &user)
{
    return user.gecos().section(QLatin1Char(','), 0, 0);
}

QVariant uid(const UserInfo &user)
{
    return user.uid();
}

QVariant gid(const UserInfo &user)
{
    return user.gid();
}

QVariant primaryGroup(const UserInfo &user)
{
    return RecordText::decode(user.primaryGroup().name());
}

QVariant groups(const UserInfo &user)
{
    return RecordText::decode(user.groupNames());
}

QVariant isAdministrator(const UserInfo &user)
{
    return user.isOrmelAdmin();
}

QVariant isSystem(const UserInfo &user)
{
    return user.isSystem();
}

QVariant gecos(const UserInfo &user)
{
    return user.gecos();
}

QVariant home(const UserInfo &user)
{
    return RecordText::decode(user.home());
}

QVariant shell(const UserInfo &user)
{
    return RecordText::decode(user.shell());
}

using Column = AccountColumn<UserInfo>;

const Column columns[] = {
    {"name", kli18n("Name"), Column::Word, name},
    {"fullName", kli18n("Full name"), Column::Text, fullName},
    {"uid", kli18n("UID"), Column::Number, uid},
    {"gid", kli18n("GID"), Column::Number, gid},
    {"primaryGroup", kli18n("Primary group"), Column::Word, primaryGroup},
    {"groups", kli18n("Groups"), Column::Text, groups},
    {"admin", kli18n("Admin"), Column::Word, isAdministrator},
    {"system", kli18n("System"), Column::Word, isSystem},
    {"gecos", kli18n("GECOS"), Column::Text, gecos},
    {"home", kli18n("Home directory"), Column::Text, home},
    {"shell", kli18n("Shell"), Column::Word, shell},
};
}

AccountColumns<UserInfo> userColumns()
{
    return toColumns(columns);
}

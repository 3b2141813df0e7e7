/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITRULE_H
#define LIMITRULE_H

#include <QString>

class GroupInfo;
class LimitsParser;
class UserInfo;

/** The domain of the rule from which LimitsParser::getItem() has its value, which must not be null. */
namespace LimitRule
{
QString domain(const LimitsParser &limits, const UserInfo &user, const QString &item);
QString domain(const LimitsParser &limits, const GroupInfo &group, const QString &item);
}

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITMATCH_H
#define LIMITMATCH_H

#include "limitrules.h"
#include "sessionaccount.h"

namespace PamLimits
{
class AccountDatabase;

/** How strong a rule is for an account. The first of two outranks the second. */
enum class Rank : quint8 {
    User,
    Group,
    LoginsOfGroup,
    LoginsOfAll,
    Everybody,
    None, ///< the rule is not for the account
};

/** Whom the domains of the rules are for. */
class Matcher
{
public:
    Matcher() = default;
    Matcher(const Rules &rules, const AccountDatabase &database);

    /** The places of the domains that can be for @p account, in ascending order. */
    QVector<int> domainsFor(const Account &account) const;

    /** The rank of a rule with the domain at @p place for @p account. */
    Rank rankOf(int place, const Account &account) const;

    /** Whether an exemption with the domain at @p place is for @p account. */
    bool exempts(int place, const Account &account) const;

private:
    /** A range of ids. */
    struct Range {
        quint32 first;
        quint32 last;
        int place;
    };

    void addDomain(int place, const AccountDatabase &database);
    void addMembers(int place, quint32 gid);
    bool hasMember(int place, const Account &account) const;

    QVector<Domain> m_domains;
    QHash<QByteArray, int> m_places;
    QVector<Range> m_ranges;
    /** The domains that are for the members of a group, by its gid. */
    QHash<quint32, QVector<int>> m_ofGroup;
    /** The gid of the group whose members a domain is for. */
    QHash<int, quint32> m_gids;
};
}

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitmatch.h"

#include "accountdatabase.h"

#include <algorithm>

namespace
{
using PamLimits::Domain;

const char everybody[] = "*";
const char loginsOfAll[] = "%";

bool hasUid(const Domain &domain, const PamLimits::Account &account)
{
    return !account.isAnyMember && domain.contains(account.uid);
}

bool hasPrimaryGroup(const Domain &domain, const PamLimits::Account &account)
{
    return !account.isAnyMember && domain.contains(account.gid);
}

bool isRange(const Domain &domain)
{
    return domain.range != Domain::Range::None;
}

/** Whether a domain for a group is for all its members, not only those whose primary group it is. */
bool isForMembers(const Domain &domain)
{
    return !isRange(domain) || domain.range == Domain::Range::One;
}
}

PamLimits::Matcher::Matcher(const Rules &rules, const AccountDatabase &database)
    : m_domains(rules.domains())
{
    for (int place = 0; place < m_domains.size(); ++place) {
        addDomain(place, database);
    }
}

void PamLimits::Matcher::addDomain(int place, const AccountDatabase &database)
{
    const Domain &domain = m_domains.at(place);
    m_places.insert(domain.text, place);
    if (domain.range == Domain::Range::Invalid) {
        return;
    }
    if (isRange(domain)) {
        const bool isOpen = domain.range == Domain::Range::From;
        m_ranges.append({domain.first, isOpen ? ~quint32(0) : domain.last, place});
    }
    if (domain.prefix == Domain::Prefix::None) {
        return;
    }
    if (domain.range == Domain::Range::One && database.hasGroup(domain.last)) {
        addMembers(place, domain.last);
    } else if (!isRange(domain)) {
        if (const auto gid = database.gidOf(domain.name())) {
            addMembers(place, *gid);
        }
    }
}

void PamLimits::Matcher::addMembers(int place, quint32 gid)
{
    m_gids.insert(place, gid);
    m_ofGroup[gid].append(place);
}

bool PamLimits::Matcher::hasMember(int place, const Account &account) const
{
    const auto gid = m_gids.constFind(place);
    return gid != m_gids.constEnd() && account.groups.contains(*gid);
}

QVector<int> PamLimits::Matcher::domainsFor(const Account &account) const
{
    QVector<int> places;
    for (const QByteArray &text : {account.name, QByteArray(everybody), QByteArray(loginsOfAll)}) {
        const auto found = m_places.constFind(text);
        if (found != m_places.constEnd()) {
            places.append(*found);
        }
    }
    for (const quint32 gid : account.groups) {
        places += m_ofGroup.value(gid);
    }
    for (const Range &range : m_ranges) {
        if ((account.uid >= range.first && account.uid <= range.last)
            || (account.gid >= range.first && account.gid <= range.last)) {
            places.append(range.place);
        }
    }
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

PamLimits::Rank PamLimits::Matcher::rankOf(int place, const Account &account) const
{
    const Domain &domain = m_domains.at(place);
    if (domain.text == account.name) {
        return Rank::User;
    }
    if (account.isRoot()) {
        // Of a range for groups, the numbers count as uids.
        return hasUid(domain, account) ? Rank::User : Rank::None;
    }
    if (domain.prefix == Domain::Prefix::None) {
        const Rank other = domain.text == everybody ? Rank::Everybody : Rank::None;
        return hasUid(domain, account) ? Rank::User : other;
    }
    if (domain.text == loginsOfAll) {
        return Rank::LoginsOfAll;
    }
    if (domain.prefix == Domain::Prefix::Logins) {
        return isForMembers(domain) && hasMember(place, account) ? Rank::LoginsOfGroup : Rank::None;
    }
    const bool isIn = isForMembers(domain) ? hasMember(place, account) : hasPrimaryGroup(domain, account);
    return isIn ? Rank::Group : Rank::None;
}

bool PamLimits::Matcher::exempts(int place, const Account &account) const
{
    const Domain &domain = m_domains.at(place);
    if (domain.text == account.name) {
        return true;
    }
    if (domain.prefix != Domain::Prefix::Group) {
        return hasUid(domain, account);
    }
    return isForMembers(domain) ? hasMember(place, account) : hasPrimaryGroup(domain, account);
}

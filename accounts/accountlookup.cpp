/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountlookup_p.h"

#include "accountfile_p.h"
#include "accountlog_p.h"

#include <algorithm>
#include <cstdlib>

#include <grp.h>
#include <pwd.h>

namespace
{
struct Deallocator {
    void operator()(void *memory) const
    {
        free(memory); // NOLINT(clang-analyzer-unix.Malloc): realloc() frees for a size of 0 only, which it never gets
    }
};

using GroupIds = std::unique_ptr<gid_t[], Deallocator>;

size_t sizeOfIds(int count)
{
    return static_cast<size_t>(count) * sizeof(gid_t);
}

/** @p ids in a block of @p count ids; null, with @p ids freed, when there is no memory. */
GroupIds resized(GroupIds ids, int count)
{
    GroupIds larger(static_cast<gid_t *>(realloc(ids.get(), sizeOfIds(count))));
    if (larger) {
        static_cast<void>(ids.release());
    }
    return larger;
}

/** The ids of the groups of @p entry and, in @p count, their number; null when there is no memory. */
GroupIds groupIds(const passwd *entry, int &count)
{
    const char *name = entry->pw_name ? entry->pw_name : "";
    count = 16;
    GroupIds ids(static_cast<gid_t *>(malloc(sizeOfIds(count))));
    while (ids) {
        const int capacity = count;
        if (getgrouplist(name, entry->pw_gid, ids.get(), &count) != -1) {
            return ids;
        }
        // When getgrouplist() itself runs out of memory it fails without raising the count; retrying would never end.
        if (count <= capacity) {
            return {};
        }
        ids = resized(std::move(ids), count);
    }
    return ids;
}
}

UserInfo AccountLookup::user(const passwd *entry)
{
    UserInfo user;
    user.m_name = text(entry->pw_name);
    const QString *primaryGroupName = groupName(entry->pw_gid);
    fill(user, entry, primaryGroupName ? *primaryGroupName : QString());
    return user;
}

void AccountLookup::fill(UserInfo &user, const passwd *entry, const QString &primaryGroupName)
{
    user.m_uid = entry->pw_uid;
    user.m_gid = entry->pw_gid;
    user.m_gecos = QString::fromUtf8(entry->pw_gecos);
    user.m_home = text(entry->pw_dir);
    user.m_shell = text(entry->pw_shell);

    // The group lookups read /etc/passwd, which may overwrite the entry.
    user.m_groups = groupsOf(entry);
    user.m_primaryGroup = group(primaryGroupName);

    const GroupInfo admins = group(QStringLiteral("ormel-admin"));
    user.m_ormelAdmin = !admins.isEmpty() && user.m_groups.contains(admins);
}

QList<GroupInfo> AccountLookup::groupsOf(const passwd *entry)
{
    int count = 0;
    const GroupIds ids = groupIds(entry, count);
    if (!ids) {
        return {};
    }

    QList<GroupInfo> groups;
    groups.reserve(count);
    for (int i = 0; i < count; ++i) {
        if (const QString *name = groupName(ids[i])) {
            groups.append(group(QString(*name)));
        }
    }
    return groups;
}

const QString *AccountLookup::groupName(gid_t gid)
{
    auto known = m_groupNames.find(gid);
    if (known == m_groupNames.end()) {
        const ::group *entry = getgrgid(gid);
        known = m_groupNames.insert(gid, entry ? std::optional(text(entry->gr_name)) : std::nullopt);
    }
    return known->has_value() ? &**known : nullptr;
}

GroupInfo AccountLookup::group(const QString &name)
{
    auto known = m_groups.find(name);
    if (known == m_groups.end()) {
        const ::group *entry = getgrnam(name.toLatin1().constData());
        known = m_groups.insert(name, entry ? std::optional(completed(entry)) : std::nullopt);
    }
    if (!known->has_value()) {
        accountLog().warning("GroupInfo: unable to find group entry by name: %s", qPrintable(name));
        return GroupInfo();
    }
    warnIfPrimaryGroupsUnreadable();
    return **known;
}

GroupInfo AccountLookup::group(gid_t gid)
{
    const ::group *entry = getgrgid(gid);
    if (!entry) {
        accountLog().warning("GroupInfo: unable to find group entry by gid: %u", gid);
        return GroupInfo();
    }
    GroupInfo group = completed(entry);
    warnIfPrimaryGroupsUnreadable();
    return group;
}

GroupInfo AccountLookup::completed(const ::group *entry)
{
    GroupInfo group = record(entry);
    readPrimaryMembers();
    const auto members =
        std::equal_range(m_primaryMembers.begin(), m_primaryMembers.end(), PrimaryMember{group.m_gid, 0}, hasLowerGid);
    std::for_each(members.first, members.second, [this, &group](const PrimaryMember &member) {
        group.m_users.append(text(nameOf(member)));
    });
    if (group.m_users.size() > 1) {
        group.m_users.removeDuplicates();
    }
    return group;
}

GroupInfo AccountLookup::record(const ::group *entry)
{
    GroupInfo group;
    group.m_name = text(entry->gr_name);
    group.m_gid = entry->gr_gid;
    for (char **member = entry->gr_mem; member && *member; ++member) {
        group.m_users.append(text(*member));
    }
    return group;
}

void AccountLookup::preparePrimaryMembers()
{
    readPrimaryMembers();
    warnIfPrimaryGroupsUnreadable();
}

AccountLookup::PrimaryGroups AccountLookup::primaryGroups()
{
    preparePrimaryMembers();
    PrimaryGroups groups;
    for (const PrimaryMember &member : m_primaryMembers) {
        groups[member.gid].append(text(nameOf(member)));
    }
    return groups;
}

void AccountLookup::readPrimaryMembers()
{
    if (m_passwd != Passwd::NotRead) {
        return;
    }
    const AccountFile file = openAccountFile(passwdPath);
    if (!file) {
        m_passwd = Passwd::Unreadable;
        return;
    }
    while (const passwd *entry = fgetpwent(file.get())) {
        m_primaryMembers.push_back({entry->pw_gid, m_primaryMemberNames.size()});
        m_primaryMemberNames.append(entry->pw_name).append('\0');
    }
    std::stable_sort(m_primaryMembers.begin(), m_primaryMembers.end(), hasLowerGid);
    m_passwd = Passwd::Read;
}

const char *AccountLookup::nameOf(const PrimaryMember &member) const
{
    return m_primaryMemberNames.constData() + member.name;
}

void AccountLookup::warnIfPrimaryGroupsUnreadable() const
{
    if (m_passwd == Passwd::Unreadable) {
        accountLog().warning("GroupInfo: unable to open %s", passwdPath);
    }
}

QString AccountLookup::text(const char *latin1)
{
    const QString text = QString::fromLatin1(latin1);
    // For a set, null and empty strings are the same.
    return text.isEmpty() ? text : *m_texts.insert(text);
}

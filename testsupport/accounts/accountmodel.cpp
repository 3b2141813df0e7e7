/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountmodel.h"

#include "accountfixtures.h"

#include <cstdio>
#include <memory>

#include <grp.h>
#include <pwd.h>

namespace
{
using File = std::unique_ptr<FILE, int (*)(FILE *)>;
}

QStringList AccountModel::users()
{
    QStringList lines;
    const File file(fopen("/etc/passwd", "r"), fclose);
    if (!file) {
        warnings.append(userUnableToOpen(passwdPath()));
        return lines;
    }
    while (passwd *entry = fgetpwent(file.get())) {
        lines.append(user(entry));
    }
    return lines;
}

QStringList AccountModel::groups()
{
    QStringList lines;
    const File file(fopen("/etc/group", "r"), fclose);
    if (!file) {
        warnings.append(groupUnableToOpen(groupPath()));
        return lines;
    }
    const QHash<uint, QStringList> primary = primaryGroups();
    while (const group *entry = fgetgrent(file.get())) {
        lines.append(text(completed(entry, primary)));
    }
    return lines;
}

QString AccountModel::shown(const QString &text)
{
    return text.isNull() ? QStringLiteral("null") : text;
}

QString AccountModel::text(const Group &group)
{
    return shown(group.name) + QLatin1Char('(') + QString::number(group.gid) + QLatin1String(": ")
        + group.users.join(QLatin1Char(' ')) + QLatin1Char(')');
}

QString AccountModel::user(const passwd *entry)
{
    const QString login = QString::fromLatin1(entry->pw_name);
    const uint uid = entry->pw_uid;
    const uint gid = entry->pw_gid;
    const group *primaryEntry = getgrgid(gid);
    const QString primaryName = primaryEntry ? QString::fromLatin1(primaryEntry->gr_name) : QString();
    const QString gecos = QString::fromUtf8(entry->pw_gecos);
    const QString home = QString::fromLatin1(entry->pw_dir);
    const QString shell = QString::fromLatin1(entry->pw_shell);

    const QVector<Group> groups = userGroups(entry);
    const Group primary = groupByName(primaryName);
    const Group admins = groupByName(QStringLiteral("ormel-admin"));
    const bool admin = !admins.name.isEmpty() && groups.contains(admins);

    QStringList groupTexts;
    for (const Group &group : groups) {
        groupTexts.append(text(group));
    }
    return QStringList({
                           shown(login),
                           QString::number(uid),
                           QString::number(gid),
                           shown(gecos),
                           shown(home),
                           shown(shell),
                           QLatin1String("primary ") + text(primary),
                           QLatin1String("groups ") + groupTexts.join(QLatin1String(", ")),
                           admin ? QStringLiteral("admin") : QStringLiteral("no admin"),
                       })
        .join(QLatin1String(" | "));
}

QVector<AccountModel::Group> AccountModel::userGroups(const passwd *entry)
{
    QVector<Group> groups;
    QVector<gid_t> ids(1000);
    int count = ids.size();
    if (getgrouplist(entry->pw_name, entry->pw_gid, ids.data(), &count) == -1) {
        qFatal("More groups than were made");
    }
    for (int i = 0; i < count; ++i) {
        if (const group *found = getgrgid(ids.at(i))) {
            groups.append(groupByName(QString::fromLatin1(found->gr_name)));
        }
    }
    return groups;
}

AccountModel::Group AccountModel::groupByName(const QString &name)
{
    const group *entry = getgrnam(name.toLatin1().constData());
    if (!entry) {
        warnings.append(groupNotFound(name));
        return Group();
    }
    return completed(entry, primaryGroups());
}

AccountModel::Group AccountModel::completed(const group *entry, const QHash<uint, QStringList> &primary)
{
    Group result{QString::fromLatin1(entry->gr_name), {}, entry->gr_gid};
    QStringList all;
    for (char **member = entry->gr_mem; *member; ++member) {
        all.append(QString::fromLatin1(*member));
    }
    all.append(primary.value(result.gid));
    for (const QString &name : qAsConst(all)) {
        if (!result.users.contains(name)) {
            result.users.append(name);
        }
    }
    return result;
}

QHash<uint, QStringList> AccountModel::primaryGroups()
{
    QHash<uint, QStringList> groups;
    const File file(fopen("/etc/passwd", "r"), fclose);
    if (!file) {
        warnings.append(groupUnableToOpen(passwdPath()));
        return groups;
    }
    while (const passwd *entry = fgetpwent(file.get())) {
        groups[entry->pw_gid].append(QString::fromLatin1(entry->pw_name));
    }
    return groups;
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "listcommands.h"

#include "accountlisting.h"
#include "findaccount.h"
#include "groupcolumns.h"
#include "readerror.h"
#include "usercolumns.h"

#include <KLocalizedString>

#include <QCommandLineParser>

#include <algorithm>

namespace
{
QString ordinaryOption()
{
    return QStringLiteral("ordinary");
}

QString systemOption()
{
    return QStringLiteral("system");
}

QString administratorsOption()
{
    return QStringLiteral("administrators");
}

bool isUserListed(const UserInfo &user, const QCommandLineParser &options)
{
    return (!options.isSet(ordinaryOption()) || !user.isSystem()) && (!options.isSet(systemOption()) || user.isSystem())
        && (!options.isSet(administratorsOption()) || user.isOrmelAdmin());
}

bool isGroupListed(const GroupMembers &members, const QCommandLineParser &options)
{
    const bool isSystem = members.group.isSystem();
    return (!options.isSet(ordinaryOption()) || !isSystem) && (!options.isSet(systemOption()) || isSystem);
}

/** Reports the files that cannot be read; Success when there are none. */
int checkFiles()
{
    const QStringList errors = accountReadErrors();
    for (const QString &error : errors) {
        printError(error);
    }
    return errors.isEmpty() ? Success : Unreadable;
}

/** The records with these names; an unknown name sets @p status to Failure. */
template<typename Record>
QList<Record>
findAll(const QStringList &names, Record (*find)(const QString &), QString (*unknown)(const QString &), int &status)
{
    QList<Record> records;
    for (const QString &name : names) {
        const Record record = find(name);
        if (record.isEmpty()) {
            status = failure(unknown(name));
        } else {
            records.append(record);
        }
    }
    return records;
}

QString unknownUser(const QString &name)
{
    return i18n("There is no user '%1'.", name);
}

QString unknownGroup(const QString &name)
{
    return i18n("There is no group '%1'.", name);
}

/** The named users, or all. */
QList<UserInfo> findUsers(const QStringList &names, int &status)
{
    return names.isEmpty() ? UserInfo::getUsers() : findAll(names, FindAccount::user, unknownUser, status);
}

/** The named groups, or all. */
QList<GroupMembers> findGroups(const QStringList &names, int &status)
{
    if (names.isEmpty()) {
        return GroupMembers::ofAllGroups();
    }
    QList<GroupMembers> groups;
    const QList<GroupInfo> found = findAll(names, FindAccount::group, unknownGroup, status);
    for (const GroupInfo &group : found) {
        groups.append(GroupMembers::of(group));
    }
    return groups;
}

/** The default columns of a table; the long ones come last. */
QStringList userTable()
{
    return {
        QStringLiteral("name"),
        QStringLiteral("fullName"),
        QStringLiteral("uid"),
        QStringLiteral("primaryGroup"),
        QStringLiteral("admin"),
        QStringLiteral("system"),
        QStringLiteral("groups"),
    };
}

QStringList groupTable()
{
    return {
        QStringLiteral("name"),
        QStringLiteral("gid"),
        QStringLiteral("system"),
        QStringLiteral("members"),
    };
}

/** What differs between lists of users and lists of groups. */
template<typename Record>
struct Kind {
    AccountColumns<Record> (*columns)();
    QStringList (*tableColumns)();
    QList<Record> (*find)(const QStringList &names, int &status);
    bool (*isListed)(const Record &record, const QCommandLineParser &options);
};

/** JSON and CSV have all columns by default. */
template<typename Record>
int print(const QList<Record> &records,
          const ListingFormat &format,
          const AccountColumns<Record> &all,
          const QStringList &tableColumns)
{
    const bool isTable = format.kind == ListingFormat::Table;
    if (isTable && records.isEmpty()) {
        return Success; // a head without rows tells nothing
    }
    const QStringList usual = isTable ? tableColumns : columnIds(all);
    const auto columns = chosenColumns(all, format.columns.isEmpty() ? usual : format.columns);
    if (isTable) {
        return printTable(records, columns);
    }
    return format.kind == ListingFormat::Json ? printJson(records, columns) : printCsv(records, columns);
}

/** Prints the accounts that are asked for. */
template<typename Record>
int list(const QCommandLineParser &options, const Kind<Record> &kind)
{
    ListingFormat format;
    const AccountColumns<Record> all = kind.columns();
    const int usage = format.read(options, columnIds(all));
    if (usage != Success) {
        return usage;
    }
    const int files = checkFiles();
    if (files != Success) {
        return files;
    }
    int status = Success;
    QList<Record> records = kind.find(options.positionalArguments(), status);
    const auto end = std::remove_if(records.begin(), records.end(), [&options, &kind](const Record &record) {
        return !kind.isListed(record, options);
    });
    records.erase(end, records.end());
    const int printed = print(records, format, all, kind.tableColumns());
    return printed == Success ? status : printed;
}
}

QList<QCommandLineOption> userListOptions()
{
    return QList<QCommandLineOption>{
               {ordinaryOption(), i18n("List only ordinary users.")},
               {systemOption(), i18n("List only system accounts.")},
               {administratorsOption(), i18n("List only administrators.")},
           }
    + ListingFormat::options();
}

QList<QCommandLineOption> groupListOptions()
{
    return QList<QCommandLineOption>{
               {ordinaryOption(), i18n("List only ordinary groups.")},
               {systemOption(), i18n("List only system groups.")},
           }
    + ListingFormat::options();
}

int listUsers(const QCommandLineParser &options, const QString & /*operand*/)
{
    const int kinds = int(options.isSet(ordinaryOption())) + int(options.isSet(systemOption()))
        + int(options.isSet(administratorsOption()));
    if (kinds > 1) {
        return usageError(i18n("Only one of --ordinary, --system and --administrators can be given."));
    }
    return list<UserInfo>(options, {userColumns, userTable, findUsers, isUserListed});
}

int listGroups(const QCommandLineParser &options, const QString & /*operand*/)
{
    if (options.isSet(ordinaryOption()) && options.isSet(systemOption())) {
        return usageError(i18n("Only one of --ordinary and --system can be given."));
    }
    return list<GroupMembers>(options, {groupColumns, groupTable, findGroups, isGroupListed});
}

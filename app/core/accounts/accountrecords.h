/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTRECORDS_H
#define ACCOUNTRECORDS_H

#include <QString>
#include <QStringList>
#include <QVector>

#include <tuple>

// Names and paths are decoded for display: from UTF-8 where the file has that.
//
// The function fields() of a record lists all of its fields, for code that handles them one by one.

/** A line of /etc/group. The members that it names and the users whose primary group it is are kept apart. */
struct GroupRecord {
    QString name;
    QStringList members;
    QStringList primaryMembers;
    uint gid = 0;
    bool system = false;

    /** Everybody in the group, each once: the members of the line first. */
    QStringList everybody() const;

    template<typename Group>
    static auto fields(Group &group)
    {
        return std::tie(group.name, group.gid, group.system, group.members, group.primaryMembers);
    }
};

/** A line of /etc/passwd, with the groups that the name service reports. */
struct UserRecord {
    QString name;
    QString gecos;
    QString home;
    QString shell;
    /** Empty when the gid has no group. */
    QString primaryGroup;
    /** The primary group included. */
    QStringList groups;
    /** The gid of each of the groups. */
    QVector<quint32> gids;
    uint uid = 0;
    uint gid = 0;
    bool administrator = false;
    bool system = false;

    /** The first subfield of the GECOS field. */
    QString fullName() const;

    template<typename User>
    static auto fields(User &user)
    {
        return std::tie(user.name,
                        user.uid,
                        user.gid,
                        user.administrator,
                        user.system,
                        user.gecos,
                        user.home,
                        user.shell,
                        user.primaryGroup,
                        user.groups,
                        user.gids);
    }
};

/** A file that could not be read, and why. */
struct UnreadableFile {
    QString path;
    QString reason;

    template<typename File>
    static auto fields(File &file)
    {
        return std::tie(file.path, file.reason);
    }
};

template<typename Record>
auto operator==(const Record &a, const Record &b) -> decltype(Record::fields(a) == Record::fields(b))
{
    return Record::fields(a) == Record::fields(b);
}

Q_DECLARE_TYPEINFO(GroupRecord, Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(UserRecord, Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(UnreadableFile, Q_MOVABLE_TYPE);

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LISTKINDS_H
#define LISTKINDS_H

#include "accountfixtures.h"

#include <GroupListModel>
#include <UserListModel>

#include <pwd.h>

// What differs between the two list models and the records in them.

struct Users {
    using Model = UserListModel;
    using Record = UserInfo;
    static constexpr auto idColumn = Model::UidColumn;
    static constexpr char className[] = "UserListModel";
    static constexpr char enumerations[] = "Filter All=0 Ordinary=1 System=2 Administrators=3 Selected=4 Unselected=5 "
                                           "Column NameColumn=0 UidColumn=1 SystemColumn=2";
    static constexpr char idHeader[] = "UID";
    static constexpr char icon[] = "user";
    static constexpr char systemIcon[] = "user-system";

    static QString path()
    {
        return passwdPath();
    }

    static QString unableToOpen()
    {
        return userUnableToOpen(path());
    }

    /** The argument of a model that locks the user @p name. */
    static GroupInfo lockedBy(const QString &name)
    {
        return Record::getUser(name).primaryGroup();
    }

    static QList<Record> records()
    {
        return Record::getUsers();
    }

    static uint id(const Record &user)
    {
        return user.uid();
    }

    /** Whether the filters that only this model has let @p user through. */
    static bool isShown(int filter, const Record &user)
    {
        return filter != Model::Administrators || user.isOrmelAdmin();
    }

    static QStringList selectedNames(const Model &model)
    {
        return model.selectedUserNames();
    }

    static void setSelectedNames(Model &model, const QStringList &names)
    {
        model.setSelectedUserNames(names);
    }

    static void setSelectedName(Model &model, const QString &name, bool selected)
    {
        model.setSelectedUserName(name, selected);
    }

    static QModelIndex setNewName(Model &model, const QString &name)
    {
        return model.setNewUserName(name);
    }

    static QModelIndex find(const Model &model, const QString &name)
    {
        return model.findUser(name);
    }

    static const Record *record(const Model &model, const QModelIndex &index)
    {
        return model.user(index);
    }

    /** Whether reloadRecord() may be called. The account and its primary group have to exist. */
    static bool canBeReloaded(const QString &name)
    {
        return !Record::getUser(name).primaryGroup().isEmpty();
    }

    static void reloadRecord(Model &model, const QString &name)
    {
        model.reloadUser(name);
    }
};

struct Groups {
    using Model = GroupListModel;
    using Record = GroupInfo;
    static constexpr auto idColumn = Model::GidColumn;
    static constexpr char className[] = "GroupListModel";
    static constexpr char enumerations[] = "Filter All=0 Ordinary=1 System=2 Selected=3 Unselected=4 "
                                           "Column NameColumn=0 GidColumn=1 SystemColumn=2";
    static constexpr char idHeader[] = "GID";
    static constexpr char icon[] = "group";
    static constexpr char systemIcon[] = "group-system";

    static QString path()
    {
        return groupPath();
    }

    static QString unableToOpen()
    {
        return groupUnableToOpen(path());
    }

    /** The argument of a model that locks the group @p name. */
    static QString lockedBy(const QString &name)
    {
        return name;
    }

    static QList<Record> records()
    {
        return Record::getGroups();
    }

    static uint id(const Record &group)
    {
        return group.gid();
    }

    static bool isShown(int /*filter*/, const Record & /*group*/)
    {
        return true;
    }

    static QStringList selectedNames(const Model &model)
    {
        return model.selectedGroupNames();
    }

    static void setSelectedNames(Model &model, const QStringList &names)
    {
        model.setSelectedGroupNames(names);
    }

    static void setSelectedName(Model &model, const QString &name, bool selected)
    {
        model.setSelectedGroupName(name, selected);
    }

    static QModelIndex setNewName(Model &model, const QString &name)
    {
        return model.setNewGroupName(name);
    }

    static QModelIndex find(const Model &model, const QString &name)
    {
        return model.findGroup(name);
    }

    static const Record *record(const Model &model, const QModelIndex &index)
    {
        return model.group(index);
    }

    static bool canBeReloaded(const QString & /*name*/)
    {
        return true;
    }

    static void reloadRecord(Model &model, const QString &name)
    {
        model.reloadGroup(name);
    }
};

#endif

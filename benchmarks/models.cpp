/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountsetup.h"
#include "comparison.h"

#include <UserInfo>
#include <UserListModel>

#include <map>
#include <memory>

using benchmark::State;

namespace
{
/** A model of as many users as the size says. It is kept, since it takes long to construct. */
UserListModel &modelFor(const State &state)
{
    static std::map<int64_t, std::unique_ptr<UserListModel>> models;
    auto &model = models[state.range(0)];
    if (!model) {
        prepareAccounts(state);
        model = std::make_unique<UserListModel>(GroupInfo(), QStringList());
    }
    return *model;
}

QList<UserInfo> shownUsers(const UserListModel &model)
{
    QList<UserInfo> users;
    for (int row = 0; row < model.rowCount(); ++row) {
        users.append(*model.user(model.index(row, 0)));
    }
    return users;
}

void construct(State &state)
{
    prepareAccounts(state);
    measure(state, [] { return UserListModel().rowCount(); });
}

void getUsers(State &state)
{
    prepareAccounts(state);
    measure(state, [] { return UserInfo::getUsers(); });
}

void changeFilter(State &state)
{
    UserListModel &model = modelFor(state);
    measure(state, [&model] {
        model.setFilter(model.filter() == UserListModel::All ? UserListModel::Ordinary : UserListModel::All);
        return model.rowCount();
    });
}

void selectUser(State &state)
{
    UserListModel &model = modelFor(state);
    const QString name = QStringLiteral("user50");
    bool selected = false;
    measure(state, [&] {
        selected = !selected;
        model.setSelectedUserName(name, selected);
        return model.rowCount();
    });
    model.setSelectedUserNames({});
}

void copyList(State &state)
{
    const QList<UserInfo> users = shownUsers(modelFor(state));
    measure(state, [&users] {
        QList<UserInfo> copy = users;
        copy.detach();
        return copy;
    });
}

/** Checks or unchecks a box far down the list. */
void toggle(State &state, UserListModel &model)
{
    const QModelIndex index = model.index(model.rowCount() - 1, UserListModel::NameColumn);
    int check = Qt::Unchecked;
    measure(state, [&] {
        check = check == Qt::Checked ? Qt::Unchecked : Qt::Checked;
        return model.setData(index, check, Qt::CheckStateRole);
    });
    model.setSelectedUserNames({});
}

void setData(State &state)
{
    toggle(state, modelFor(state));
}

void setDataOfFew(State &state)
{
    static const std::unique_ptr<UserListModel> few = [] {
        GeneratedAccounts::write(100);
        return std::make_unique<UserListModel>(GroupInfo(), QStringList());
    }();
    toggle(state, *few);
}
}

Comparisons modelComparisons()
{
    return {
        {"modelConstruction",
         "constructing a `UserListModel`",
         "`UserInfo::getUsers()`",
         {1.2},
         "",
         {100, 1000, 10000},
         benchmark::oNSquared,
         construct,
         getUsers},
        {"filterChange",
         "`UserListModel::setFilter()`",
         "copying a `QList<UserInfo>` of that length",
         {4},
         "",
         {100, 1000, 10000},
         benchmark::oNLogN,
         changeFilter,
         copyList},
        {"selectUser",
         "`UserListModel::setSelectedUserName()`",
         "the same",
         {4},
         "",
         {100, 1000, 10000},
         benchmark::oNLogN,
         selectUser,
         copyList},
        {"setData",
         "`UserListModel::setData()`",
         "the same for 100 users",
         {1.25},
         "",
         {100, 1000, 10000},
         benchmark::oLogN,
         setData,
         setDataOfFew},
    };
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "comparison.h"
#include "limitlinesmodel.h"
#include "limitsfixtures.h"
#include "sessionlimits.h"
#include "usermodel.h"

#include <atomic>
#include <memory>

#include <malloc.h>

using benchmark::State;

namespace
{
/** Users as the window keeps them, each with texts of its own. */
QVector<UserRecord> users(const State &state)
{
    const int count = static_cast<int>(state.range(0));
    QVector<UserRecord> users;
    users.reserve(count);
    for (int i = 0; i < count; ++i) {
        UserRecord user;
        user.name = QStringLiteral("user%1").arg(7919LL * i % count);
        user.uid = 1000 + i;
        user.gid = user.uid;
        user.gecos = QStringLiteral("User Number %1,Room %2,,").arg(i).arg(i % 100);
        user.home = QLatin1String("/home/") + user.name;
        user.shell = QStringLiteral("/bin/bash");
        user.primaryGroup = user.name;
        user.groups = QStringList{user.name};
        for (int group = 0; group < 3; ++group) {
            user.groups.append(QStringLiteral("shared%1").arg((i + 7 * group) % 20));
            user.gids.append(200 + (i + 7 * group) % 20);
        }
        users.append(user);
    }
    return users;
}

void search(State &state)
{
    UserModel model;
    model.setRecords(users(state));
    // Of some users each letter is looked at, and none is found.
    const SearchWords words(QStringLiteral("nowhere"));
    measure(state, [&] {
        model.setSearch(words);
        return model.rowCount();
    });
}

template<int column>
void sort(State &state)
{
    UserModel model;
    const QVector<UserRecord> records = users(state);
    for ([[maybe_unused]] auto iteration : state) {
        state.PauseTiming();
        // Makes it forget the order of that column, which it is not sorted by.
        model.sort(UserModel::NameColumn, Qt::AscendingOrder);
        model.setRecords(records);
        state.ResumeTiming();
        model.sort(column, Qt::DescendingOrder);
    }
}

/** The bytes that are allocated. */
double allocated()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

template<typename Make>
void measureMemory(State &state, const Make &make)
{
    for ([[maybe_unused]] auto iteration : state) {
        const double before = allocated();
        const auto made = make();
        reportBytes(state, allocated() - before);
    }
}

void recordsMemory(State &state)
{
    measureMemory(state, [&state] { return users(state); });
}

void modelMemory(State &state)
{
    measureMemory(state, [&state] {
        auto model = std::make_unique<UserModel>();
        model->setRecords(users(state));
        for (const int column : {UserModel::UidColumn, UserModel::FullNameColumn, UserModel::NameColumn}) {
            model->sort(column, Qt::AscendingOrder);
        }
        return model;
    });
}

void writeRules(const State &state)
{
    QByteArray rules;
    for (int i = 0; i < state.range(0); ++i) {
        rules += "user" + QByteArray::number(i) + (i % 2 ? " soft nofile 1024\n" : " hard nproc 100\n");
    }
    clearLimits();
    Sandbox::write(limitsPath(), rules);
}

void rulesMemory(State &state)
{
    writeRules(state);
    measureMemory(state, [] { return std::make_unique<PamLimits::SessionLimits>(PamLimits::SessionLimits::read()); });
}

void linesModelMemory(State &state)
{
    writeRules(state);
    measureMemory(state, [] {
        auto model = std::make_unique<LimitLinesModel>();
        model->setAnalysis(
            LimitAnalysis::create(PamLimits::SessionLimits::read(), {}, std::make_shared<std::atomic_bool>(false)));
        return model;
    });
}
}

Comparisons pageComparisons()
{
    return {
        {"searchUsers",
         "searching all columns of the list of users",
         "",
         {50, 10000},
         "",
         {1000, 10000},
         benchmark::oNone,
         search},
        {"sortFullNames",
         "sorting the list of users by full name for the first time",
         "",
         {50, 10000},
         "",
         {1000, 10000},
         benchmark::oNone,
         sort<UserModel::FullNameColumn>},
        {"userModelMemory",
         "memory of the list of users with its records",
         "the records alone",
         {1.5},
         "",
         {10000, 100000},
         benchmark::oNone,
         modelMemory,
         recordsMemory,
         Figure::Memory},
        {"linesModelMemory",
         "memory of the list of limits lines with its rules",
         "the rules alone",
         {1.5},
         "",
         {10000, 100000},
         benchmark::oNone,
         linesModelMemory,
         rulesMemory,
         Figure::Memory},
    };
}

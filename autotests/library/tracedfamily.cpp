/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "filechoice.h"

#include <GroupInfo>
#include <GroupListModel>
#include <GroupSelectDialog>
#include <LimitsParser>
#include <UserInfo>
#include <UserListModel>
#include <UserSelectDialog>
#include <UserUtils>

#include <QApplication>
#include <QValidator>

#include <algorithm>
#include <memory>

#include <unistd.h>

// Uses one family of the library's classes between two marks in the trace.

namespace
{
QString alice()
{
    return QStringLiteral("alice");
}

void records()
{
    UserInfo user = UserInfo::getUser(alice());
    user.reload();
    UserInfo::getUser(user.uid());
    UserInfo::getUsers();
    GroupInfo group = GroupInfo::getGroup(user.primaryGroup().name());
    group.reload();
    GroupInfo::getGroup(group.gid());
    GroupInfo::getGroups();
    GroupInfo::getPrimaryGroups();
    static_cast<void>(group.isPrimaryOf(alice()));
}

void validators()
{
    QString text = alice();
    int position = 0;
    for (const auto create :
         {UserUtils::createUserNameValidator, UserUtils::createGroupNameValidator, UserUtils::createGecosValidator}) {
        const std::unique_ptr<QValidator> validator(create(nullptr));
        validator->validate(text, position);
    }
}

void hashes()
{
    UserUtils::saltPassword(alice(), false);
    UserUtils::saltPassword(alice(), true);
}

void pictures()
{
    UserUtils::getRandomUserIcon(true);
    UserUtils::getRandomUserIcon(false);
}

void limits()
{
    LimitsParser limits;
    QString error;
    limits.readLimitsConf(error);
    const QStringList items = LimitsParser::availableItems();
    const QList<LimitsParser::Field> rules = limits.fields();
    for (const LimitsParser::Field &rule : rules) {
        LimitsParser::domainToolTip(rule.domain);
        LimitsParser::typeToolTip(rule.type);
        LimitsParser::itemToolTip(rule.item);
        LimitsParser::valueToString(rule.value, rule.item);
        limits.getItem(UserInfo(), rule.item);
        limits.getItem(GroupInfo(), rule.item);
    }
}

void models()
{
    UserListModel users;
    users.setFilter(UserListModel::System);
    users.reloadUser(alice());
    GroupListModel groups(alice(), {alice()});
    groups.setFilter(GroupListModel::Selected);
    groups.reloadGroup(alice());
}

void show(QWidget &widget)
{
    widget.show();
    QApplication::processEvents();
}

void selectDialogs()
{
    UserSelectDialog users(GroupInfo::getGroup(alice()), {alice()});
    show(users);
    GroupSelectDialog groups(alice(), {alice()});
    show(groups);
}

/** Chooses the file of the second argument. */
void iconDialog()
{
    UserIconDialog dialog;
    show(dialog);
    const FileChoice choice(dialog, QApplication::arguments().at(2));
    dialog.selectedPixmap();
}

struct Family {
    const char *name;
    bool hasWindows;
    void (*use)();
};

constexpr Family families[] = {
    {"records", false, records},
    {"validators", false, validators},
    {"hashes", false, hashes},
    {"pictures", false, pictures},
    {"limits", false, limits},
    {"models", true, models},
    {"select dialogs", true, selectDialogs},
    {"icon dialog", true, iconDialog},
};

void mark(const char *name)
{
    static_cast<void>(access(name, F_OK));
}
}

int main(int argc, char **argv)
{
    const auto *const family = std::find_if(std::begin(families), std::end(families), [&](const Family &family) {
        return argc > 1 && qstrcmp(family.name, argv[1]) == 0;
    });
    if (family == std::end(families)) {
        return 2;
    }
    std::unique_ptr<QCoreApplication> application;
    if (family->hasWindows) {
        application = std::make_unique<QApplication>(argc, argv);
    } else {
        application = std::make_unique<QCoreApplication>(argc, argv);
    }
    mark("/begin");
    family->use();
    mark("/end");
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

// Fixed workloads whose instructions callgrind counts. Each ends a part of the profile that is named after it.

#include "generatedaccounts.h"
#include "limitsfixtures.h"

#include <GroupInfo>
#include <GroupSelectDialog>
#include <UserIconDialog>
#include <UserInfo>
#include <UserListModel>
#include <UserSelectDialog>
#include <UserUtils>

#include <QApplication>
#include <QFrame>
#include <QLayout>
#include <QMouseEvent>
#include <QPixmap>
#include <QValidator>

#include <algorithm>
#include <memory>

#include <valgrind/callgrind.h>

namespace
{
constexpr int accounts = 200;

template<typename Work>
void count(const char *name, const Work &work)
{
    CALLGRIND_START_INSTRUMENTATION;
    work();
    CALLGRIND_STOP_INSTRUMENTATION;
    CALLGRIND_DUMP_STATS_AT(name);
}

void listRecords()
{
    UserInfo::getUsers();
    GroupInfo::getGroups();
    UserInfo::getUser(QStringLiteral("user7")).groupNames();
}

/** Reads all data that a view would show. */
void showAll(const QAbstractItemModel &model)
{
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            const QModelIndex index = model.index(row, column);
            model.flags(index);
            for (const int role : {Qt::DisplayRole, Qt::DecorationRole, Qt::CheckStateRole}) {
                index.data(role);
            }
        }
    }
}

void useModel(UserListModel &model)
{
    for (const int filter : {0, 1, 2, 3, 4, 5}) {
        model.setFilter(static_cast<UserListModel::Filter>(filter));
        showAll(model);
    }
    model.setFilter(UserListModel::All);
    for (int row = 0; row < model.rowCount(); ++row) {
        model.setData(model.index(row, UserListModel::NameColumn), Qt::Checked, Qt::CheckStateRole);
    }
    model.selectedUserNames();
    model.setSelectedUserName(QStringLiteral("user7"), false);
    model.findUser(QStringLiteral("user199"));
}

/** Rules for groups without members. One line in ten has a tab, so it is not a rule. */
void writeRules(int groups)
{
    QByteArray rules = "# domain type item value\n";
    for (int i = 0; i < groups; ++i) {
        const QByteArray domain = "@team" + QByteArray::number(i);
        rules += domain + " soft nofile 1024\n" + domain + " hard nofile 4096\n";
        rules += domain + "  -  nofile  unlimited  # whatever\n";
        rules += i % 3 == 0 ? domain + "\thard nofile 8192\n" : QByteArray();
    }
    clearLimits();
    Sandbox::write(limitsPath(), rules);
}

void lookUpLimits(const LimitsParser &limits, const UserInfo &user)
{
    const QString item = QStringLiteral("nofile");
    limits.getItem(user, item);
    limits.getItem(user.primaryGroup(), item);
    limits.findField(user.name(), item);
    LimitsParser::availableItems();
    const QList<LimitsParser::Field> rules = limits.fields();
    for (const LimitsParser::Field &rule : rules) {
        LimitsParser::domainToolTip(rule.domain);
        LimitsParser::typeToolTip(rule.type);
        LimitsParser::itemToolTip(rule.item);
        LimitsParser::valueToString(rule.value, rule.item);
    }
}

void validate(QValidator *made, const QString &text)
{
    const std::unique_ptr<QValidator> validator(made);
    for (int length = 0; length < text.size(); ++length) {
        QString typed = text.left(length);
        validator->validate(typed, length);
    }
}

void typeNames()
{
    const QString text = QStringLiteral("a_name_that_is_longer_than_what_is_allowed");
    for (int i = 0; i < 20; ++i) {
        validate(UserUtils::createUserNameValidator(nullptr), text);
        validate(UserUtils::createGroupNameValidator(nullptr), text);
        validate(UserUtils::createGecosValidator(nullptr), text);
    }
}

void hashPasswords()
{
    for (int i = 0; i < 2; ++i) {
        UserUtils::saltPassword(QStringLiteral("correct horse"), false);
        UserUtils::saltPassword(QStringLiteral("correct horse"), true);
    }
}

void openDialogs(const GroupInfo &group)
{
    UserSelectDialog(group, group.users()).grab();
    GroupSelectDialog(QStringLiteral("user7"), {QStringLiteral("shared200")}).grab();
}

void send(QWidget &widget, QEvent::Type type, const QPoint &position)
{
    QMouseEvent event(type, position, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

/** Drags from @p start and back. */
void drag(QWidget &widget, const QPoint &start, const QPoint &step)
{
    send(widget, QEvent::MouseButtonPress, start);
    for (const int way : {1, 2, 3, 2, 1, 0}) {
        send(widget, QEvent::MouseMove, start + way * step);
    }
    send(widget, QEvent::MouseButtonRelease, start);
}

void cutIcon(const QPixmap &picture)
{
    UserIconDialog dialog;
    dialog.setPixmap(picture);
    dialog.grab();
    QWidget &preview = *dialog.findChild<QFrame *>(QStringLiteral("previewFrame"))->layout()->itemAt(0)->widget();
    const QPoint centre = preview.rect().center();
    const int side = std::min(preview.width() * picture.height() / picture.width(), preview.height());
    const QPoint corner = centre + QPoint(side, side) / 2 - QPoint(5, 5);
    for (int i = 0; i < 20; ++i) {
        drag(preview, centre, QPoint(5, 0));
        drag(preview, corner, QPoint(-10, -10));
        dialog.grab();
        dialog.selectedPixmap();
    }
}
}

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    GeneratedAccounts::write(accounts);
    const GroupInfo group = GroupInfo::getGroup(QStringLiteral("shared200"));
    const UserInfo user = UserInfo::getUser(QStringLiteral("user7"));
    UserListModel model(group, group.users());
    writeRules(1000);
    LimitsParser limits;
    QString error;
    QPixmap picture(640, 480);
    picture.fill(Qt::gray);

    count("records", listRecords);
    count("model", [&] { useModel(model); });
    count("limitsreader", [&] { limits.readLimitsConf(error); });
    count("limitslookup", [&] { lookUpLimits(limits, user); });
    count("validators", typeNames);
    count("hashes", hashPasswords);
    count("dialogs", [&] { openDialogs(group); });
    count("icon", [&] { cutIcon(picture); });
}

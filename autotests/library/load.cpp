/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "filechoice.h"
#include "largeimages.h"
#include "limitsfixtures.h"

#include <GroupInfo>
#include <UserInfo>
#include <UserListModel>

#include <QApplication>
#include <QByteArrayList>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <limits>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// Does one piece of work over much data and prints the processor time that it took and the memory at its peak:
//
//   scripts/sandbox build/dev/bin/load NAME [DIVISOR [SECONDS MEGABYTES]]
//
// The exit status says whether the result was right and the limits were kept. A divisor makes the data that much
// smaller.

namespace
{
struct Sizes {
    explicit Sizes(int divisor)
        : accounts(100000 / divisor)
        , groups(20000 / divisor)
        , memberships(5000 / divisor)
        , rules(1000000 / divisor)
    {
    }

    int accounts;
    int groups;
    int memberships;
    int rules;
};

using Names = QByteArrayList;

Names accountNames(int first, int step, int end)
{
    Names names;
    for (int i = first; i < end; i += step) {
        names.append("user" + QByteArray::number(i));
    }
    return names;
}

/** Each account has one primary group and is a member of one other group. */
void writeAccounts(const Sizes &sizes)
{
    QByteArray passwd;
    for (int i = 0; i < sizes.accounts; ++i) {
        const QByteArray name = "user" + QByteArray::number(i);
        passwd += name + ":x:" + QByteArray::number(100000 + i) + ':' + QByteArray::number(1000 + i % sizes.groups)
            + ":User,,,:/home/" + name + ":/bin/bash\n";
    }
    QByteArray groups;
    for (int i = 0; i < sizes.groups; ++i) {
        const Names members = accountNames((i + 1) % sizes.groups, sizes.groups, sizes.accounts);
        groups +=
            "group" + QByteArray::number(i) + ":x:" + QByteArray::number(1000 + i) + ':' + members.join(',') + '\n';
    }
    Sandbox::setAccounts(passwd, groups + "ormel-admin:x:27:user7\n");
    Sandbox::removeExtraAccounts();
}

bool listUsers(const Sizes &sizes)
{
    const QList<UserInfo> users = UserInfo::getUsers();
    return users.size() == sizes.accounts && users.at(7).isOrmelAdmin()
        && std::all_of(users.begin(), users.end(), [](const UserInfo &user) { return user.groups().size() >= 2; });
}

bool listGroups(const Sizes &sizes)
{
    const QList<GroupInfo> groups = GroupInfo::getGroups();
    return groups.size() == sizes.groups + 1
        && std::all_of(groups.begin(), groups.end() - 1, [&sizes](const GroupInfo &group) {
               return group.users().size() == 2 * (sizes.accounts / sizes.groups);
           });
}

bool findUser(const Sizes &sizes)
{
    return UserInfo::getUser(uint(100000 + sizes.accounts - 1)).groups().size() == 2;
}

/** One account that is a member of every group. */
void writeMemberships(const Sizes &sizes)
{
    QByteArray groups;
    for (int i = 0; i < sizes.memberships; ++i) {
        groups += "group" + QByteArray::number(i) + ":x:" + QByteArray::number(2000 + i) + ":user0\n";
    }
    Sandbox::setAccounts(manyUsers(1), "staff:x:50:\normel-admin:x:27:\n" + groups);
    Sandbox::removeExtraAccounts();
}

bool findMember(const Sizes &sizes)
{
    return UserInfo::getUser(QStringLiteral("user0")).groups().size() == sizes.memberships + 1;
}

/** Rules for as many users, followed by one for everybody. */
void writeRules(const Sizes &sizes)
{
    QByteArray rules;
    for (int i = 1; i < sizes.rules; ++i) {
        rules += "user" + QByteArray::number(i) + " hard nofile " + QByteArray::number(i) + '\n';
    }
    clearLimits();
    Sandbox::write(limitsPath(), rules + "* - nofile 7\n");
    Sandbox::setAccounts("user0:x:1000:1000::/:\n", "user0:x:1000:\normel-admin:x:27:\n");
    Sandbox::removeExtraAccounts();
}

bool readRules(const Sizes &sizes)
{
    return readLimits().fields().size() == sizes.rules;
}

bool lookUpRules(const Sizes & /*sizes*/)
{
    const LimitsParser limits = readLimits();
    const UserInfo user = UserInfo::getUser(QStringLiteral("user0"));
    const QStringList items = LimitsParser::availableItems();
    QVariant value;
    for (const QString &item : items) {
        value = item == QLatin1String("nofile") ? limits.getItem(user, item) : value;
        static_cast<void>(limits.getItem(user.primaryGroup(), item));
    }
    return value.toInt() == 7;
}

bool explainRules(const Sizes & /*sizes*/)
{
    const QList<LimitsParser::Field> rules = readLimits().fields();
    return std::all_of(rules.begin(), rules.end(), [](const LimitsParser::Field &rule) {
        return !LimitsParser::domainToolTip(rule.domain).isEmpty() && !LimitsParser::typeToolTip(rule.type).isEmpty()
            && !LimitsParser::itemToolTip(rule.item).isEmpty();
    });
}

bool showUsers(const Sizes &sizes)
{
    UserListModel users(GroupInfo::getGroup(QStringLiteral("group0")), {QStringLiteral("user0")});
    users.setFilter(UserListModel::All);
    for (const auto filter : {UserListModel::Administrators, UserListModel::Selected}) {
        users.setFilter(filter);
        if (users.rowCount() != 1) {
            return false;
        }
    }
    users.setFilter(UserListModel::All);
    return users.rowCount() == sizes.accounts && users.removeRows(0, 100) && users.rowCount() == sizes.accounts - 100;
}

/** Chooses files that claim to be images of 500 megapixels. Neither they nor the previous image are shown. */
bool chooseLargeImages(const Sizes & /*sizes*/)
{
    UserIconDialog dialog;
    QPixmap small(64, 64);
    small.fill(Qt::gray);
    const QVector<LargeImage> images = largeImages(QSize(25000, 20000));
    for (const LargeImage &image : images) {
        const QString path = QStringLiteral("/tmp/large.") + QString::fromLatin1(image.format);
        Sandbox::write(path, image.content);
        dialog.setPixmap(small);
        if (dialog.selectedPixmap().isNull()) {
            return false;
        }
        const FileChoice choice(dialog, path);
        if (!dialog.selectedPixmap().isNull()) {
            return false;
        }
    }
    return true;
}

void prepareNothing(const Sizes & /*sizes*/)
{
}

struct Work {
    const char *name;
    void (*prepare)(const Sizes &sizes);
    bool (*work)(const Sizes &sizes);
};

constexpr Work works[] = {
    {"list-users", writeAccounts, listUsers},
    {"list-groups", writeAccounts, listGroups},
    {"find-user", writeAccounts, findUser},
    {"show-users", writeAccounts, showUsers},
    {"find-member-of-many", writeMemberships, findMember},
    {"read-rules", writeRules, readRules},
    {"look-up-rules", writeRules, lookUpRules},
    {"explain-rules", writeRules, explainRules},
    {"choose-large-images", prepareNothing, chooseLargeImages},
};

/** Writes the files in another process, whose memory does not count. */
void prepare(const Work &work, const Sizes &sizes)
{
    const pid_t child = fork();
    if (child == 0) {
        work.prepare(sizes);
        _exit(0);
    }
    int status = 0;
    if (waitpid(child, &status, 0) != child || status != 0) {
        qFatal("The files cannot be written.");
    }
}
}

int main(int argc, char **argv)
{
    const auto *const work = std::find_if(std::begin(works), std::end(works), [&](const Work &work) {
        return argc > 1 && qstrcmp(work.name, argv[1]) == 0;
    });
    const auto number = [&](int argument, int otherwise) {
        return argc > argument ? QByteArray(argv[argument]).toInt() : otherwise;
    };
    const int divisor = number(2, 1);
    if (work == std::end(works) || divisor < 1) {
        for (const Work &work : works) {
            std::puts(work.name);
        }
        return 2;
    }
    const Sizes sizes(divisor);
    prepare(*work, sizes);
    const QApplication application(argc, argv);
    const std::clock_t start = std::clock();
    const bool right = work->work(sizes);
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const long megabytes = usage.ru_maxrss / 1024;
    constexpr int any = std::numeric_limits<int>::max();
    const bool cheap = seconds <= number(3, any) && megabytes <= number(4, any);
    const char *rightVerdict = cheap ? "ok" : "TOO MUCH";
    std::printf("%-20s %8.2f s %6ld MB  %s\n", work->name, seconds, megabytes, right ? rightVerdict : "WRONG");
    return right && cheap ? 0 : 1;
}

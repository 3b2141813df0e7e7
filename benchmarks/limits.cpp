/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "comparison.h"
#include "limitsfixtures.h"

#include <UserInfo>

#include <QFile>

#include <algorithm>

using benchmark::State;

namespace
{
/** As many rules as the size says: each for a user of its own, the items and values taking turns. */
QByteArray rules(const State &state)
{
    static const char *const items[] = {"core", "nofile", "nproc", "memlock", "stack"};
    QByteArray lines;
    for (int i = 0; i < state.range(0); ++i) {
        const QByteArray number = QByteArray::number(i);
        lines += "user" + number + (i % 2 ? " soft " : " hard ") + items[i % 5] + ' ' + number + '\n';
    }
    return lines;
}

void writeRules(const State &state)
{
    clearLimits();
    Sandbox::write(limitsPath(), rules(state));
}

void readLimitsConf(State &state)
{
    writeRules(state);
    measure(state, [] { return readLimits(); });
}

void readLines(State &state)
{
    writeRules(state);
    measure(state, [] {
        QFile file(limitsPath());
        file.open(QIODevice::ReadOnly);
        qint64 length = 0;
        for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine()) {
            length += line.size();
        }
        return length;
    });
}

constexpr int groupCount = 20;

/** A user in many groups, for whom there is no rule. */
UserInfo member()
{
    QByteArray groups = "ormel-admin:x:27:\nmember:x:1000:\n";
    for (int gid = 2001; gid < 2000 + groupCount; ++gid) {
        const QByteArray number = QByteArray::number(gid);
        groups += "group" + number + ":x:" + number + ":member\n";
    }
    Sandbox::setAccounts("member:x:1000:1000:::\n", groups);
    Sandbox::removeExtraAccounts();
    UserInfo member = UserInfo::getUser(QStringLiteral("member"));
    if (member.groups().size() != groupCount) {
        qFatal("The user is in %d groups", member.groups().size());
    }
    return member;
}

const QString item = QStringLiteral("nofile");

void getItem(State &state)
{
    const UserInfo user = member();
    const LimitsParser limits = limitsOf(rules(state));
    measure(state, [&] { return limits.getItem(user, item); });
}

/** The words that the steps of a lookup search for: the name, the groups, two kinds of ids and "*". */
QStringList wordsOf(const UserInfo &user)
{
    QStringList words{user.name(), QStringLiteral("//"), QStringLiteral("@//"), QStringLiteral("*")};
    const QStringList names = user.groupNames();
    for (const QString &name : names) {
        words.append(QLatin1Char('@') + name);
    }
    return words;
}

void compareStrings(State &state)
{
    const QStringList words = wordsOf(member());
    const QList<LimitsParser::Field> fields = limitsOf(rules(state)).fields();
    measure(state, [&] {
        return std::count_if(words.begin(), words.end(), [&](const QString &word) {
            return std::any_of(fields.begin(), fields.end(), [&](const LimitsParser::Field &field) {
                return field.item == item && field.domain == word;
            });
        });
    });
}
}

Comparisons limitsComparisons()
{
    return {
        {"readLimitsConf",
         "`LimitsParser::readLimitsConf()`, lines",
         "`QFile::readLine()` for each line",
         {4},
         "",
         {10000, 100000, 1000000},
         benchmark::oNLogN,
         readLimitsConf,
         readLines},
        {"getItem",
         "`LimitsParser::getItem()` for a user in 20 groups, rules",
         "one pass of string comparisons for each step of the lookup",
         {2},
         "",
         {100, 1000, 10000},
         benchmark::oNLogN,
         getItem,
         compareStrings},
    };
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountchecks.h"

#include "lineproblem.h"

#include <ctime>

namespace
{
using Kind = Problem::Kind;

constexpr long secondsPerDay = 24L * 60 * 60;

/** What /etc/passwd has instead of a password that is in /etc/shadow. */
constexpr char shadowed[] = "x";

/** Whether no password can match. */
bool isDisabled(const QByteArray &password)
{
    return password.startsWith('!') || password.startsWith('*');
}

bool isPasswordExpired(const UserShadowLine &shadow, long today)
{
    const bool tooOld = shadow.lastChange > 0 && shadow.validDays >= 0 && shadow.lastChange + shadow.validDays < today;
    return !isDisabled(shadow.password) && (shadow.lastChange == 0 || tooOld);
}

bool isAccountExpired(const UserShadowLine &shadow, long today)
{
    return shadow.expires > 0 && shadow.expires <= today;
}

bool isChangedInFuture(const UserShadowLine &shadow, long today)
{
    return shadow.lastChange > today;
}

const struct {
    Kind kind;
    bool (*holds)(const UserShadowLine &shadow, long today);
} dayRules[] = {
    {Kind::ExpiredPassword, isPasswordExpired},
    {Kind::ExpiredAccount, isAccountExpired},
    {Kind::FuturePasswordChange, isChangedInFuture},
};

QList<Problem> checkDays(const QVector<UserShadowLine> &lines)
{
    const long today = time(nullptr) / secondsPerDay;
    QList<Problem> problems;
    for (const UserShadowLine &line : lines) {
        for (const auto &rule : dayRules) {
            if (rule.holds(line, today)) {
                problems.append(lineProblem(rule.kind, line, {textOf(line.name)}));
            }
        }
    }
    return problems;
}

/** System accounts are locked on purpose. */
template<typename Line>
QList<Problem> checkPassword(const Line &line, bool isSystem)
{
    if (line.password.isEmpty()) {
        return {lineProblem(Kind::EmptyPassword, line, {textOf(line.name)})};
    }
    if (line.password.startsWith('!') && !isSystem) {
        return {lineProblem(Kind::LockedPassword, line, {textOf(line.name)})};
    }
    return {};
}
}

QList<Problem> checkPasswords(const AccountFiles &files)
{
    const auto shadow = linesByName(files.userShadow.lines);
    QList<Problem> problems;
    for (const UserLine &user : files.users.lines) {
        const bool isSystem = isIdOfSystem(user.uid);
        if (user.password != shadowed) {
            problems += checkPassword(user, isSystem);
        } else if (const UserShadowLine *line = shadow.value(user.name)) {
            problems += checkPassword(*line, isSystem);
        }
        if (user.password != shadowed && !user.password.isEmpty() && !isDisabled(user.password)) {
            problems.append(lineProblem(Kind::ReadableHash, user, {textOf(user.name)}));
        }
    }
    return problems + checkDays(files.userShadow.lines);
}

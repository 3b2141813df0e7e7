/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfiles.h"
#include "fuzzing.h"
#include "limitsfixtures.h"
#include "machinecheck.h"

#include <QFile>
#include <QSet>

#include <algorithm>

#include <grp.h>
#include <pwd.h>

using Fuzzing::require;

// An input is /etc/passwd, /etc/group, /etc/shadow, /etc/gshadow and limits.conf. Lines that are "---"
// stand between them.

namespace
{
const char *const paths[] = {UserLine::path, GroupLine::path, UserShadowLine::path, GroupShadowLine::path};
constexpr int fileCount = 5;

QString describe(const passwd &user)
{
    return QStringLiteral("%1 %2 %3 %4\n")
        .arg(user.pw_uid)
        .arg(user.pw_gid)
        .arg(QString::fromLatin1(user.pw_dir), QString::fromLatin1(user.pw_shell));
}

QString describe(const UserLine &user)
{
    return QStringLiteral("%1 %2 %3 %4\n")
        .arg(user.uid)
        .arg(user.gid)
        .arg(QString::fromLatin1(user.home), QString::fromLatin1(user.shell));
}

QString describe(const group &group)
{
    return QStringLiteral("%1\n").arg(group.gr_gid);
}

QString describe(const GroupLine &group)
{
    return QStringLiteral("%1\n").arg(group.gid);
}

/** What the C library reads; it takes the lines for a name service for entries. */
template<typename Entry>
QString entriesOf(const char *path, Entry *(*next)(FILE *), char *Entry::*name)
{
    QString entries;
    // The C library misreads an indented line without an end.
    QByteArray content = contentOf(QString::fromLatin1(path)) + '\n';
    FILE *const file = fmemopen(content.data(), size_t(content.size()), "r");
    while (const Entry *entry = file ? next(file) : nullptr) {
        const char first = *(entry->*name);
        if (first != '+' && first != '-') {
            entries += describe(*entry);
        }
    }
    if (file) {
        fclose(file);
    }
    return entries;
}

template<typename Line>
QString describeAll(const QVector<Line> &lines)
{
    QString all;
    for (const Line &line : lines) {
        all += describe(line);
    }
    return all;
}

template<typename Line>
bool hasDuplicateName(const QVector<Line> &lines)
{
    QSet<QByteArray> names;
    for (const Line &line : lines) {
        names.insert(line.name);
    }
    return names.size() < lines.size();
}

void checkFiles(const AccountFiles &files)
{
    Fuzzing::requireEqual(
        describeAll(files.users.lines), entriesOf(UserLine::path, fgetpwent, &passwd::pw_name), "users");
    Fuzzing::requireEqual(
        describeAll(files.groups.lines), entriesOf(GroupLine::path, fgetgrent, &group::gr_name), "groups");
}

/** Whether @p problem is at a place that is there, and says what it is. */
void checkProblem(const Problem &problem, const QList<QByteArray> &contents)
{
    require(!problem.text().isEmpty() && !problem.meaning().isEmpty() && !problem.remedy().isEmpty(),
            QStringLiteral("A problem is explained: ") + problem.id());
    for (int i = 0; i < contents.size() - 1; ++i) {
        if (problem.file == QLatin1String(paths[i])) {
            require(problem.line >= 0 && problem.line <= contents.at(i).count('\n') + 1,
                    QStringLiteral("A problem is in a line that is there: ") + problem.place());
        }
    }
}

void checkProblems(const QList<Problem> &problems, const AccountFiles &files)
{
    require(
        std::is_sorted(problems.begin(),
                       problems.end(),
                       [](const Problem &left, const Problem &right) { return left.severity() < right.severity(); }),
        QStringLiteral("The worst problems come first"));
    const auto isDuplicate = [](const Problem &problem) { return problem.kind == Problem::Kind::DuplicateName; };
    require(std::any_of(problems.begin(), problems.end(), isDuplicate)
                == (hasDuplicateName(files.users.lines) || hasDuplicateName(files.groups.lines)
                    || hasDuplicateName(files.userShadow.lines) || hasDuplicateName(files.groupShadow.lines)),
            QStringLiteral("Duplicate names are found"));
}
}

void Target::prepare()
{
    clearLimits();
    Sandbox::removeExtraAccounts();
}

void Target::run(const QByteArray &input)
{
    const QList<QByteArray> contents = Fuzzing::sections(input, fileCount).mid(0, fileCount);
    for (int i = 0; i < fileCount - 1; ++i) {
        Sandbox::write(QString::fromLatin1(paths[i]), contents.at(i));
    }
    Sandbox::write(limitsPath(), contents.constLast());
    const AccountFiles files = AccountFiles::read();
    if (!input.contains('\0')) { // where the C library ends a line
        checkFiles(files);
    }
    const MachineCheck check = MachineCheck::run();
    require(check.unreadFiles.isEmpty(), QStringLiteral("All files are read"));
    checkProblems(check.problems, files);
    for (const Problem &problem : check.problems) {
        checkProblem(problem, contents);
    }
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PROBLEM_H
#define PROBLEM_H

#include <QList>
#include <QString>
#include <QStringList>

/**
 * Something in the accounts or limits of the machine that is wrong or worth a look.
 *
 * The texts are translated. Names in them are as they are in the files and may contain anything.
 */
struct Problem {
    enum class Severity { Error, Warning, Note };

    enum class Kind {
        MalformedLine,
        WrongFieldCount,
        CommentLine,
        NisLine,
        DuplicateName,
        DuplicateUid,
        DuplicateGid,
        InvalidName,
        RefusedName,
        InvalidId,
        MissingPrimaryGroup,
        MissingMember,
        EmptyMember,
        MissingHome,
        MissingSystemHome,
        HomeNotDirectory,
        ForeignHome,
        UnusableShell,
        UnlistedShell,
        ExtraSuperuser,
        EmptyPassword,
        LockedPassword,
        ExpiredPassword,
        ExpiredAccount,
        FuturePasswordChange,
        ReadableHash,
        MissingShadowLine,
        IgnoredShadowLine,
        OrphanShadowLine,
        MissingAdministrator,
        DifferentMembers,
        IgnoredLimitsFile,
        FailingLimitsFile,
        IgnoredLimit,
        LimitForNobody,
        RefusedLimit,
        UselessLimit,
        LockingLimit,
        MisreadLimit,
    };

    static constexpr auto lastKind = Kind::MisreadLimit;

    Kind kind = Kind::MalformedLine;
    QString file;
    /** 0 for the whole file. */
    int line = 0;
    /** The account that the problem belongs to: a user, a group or, for a line that is no account, neither. */
    QString user;
    QString group;
    /** The names and numbers in text(). */
    QStringList details;

    /** An identifier for scripts, for example "duplicate-uid". */
    QString id() const;

    Severity severity() const;

    /** What was found. */
    QString text() const;

    /** The same for a widget: what is in the names cannot change the order of the sentence. */
    QString shownText() const;

    /** As "/etc/passwd:3". */
    QString place() const;

    /** What that means; the same for each problem of a kind. */
    QString meaning() const;

    /** What to do; the same for each problem of a kind. */
    QString remedy() const;
};

/** Orders by severity, kind, file and line. */
void sortProblems(QList<Problem> &problems);

#endif

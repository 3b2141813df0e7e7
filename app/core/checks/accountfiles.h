/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTFILES_H
#define ACCOUNTFILES_H

#include "problem.h"

#include <QByteArrayList>
#include <QList>
#include <QVector>

#include <sys/types.h>

/** A line of /etc/passwd that the C library reads. */
struct UserLine {
    static constexpr char path[] = "/etc/passwd";

    int number = 0;
    QByteArray name;
    QByteArray password;
    uid_t uid = 0;
    gid_t gid = 0;
    QByteArray home;
    QByteArray shell;
};

/** A line of /etc/group that the C library reads. */
struct GroupLine {
    static constexpr char path[] = "/etc/group";

    int number = 0;
    QByteArray name;
    QByteArray password;
    gid_t gid = 0;
    QByteArrayList members;
};

/** A line of /etc/shadow that the C library reads. Days count from 1970 on; -1 when there is none. */
struct UserShadowLine {
    static constexpr char path[] = "/etc/shadow";

    int number = 0;
    QByteArray name;
    QByteArray password;
    long lastChange = -1;
    long validDays = -1;
    long expires = -1;
};

/** A line of /etc/gshadow that the C library reads. */
struct GroupShadowLine {
    static constexpr char path[] = "/etc/gshadow";

    int number = 0;
    QByteArray name;
    QByteArrayList administrators;
    QByteArrayList members;
};

template<typename Line>
struct AccountFile {
    QVector<Line> lines;
    /** Lines that cannot be understood, or not completely. */
    QList<Problem> problems;
    /** Why the file could not be read; 0 when it could. */
    int error = 0;
};

/** The account files of the machine, as they are at this moment. */
struct AccountFiles {
    AccountFile<UserLine> users;
    AccountFile<GroupLine> groups;
    AccountFile<UserShadowLine> userShadow;
    AccountFile<GroupShadowLine> groupShadow;

    static AccountFiles read();
};

#endif

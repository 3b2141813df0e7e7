/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "fileversions.h"
#include "sandbox.h"

#include <UserUtils>

QByteArray passwdVersion(int version)
{
    QByteArray lines;
    for (int i = 0; i < userCount; ++i) {
        const QByteArray number = QByteArray::number(i);
        const QByteArray id = QByteArray::number(1000 + 100 * version + i);
        const QByteArray gid = QByteArray::number(i % 3 == 0 ? 50 + version : 1000 + (i + version) % userCount);
        lines += "user" + number + ":x:" + id + ':' + gid + ":User " + number + ",,,:/home"
            + QByteArray::number(version) + "/user" + number + ":/bin/sh\n";
    }
    return lines;
}

QByteArray groupVersion(int version)
{
    QByteArray lines = version == 0 ? "ormel-admin:x:27:user1,user2\nstaff:x:50:user3\naudio:x:51:\n"
                                    : "audio:x:50:user3,user4,user5\nstaff:x:51:\normel-admin:x:28:user2,user3\n";
    for (int i = 0; i < userCount; ++i) {
        lines += "group" + QByteArray::number((i + 5 * version) % userCount) + ":x:" + QByteArray::number(1000 + i)
            + ":user" + QByteArray::number((i + 1 + version) % userCount) + '\n';
    }
    return lines;
}

QByteArray limitsVersion(int version)
{
    return version == 0 ? "# nothing\nuser1 hard nproc 100\n@staff - nofile 4096\n* soft core unlimited\n"
                        : "user1 - nproc 1\n1000:1010 hard maxlogins 7\n%audio - maxsyslogins 12\n";
}

QByteArray adduserVersion(int version)
{
    return version == 0 ? "FIRST_UID=1000\nNAME_REGEX=\"[a-z]+\"\n" : "NAME_REGEX=\"^[A-Z][0-9]*$\"\nLAST_UID=59999\n";
}

QStringList patterns()
{
    return {QStringLiteral("[a-z][a-z0-9\\_\\-]*"), QStringLiteral("[a-z]+"), QStringLiteral("^[A-Z][0-9]*$")};
}

QString facePath(int number)
{
    return UserUtils::userIconPath() + QStringLiteral("/face%1.png").arg(number);
}

QByteArrayList versions(QByteArray (*version)(int))
{
    return {version(0), version(1)};
}

QByteArray beginnings(const QByteArrayList &texts)
{
    QByteArray lines;
    const QByteArrayList whole = texts.join().split('\n');
    for (const QByteArray &line : whole) {
        for (int size = 1; size <= line.size(); ++size) {
            lines += line.left(size) + '\n';
        }
    }
    return lines;
}

void setVersion(int version)
{
    Sandbox::setAccounts(passwdVersion(version), groupVersion(version));
}

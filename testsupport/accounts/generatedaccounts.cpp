/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "generatedaccounts.h"

#include "sandbox.h"

#include <QByteArrayList>
#include <QVector>

#include <random>

void GeneratedAccounts::write(int count, SharedGroups place)
{
    std::mt19937 random(1);
    QByteArray passwd;
    QByteArray own;
    QByteArray shared;
    QVector<QByteArrayList> members(sharedGroups);
    for (int i = 0; i < count; ++i) {
        const QByteArray name = "user" + QByteArray::number(i);
        const QByteArray id = QByteArray::number(1000 + i);
        passwd += name + ":x:" + id + ':' + id + ":User,,,:/home/" + name + ":/bin/bash\n";
        own += name + ":x:" + id + ":\n";
        const int first = static_cast<int>(random() % sharedGroups);
        for (int j = 0; j < memberships; ++j) {
            members[(first + 7 * j) % sharedGroups].append(name);
        }
    }
    for (int i = 0; i < sharedGroups; ++i) {
        const QByteArray number = QByteArray::number(200 + i);
        shared += "shared" + number + ":x:" + number + ':' + members.at(i).join(',') + '\n';
    }
    shared += "ormel-admin:x:27:\n";
    Sandbox::setAccounts(passwd, place == SharedGroups::First ? shared + own : own + shared);
    Sandbox::removeExtraAccounts();
}

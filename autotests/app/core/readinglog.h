/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef READINGLOG_H
#define READINGLOG_H

#include "accountreader.h"
#include "patience.h"

#include <QTest>

/** Records what an AccountReader reports. */
class ReadingLog
{
public:
    explicit ReadingLog(const PacketSource &source = AccountReader::ownProgram())
        : reader(source)
    {
        const auto note = [this](const char *entry) { entries.append(QString::fromLatin1(entry)); };
        QObject::connect(&reader, &AccountReader::administratorsGroupFound, &reader, [this, note](bool found) {
            note("administrators");
            hasAdministratorsGroup = found;
        });
        QObject::connect(&reader, &AccountReader::groupsRead, &reader, [this, note](const QVector<GroupRecord> &read) {
            note("groups");
            groups = read;
        });
        QObject::connect(&reader, &AccountReader::usersRead, &reader, [this, note](const QVector<UserRecord> &read) {
            note("users");
            users = read;
        });
        QObject::connect(
            &reader, &AccountReader::finished, &reader, [this, note](const QVector<UnreadableFile> &files) {
                note("finished");
                unreadable = files;
            });
        QObject::connect(&reader, &AccountReader::failed, &reader, [this, note](const QString &text) {
            note("failed");
            message = text;
        });
    }

    /** Starts reading. @return whether it has ended, with or without success */
    bool read()
    {
        entries.clear();
        groups.clear();
        users.clear();
        unreadable.clear();
        message.clear();
        reader.start();
        return QTest::qWaitFor([this] { return hasEnded(); }, patience);
    }

    bool hasEnded() const
    {
        const QString last = entries.isEmpty() ? QString() : entries.constLast();
        return last == QLatin1String("finished") || last == QLatin1String("failed");
    }

    AccountReader reader;
    QStringList entries;
    QVector<GroupRecord> groups;
    QVector<UserRecord> users;
    QVector<UnreadableFile> unreadable;
    QString message;
    bool hasAdministratorsGroup = false;
};

#endif

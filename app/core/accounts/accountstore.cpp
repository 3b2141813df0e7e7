/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountstore.h"

#include "changednames.h"

#include <KLocalizedString>

#include <QtConcurrent>

namespace
{
QStringList accountFiles()
{
    return {QStringLiteral("/etc/passwd"), QStringLiteral("/etc/group")};
}

QStringList limitsFiles()
{
    return {QStringLiteral("/etc/security/limits.conf"), QStringLiteral("/etc/security/limits.d")};
}

QString toString(const QVector<UnreadableFile> &files)
{
    QStringList lines;
    for (const UnreadableFile &file : files) {
        lines.append(i18n("Cannot read '%1': %2", file.path, file.reason));
    }
    return lines.join(QLatin1Char('\n'));
}
}

AccountStore::AccountStore(QObject *parent, const PacketSource &source)
    : QObject(parent)
    , m_reader(source)
    , m_accountFiles(accountFiles())
    , m_limitsFiles(limitsFiles())
{
    connect(&m_reader, &AccountReader::groupsRead, this, &AccountStore::setGroups);
    connect(&m_reader, &AccountReader::usersRead, this, &AccountStore::setUsers);
    connect(&m_reader, &AccountReader::administratorsGroupFound, this, [this](bool found) {
        m_hasAdministratorsGroup = found;
    });
    connect(&m_reader, &AccountReader::finished, this, [this](const QVector<UnreadableFile> &unreadable) {
        endAccounts(toString(unreadable));
    });
    connect(&m_reader, &AccountReader::failed, this, &AccountStore::endAccounts);
    connect(&m_limitsReader, &QFutureWatcherBase::finished, this, &AccountStore::setLimits);
    connect(&m_accountFiles, &FileWatcher::changed, this, &AccountStore::readWhenIdle);
    connect(&m_limitsFiles, &FileWatcher::changed, this, &AccountStore::readLimits);
}

void AccountStore::read()
{
    m_outdated = false;
    m_isReading = true;
    readLimits();
    m_reader.start();
    Q_EMIT started();
}

/** With files that change all the time, reading would never end if each change started it over. */
void AccountStore::readWhenIdle()
{
    if (isReading()) {
        m_outdated = true;
    } else {
        read();
    }
}

void AccountStore::cancel()
{
    m_reader.cancel();
    m_limitsReader.setFuture({});
    m_outdated = false;
    m_isReading = false;
    Q_EMIT ended();
}

bool AccountStore::isReading() const
{
    return m_isReading;
}

/** In a thread, so that a slow disk does not block the window. It shares no data with other threads. */
void AccountStore::readLimits()
{
    m_limitsReader.setFuture(QtConcurrent::run([] { return PamLimits::SessionLimits::read(); }));
}

void AccountStore::setLimits()
{
    if (m_limitsReader.isCanceled()) {
        return;
    }
    m_limits = m_limitsReader.result();
    QStringList lines;
    const QStringList errors = m_limits.errors();
    for (const QString &error : errors) {
        lines.append(i18n("Cannot read %1", error));
    }
    m_limitsError = lines.join(QLatin1Char('\n'));
    Q_EMIT limitsRead();
    endWhenAllIsRead();
}

void AccountStore::setGroups(const QVector<GroupRecord> &groups)
{
    m_changedGroups = m_hasGroups ? changedNames(m_groups, groups) : QSet<QString>();
    m_groups = groups;
    m_hasGroups = true;
    Q_EMIT groupsRead();
}

void AccountStore::setUsers(const QVector<UserRecord> &users)
{
    m_changedUsers = m_hasUsers ? changedNames(m_users, users) : QSet<QString>();
    m_users = users;
    m_hasUsers = true;
    Q_EMIT usersRead();
}

void AccountStore::endAccounts(const QString &error)
{
    m_accountsError = error;
    if (error.isEmpty()) {
        m_lastRead = QTime::currentTime();
    }
    endWhenAllIsRead();
}

void AccountStore::endWhenAllIsRead()
{
    if (!m_isReading || m_reader.isReading() || m_limitsReader.isRunning()) {
        return;
    }
    m_isReading = false;
    Q_EMIT ended();
    if (m_outdated) {
        read();
    }
}

const QVector<UserRecord> &AccountStore::users() const
{
    return m_users;
}

const QVector<GroupRecord> &AccountStore::groups() const
{
    return m_groups;
}

const QSet<QString> &AccountStore::changedUsers() const
{
    return m_changedUsers;
}

const QSet<QString> &AccountStore::changedGroups() const
{
    return m_changedGroups;
}

bool AccountStore::hasAdministratorsGroup() const
{
    return m_hasAdministratorsGroup;
}

QTime AccountStore::lastRead() const
{
    return m_lastRead;
}

const QString &AccountStore::accountsError() const
{
    return m_accountsError;
}

const PamLimits::SessionLimits &AccountStore::limits() const
{
    return m_limits;
}

const QString &AccountStore::limitsError() const
{
    return m_limitsError;
}

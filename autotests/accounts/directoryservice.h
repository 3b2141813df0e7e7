/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef DIRECTORYSERVICE_H
#define DIRECTORYSERVICE_H

#include <QProcess>

/**
 * A directory of accounts on the sandbox's own network: OpenLDAP's server, and the daemon through which the C
 * library asks it. Both run during the lifetime of this object. The daemon waits at most one second for the
 * server.
 */
class DirectoryService
{
public:
    /** Loads @p entries, LDIF below "dc=example", starts both and makes them a source of accounts. */
    explicit DirectoryService(const QByteArray &entries);
    ~DirectoryService();

    void startServer();
    void stopServer();

    /** Pauses the server: its connections stay open, but get no answer. */
    void freezeServer();
    void thawServer();

    void startLookups();
    void stopLookups();

    /** Waits until a new program finds the account @p name. */
    static void waitFor(const QString &name);

    /** The environment variables of a program that asks the directory. */
    static QStringList variables();

private:
    Q_DISABLE_COPY(DirectoryService)

    QProcess m_server;
    QProcess m_lookups;
};

#endif

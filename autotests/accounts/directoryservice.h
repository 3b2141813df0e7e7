/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef DIRECTORYSERVICE_H
#define DIRECTORYSERVICE_H

#include <QProcess>

/**
 * A directory of accounts on the sandbox's own network: OpenLDAP's server, and the daemon through
 * which the C library asks it. Both run while this lives. The daemon waits for the server a second at
 * most.
 */
class DirectoryService
{
public:
    /** Loads @p entries, LDIF below "dc=example", starts both and makes them a source of accounts. */
    explicit DirectoryService(const QByteArray &entries);
    ~DirectoryService();

    void startServer();
    void stopServer();

    /** Leaves the server's connections open, but unanswered. */
    void freezeServer();
    void thawServer();

    void startLookups();
    void stopLookups();

    /** Waits until programs, which ask the name service anew, find the account @p name. */
    static void waitFor(const QString &name);

    /** What programs that ask the directory need in their environment. */
    static QStringList variables();

private:
    Q_DISABLE_COPY(DirectoryService)

    QProcess m_server;
    QProcess m_lookups;
};

#endif

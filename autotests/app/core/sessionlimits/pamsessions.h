/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PAMSESSIONS_H
#define PAMSESSIONS_H

#include <QMap>
#include <QPair>
#include <QProcess>
#include <QStringList>
#include <QVector>

/** What a session got from pam_limits. */
struct PamSession {
    bool isOpen = false;
    /** Soft and hard limit in the kernel's units, by the names of the items. */
    QMap<QByteArray, QPair<quint64, quint64>> limits;
    QByteArray priority;
    QByteArray directory;
    bool hasNoNewPrivs = false;
    /** How many logins are allowed; -1 for any number. */
    qint64 logins = -1;
    /** "TYPE ITEM VALUE for RANK" of each rule that the module took for this account. */
    QList<QByteArray> rules;
};

/** Opens sessions with the pam_limits of this machine and no other module. */
class PamSessions
{
public:
    enum class Limits { Recorded, OfKernel };

    /** How many logins there are while limits are recorded. None of them is of a known user. */
    static constexpr quint64 foreignLogins = 1000;

    /** Writes the configuration of a service to /etc and leaves no limits files but an empty one. */
    explicit PamSessions(Limits limits = Limits::Recorded);
    ~PamSessions();

    PamSessions(const PamSessions &) = delete;
    PamSessions &operator=(const PamSessions &) = delete;

    /** Why no session can be opened; empty when sessions can be opened. */
    QString error() const;

    PamSession open(const QByteArray &user);

    /** A session for each of @p users, in less time than one by one. */
    QVector<PamSession> open(const QList<QByteArray> &users);

    /** The limits of a session without any rule. */
    const PamSession &plain() const;

private:
    QProcess m_process;
    PamSession m_plain;
};

#endif

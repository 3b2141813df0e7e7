/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "pamsessions.h"

#include "limitsfixtures.h"
#include "program.h"

namespace
{
constexpr int deadline = 30000;

QString service()
{
    return QStringLiteral("ormel-limits");
}

quint64 limitOf(const QByteArray &text)
{
    return text == "unlimited" ? ~quint64(0) : text.toULongLong();
}

/** Reads a line of the output of pamsession. */
void addLine(const QByteArray &line, PamSession &session)
{
    const QByteArray word = line.left(line.indexOf(' '));
    const QByteArray rest = line.mid(word.size() + 1);
    if (word == "result") {
        session.isOpen = rest == "0";
    } else if (word == "limit") {
        const QList<QByteArray> columns = rest.split(' ');
        session.limits.insert(columns.at(0), {limitOf(columns.at(1)), limitOf(columns.at(2))});
    } else if (word == "priority") {
        session.priority = rest;
    } else if (word == "chroot") {
        session.directory = rest;
    } else if (word == "nonewprivs") {
        session.hasNoNewPrivs = true;
    } else if (word == "logins") {
        session.logins = rest.toLongLong();
    } else if (word == "rule") {
        session.rules.append(rest);
    } else if (word == "bad" && !session.rules.isEmpty()) {
        session.rules.removeLast();
    }
}
}

PamSessions::PamSessions(Limits limits)
{
    clearLimits();
    Sandbox::write(QStringLiteral("/etc/pam.d/") + service(), "session required pam_limits.so debug\n");
    // The modules of this one would be loaded as well.
    Sandbox::write(QStringLiteral("/etc/pam.d/other"), QByteArray());
    const QStringList arguments =
        limits == Limits::OfKernel ? QStringList{QStringLiteral("--kernel"), service()} : QStringList{service()};
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(Program::builtFile(QStringLiteral("pamsession")), arguments);
    m_plain = open("root");
}

PamSessions::~PamSessions()
{
    m_process.closeWriteChannel();
    m_process.waitForFinished(deadline);
}

QString PamSessions::error() const
{
    if (m_process.state() == QProcess::NotRunning) {
        return m_process.errorString();
    }
    return m_plain.isOpen ? QString() : QStringLiteral("pam_limits opens no session");
}

PamSession PamSessions::open(const QByteArray &user)
{
    return open(QList<QByteArray>{user}).constFirst();
}

QVector<PamSession> PamSessions::open(const QList<QByteArray> &users)
{
    m_process.write(users.join('\n') + '\n');
    QVector<PamSession> sessions(users.size());
    auto session = sessions.begin();
    while (session != sessions.end() && (m_process.canReadLine() || m_process.waitForReadyRead(deadline))) {
        while (session != sessions.end() && m_process.canReadLine()) {
            QByteArray line = m_process.readLine();
            line.chop(1);
            if (line == "end") {
                ++session;
            } else {
                addLine(line, *session);
            }
        }
    }
    return sessions;
}

const PamSession &PamSessions::plain() const
{
    return m_plain;
}

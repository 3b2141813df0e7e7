/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "problemstore.h"

#include "accountstore.h"

#include <algorithm>

namespace
{
/** Those that are read besides the accounts. */
QStringList checkedFiles()
{
    return {
        QStringLiteral("/etc/shadow"),
        QStringLiteral("/etc/gshadow"),
        QStringLiteral("/etc/shells"),
        QStringLiteral("/etc/adduser.conf"),
        QStringLiteral("/etc/security/limits.conf"),
        QStringLiteral("/etc/security/limits.d"),
    };
}
}

ProblemStore::ProblemStore(const AccountStore *accounts, QObject *parent, const PacketSource &source)
    : QObject(parent)
    , m_reader(source)
    , m_files(checkedFiles())
{
    // The window has the users to show first; starting a process takes a while as well.
    m_start.setSingleShot(true);
    m_start.setInterval(0);
    connect(&m_start, &QTimer::timeout, &m_reader, &ProblemReader::start);
    connect(&m_reader, &ProblemReader::finished, this, &ProblemStore::finish);
    connect(&m_reader, &ProblemReader::failed, this, &ProblemStore::fail);
    connect(&m_files, &FileWatcher::changed, this, &ProblemStore::checkWhenIdle);
    connect(accounts, &AccountStore::usersRead, this, &ProblemStore::checkWhenIdle);
    connect(accounts, &AccountStore::ended, this, [this, accounts] {
        if (!accounts->accountsError().isEmpty()) { // then there may be no users
            checkWhenIdle();
        }
    });
}

/** With files that change all the time, a check would never end if each change started it over. */
void ProblemStore::checkWhenIdle()
{
    if (isChecking()) {
        m_outdated = true;
    } else {
        m_outdated = false;
        m_start.start();
    }
}

bool ProblemStore::isChecking() const
{
    return m_start.isActive() || m_reader.isChecking();
}

bool ProblemStore::hasChecked() const
{
    return m_hasChecked;
}

const MachineCheck &ProblemStore::check() const
{
    return m_check;
}

int ProblemStore::seriousCount() const
{
    return int(std::count_if(m_check.problems.begin(), m_check.problems.end(), [](const Problem &problem) {
        return problem.severity() != Problem::Severity::Note;
    }));
}

const QString &ProblemStore::error() const
{
    return m_error;
}

void ProblemStore::finish(const MachineCheck &check)
{
    m_check = check;
    m_hasChecked = true;
    m_error.clear();
    end();
}

void ProblemStore::fail(const QString &message)
{
    m_error = message;
    end();
}

void ProblemStore::end()
{
    Q_EMIT ended();
    if (m_outdated) {
        checkWhenIdle();
    }
}

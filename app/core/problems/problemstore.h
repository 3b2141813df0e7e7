/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PROBLEMSTORE_H
#define PROBLEMSTORE_H

#include "filewatcher.h"
#include "problemreader.h"

#include <QTimer>

class AccountStore;

/**
 * The problems of the machine when it was last checked. It is checked after the accounts were read, and when
 * one of the other files changes. What was found before stays until the check has ended.
 */
class ProblemStore : public QObject
{
    Q_OBJECT

public:
    explicit ProblemStore(const AccountStore *accounts,
                          QObject *parent = nullptr,
                          const PacketSource &source = ProblemReader::ownProgram());

    bool isChecking() const;

    /** Whether there is a result, perhaps an old one. */
    bool hasChecked() const;

    const MachineCheck &check() const;

    /** How many of the problems are more than notes. */
    int seriousCount() const;

    /** Why the last check failed; empty when it did not. */
    const QString &error() const;

Q_SIGNALS:
    /** The check has ended. */
    void ended();

private:
    void checkWhenIdle();
    void finish(const MachineCheck &check);
    void fail(const QString &message);
    void end();

    ProblemReader m_reader;
    FileWatcher m_files;
    QTimer m_start;
    MachineCheck m_check;
    QString m_error;
    bool m_hasChecked = false;
    /** Whether something has changed since the check began. */
    bool m_outdated = false;
};

#endif

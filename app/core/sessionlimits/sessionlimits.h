/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SESSIONLIMITS_H
#define SESSIONLIMITS_H

#include "accountdatabase.h"
#include "limitcontest.h"
#include "limitindex.h"
#include "limitvalue.h"

namespace PamLimits
{
/** A limit of a session. */
struct Limit {
    Value soft;
    Value hard;
    /** The places of the lines that decide; -1 for none. */
    int softLine = -1;
    int hardLine = -1;
};

/** Why no session can be opened. */
struct Failure {
    enum class Reason : quint8 {
        None,
        File, ///< a file cannot be opened
        NoLogins, ///< no login is allowed at all
        NoDirectory, ///< the directory of chroot does not exist
        NoFiles, ///< too few open files are allowed
    };

    Reason reason = Reason::None;
    int file = -1;
    int line = -1;
};

/** What a session of an account gets. */
struct Answer {
    std::array<Limit, itemCount> limits;
    /** The place of the line that exempts the account from all limits; -1 for none. */
    int exemption = -1;
    Failure failure;

    const Limit &limit(Item item) const
    {
        return limits.at(int(item));
    }
};

/** What pam_limits makes of the limits files: the limits that a session really gets. */
class SessionLimits
{
public:
    /** Reads the files, the groups and the state of the machine. */
    static SessionLimits read(const Progress &progress = {});

    /** Without a rule. Reads nothing: threads create results in the thread that waits for them. */
    SessionLimits() = default;
    SessionLimits(Rules rules, AccountDatabase database, quint64 maxOpenFiles);

    const Rules &rules() const;
    const AccountDatabase &database() const;

    /** /proc/sys/fs/nr_open. */
    quint64 maxOpenFiles() const;

    /** Whether all files were read that PAM may be able to read. */
    bool isComplete() const;

    /** For each unreadable file, what is wrong with it. */
    QStringList errors() const;

    /** @param outcomes receives the outcomes of the lines that the answer depends on; null when they do not matter */
    Answer answer(const Account &account, QVector<Outcome> *outcomes = nullptr) const;

    /** Whether the line at @p place decides something for @p account. */
    bool decides(int place, const Account &account) const;

    /** The place of the line that makes the one at @p place useless for every account; -1 when there is none. */
    int successorOf(int place) const;

    /** All rules for @p item that match @p account, in the order in which they are read. */
    QVector<Outcome> outcomes(const Account &account, Item item) const;

private:
    using RankedLine = QPair<int, Rank>;
    using Lines = LineIndex::Places (LineIndex::*)(int domain) const;

    void findFailingFile();
    int exemptionOf(const Account &account, const QVector<int> &domains) const;
    QVector<RankedLine> linesFor(const Account &account, const QVector<int> &domains, Lines lines) const;
    void settle(Contest &contest) const;
    Value valueOf(Item item, int line) const;
    void finish(QVector<Outcome> &outcomes, int exemption) const;
    void overrule(Outcome &outcome, int exemption) const;
    Failure failureOf(const Answer &answer, const Account &account) const;

    Rules m_rules;
    AccountDatabase m_database;
    Matcher m_matcher;
    LineIndex m_index;
    quint64 m_maxOpenFiles = 0;
    /** The first file that fails every session, and the place of its first line; -1 for none. */
    int m_failingFile = -1;
    int m_failingPlace = -1;
};
}

#endif

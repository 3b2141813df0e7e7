/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITFINDINGS_H
#define LIMITFINDINGS_H

#include "limitusage.h"

namespace PamLimits
{
/** Something in the limits files that does not mean what it seems to mean. */
struct Finding {
    enum class Kind : quint8 {
        IgnoredFile,
        FailingFile, ///< no session can be opened
        IgnoredLine,
        ForNobody, ///< its domain does not exist
        Refused, ///< by the kernel
        NeverDecides,
        LocksOut, ///< no session can be opened for some users
        ReadDifferently, ///< by LimitsParser
    };

    Kind kind;
    QString file;
    /** 0 for the whole file. */
    int number = 0;
    QString text;
    /** A sentence without a full stop. */
    QString statement;
};

/** Finds suspicious lines and files. */
class Findings
{
public:
    Findings(const SessionLimits &limits, const LimitUsage &usage);

    /** What is suspicious about the line at @p place; empty for nothing. */
    QStringList statementsOf(int place) const;

    /** All findings, in the order of the files and lines. */
    QVector<Finding> all() const;

private:
    QVector<Finding> findingsOf(int place) const;
    QString nobodyMeant(int domain) const;
    QString findNobodyMeant(const Domain &domain) const;

    const SessionLimits &m_limits;
    const LimitUsage &m_usage;
    /** The results for domains, by their places. */
    mutable QHash<int, QString> m_nobodyMeant;
};

/** What programs that read @p line with LimitsParser do not see or see in another way; empty when they see what PAM
 * does. */
QString parserProblem(const Rules &rules, const Line &line);
}

#endif

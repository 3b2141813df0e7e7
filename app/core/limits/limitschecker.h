/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITSCHECKER_H
#define LIMITSCHECKER_H

#include <QList>
#include <QString>
#include <QStringList>

/** A line of the limits files that LimitsParser skips or does not take as it is meant. */
struct LimitsFinding {
    QString file;
    int line = 0;
    QString text;
    QStringList reasons;

    /** The text with tabs as "\t": they would be seen as gaps, if at all. */
    QString visibleText() const;

    /** The reasons as one line. */
    QString allReasons() const;
};

/**
 * Looks through the files that LimitsParser reads, in the same order. Files that cannot be opened
 * are left out: LimitsParser reports them.
 */
QList<LimitsFinding> checkLimits();

/** Why @p line is skipped or not taken as it is meant; empty for a good one and for a comment. */
QStringList limitsLineProblems(const QByteArray &line);

#endif

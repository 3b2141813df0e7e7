/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITSREPORT_H
#define LIMITSREPORT_H

#include "limitusage.h"

#include <QJsonValue>

/**
 * Prints what pam_limits makes of the limits files. Each operation returns the exit status, which is
 * 3 when not all files could be read.
 */
class LimitsReport
{
public:
    /** Reads the files. */
    explicit LimitsReport(bool asJson);

    /** The limits of a user's session or, with @p item, why it has this one. */
    int showUser(const QString &name, const QString &item) const;
    int showGroup(const QString &name, const QString &item) const;

    /** The accounts for which a line, as "FILE:LINE", decides something. */
    int showAccounts(const QString &place) const;

    int showFindings() const;
    int showLines() const;

private:
    int show(const PamLimits::Account &account, const QString &key, const QString &name, const QString &item) const;
    int showAnswer(const PamLimits::Answer &answer, const QString &key, const QString &name) const;
    int explain(const PamLimits::Account &account, PamLimits::Item item, const QString &key, const QString &name) const;
    int finish(int status) const;
    QVector<int> linesAt(const QString &place) const;

    const bool m_asJson;
    const PamLimits::SessionLimits m_limits;
};

#endif

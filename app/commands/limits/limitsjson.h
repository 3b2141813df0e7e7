/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITSJSON_H
#define LIMITSJSON_H

#include "limitfindings.h"

#include <QJsonArray>
#include <QJsonObject>

/** Limits as JSON. */
namespace LimitsJson
{
/** The limits of all items for @p name; @p key is "user" or "group". */
QJsonObject answer(const PamLimits::SessionLimits &limits,
                   const PamLimits::Answer &answer,
                   const QString &key,
                   const QString &name);

/** The rules that match, and how they came out. */
QJsonArray outcomes(const PamLimits::SessionLimits &limits, const QVector<PamLimits::Outcome> &outcomes);

QJsonArray findings(const QVector<PamLimits::Finding> &findings);

/** All lines, and why some are ignored. */
QJsonArray lines(const PamLimits::Rules &rules);

/** File and line number. */
QJsonValue place(const PamLimits::Rules &rules, int line);
}

#endif

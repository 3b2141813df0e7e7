/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITWORDS_H
#define LIMITWORDS_H

#include "sessionlimits.h"

/** Limits in words, in the language of the operator. */
namespace LimitWords
{
/** Decodes bytes of a file, most likely from UTF-8. */
QString fromFile(PamLimits::Text text);
QString fromFile(const QByteArray &text);

/** What is limited, from the library's catalogue where it has the item. */
QString description(PamLimits::Item item);

/** Whom a rule is for, as "Group name: "staff"". */
QString domain(const PamLimits::Domain &domain);

/** Why pam_limits ignores @p line; empty when it does not. */
QString problem(const PamLimits::Rules &rules, const PamLimits::Line &line);

/** Why pam_limits does not read @p file; empty when it does. */
QString problem(const PamLimits::File &file);

/** How one half of a rule came out. */
QString outcome(const PamLimits::SessionLimits &limits, const PamLimits::Outcome::Part &part);

/** Why the session fails; empty when it does not. */
QString failure(const PamLimits::SessionLimits &limits, const PamLimits::Answer &answer);

/** The domain and the place of the lines that decide a limit, as "@staff /etc/security/limits.conf:3". */
QString source(const PamLimits::Rules &rules, const PamLimits::Limit &limit);
QString source(const PamLimits::Rules &rules, int line);
}

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "problemwords.h"

#include <KLocalizedString>

QString ProblemWords::severity(Problem::Severity severity)
{
    switch (severity) {
    case Problem::Severity::Error:
        return i18nc("kind of problem", "error");
    case Problem::Severity::Warning:
        return i18nc("kind of problem", "warning");
    case Problem::Severity::Note:
        break;
    }
    return i18nc("kind of problem", "note");
}

QString ProblemWords::id(Problem::Severity severity)
{
    constexpr const char *words[] = {"error", "warning", "note"};
    return QString::fromLatin1(words[int(severity)]);
}

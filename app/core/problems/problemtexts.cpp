/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "problemtexts.h"

namespace
{
/** The marks of the details: code points that are for such use within a program. */
constexpr ushort firstMark = 0xfdd0;
constexpr int maxMarks = 9;

QString patternOf(const Problem &problem)
{
    Problem marked = problem;
    for (int i = 0; i < marked.details.size(); ++i) {
        marked.details[i] = QChar(ushort(firstMark + i));
    }
    return marked.text();
}

QString filled(const QString &pattern, const QStringList &details)
{
    int size = pattern.size();
    for (const QString &detail : details) {
        size += detail.size();
    }
    QString text;
    text.reserve(size);
    for (const QChar character : pattern) {
        const int detail = character.unicode() - firstMark;
        if (detail >= 0 && detail < details.size()) {
            text += details.at(detail);
        } else {
            text += character;
        }
    }
    return text;
}
}

QString ProblemTexts::text(const Problem &problem)
{
    if (problem.details.size() > maxMarks) {
        return problem.text();
    }
    QString &pattern = m_kinds[int(problem.kind)].patterns[problem.details.size()];
    if (pattern.isEmpty()) {
        pattern = patternOf(problem);
    }
    return filled(pattern, problem.details);
}

QString ProblemTexts::meaning(const Problem &problem)
{
    QString &meaning = m_kinds[int(problem.kind)].meaning;
    if (meaning.isEmpty()) {
        meaning = problem.meaning();
    }
    return meaning;
}

QString ProblemTexts::remedy(const Problem &problem)
{
    QString &remedy = m_kinds[int(problem.kind)].remedy;
    if (remedy.isEmpty()) {
        remedy = problem.remedy();
    }
    return remedy;
}

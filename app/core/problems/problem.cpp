/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "problem.h"

#include "problemkind.h"
#include "readingorder.h"
#include "visibletext.h"

#include <KLocalizedString>

#include <algorithm>
#include <tuple>

QString Problem::id() const
{
    return QString::fromLatin1(problemKind(kind).id);
}

Problem::Severity Problem::severity() const
{
    return problemKind(kind).severity;
}

QString Problem::text() const
{
    KLocalizedString text = problemKind(kind).text;
    for (const QString &detail : details) {
        text = text.subs(detail);
    }
    return text.toString();
}

QString Problem::shownText() const
{
    Problem shown = *this;
    std::transform(details.begin(), details.end(), shown.details.begin(), VisibleText::isolated);
    return ReadingOrder::ofSentence(shown.text());
}

QString Problem::place() const
{
    return line > 0 ? file + QLatin1Char(':') + QString::number(line) : file;
}

QString Problem::meaning() const
{
    return problemKind(kind).meaning.toString();
}

QString Problem::remedy() const
{
    return problemKind(kind).remedy.toString();
}

void sortProblems(QList<Problem> &problems)
{
    std::stable_sort(problems.begin(), problems.end(), [](const Problem &left, const Problem &right) {
        return std::make_tuple(left.severity(), left.kind, left.file, left.line)
            < std::make_tuple(right.severity(), right.kind, right.file, right.line);
    });
}

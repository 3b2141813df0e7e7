/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "searchwords.h"

#include <algorithm>

bool SearchWords::Word::isIn(const QString &other) const
{
    return other.contains(text, isNumber ? Qt::CaseSensitive : Qt::CaseInsensitive);
}

bool SearchWords::Word::isIn(const QStringList &others) const
{
    return std::any_of(others.begin(), others.end(), [this](const QString &other) { return isIn(other); });
}

bool SearchWords::Word::isIn(uint number) const
{
    return isNumber && isIn(QString::number(number));
}

SearchWords::SearchWords(const QString &text)
{
    const QStringList words = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &word : words) {
        const bool isNumber = std::all_of(
            word.begin(), word.end(), [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
        m_words.append({word, isNumber});
    }
}

bool SearchWords::isEmpty() const
{
    return m_words.isEmpty();
}

const QVector<SearchWords::Word> &SearchWords::words() const
{
    return m_words;
}

QVector<SearchWords::Hit> SearchWords::hitsIn(const QString &text) const
{
    QVector<bool> isHit(text.size(), false);
    for (const Word &word : m_words) {
        int start = 0;
        while ((start = text.indexOf(word.text, start, Qt::CaseInsensitive)) != -1) {
            std::fill_n(isHit.begin() + start, word.text.size(), true);
            ++start;
        }
    }
    QVector<Hit> hits;
    for (auto first = std::find(isHit.begin(), isHit.end(), true); first != isHit.end();
         first = std::find(first, isHit.end(), true)) {
        const auto last = std::find(first, isHit.end(), false);
        hits.append({int(first - isHit.begin()), int(last - first)});
        first = last;
    }
    return hits;
}

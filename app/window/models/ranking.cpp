/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "ranking.h"

#include <QCollator>
#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <numeric>
#include <vector>

namespace
{
template<typename Key>
QVector<int> ranksOfKeys(const std::vector<Key> &keys)
{
    std::vector<int> order(keys.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&keys](int a, int b) { return keys[a] < keys[b]; });
    QVector<int> ranks(int(keys.size()));
    int rank = 0;
    for (size_t i = 0; i < order.size(); ++i) {
        if (i > 0 && keys[order[i - 1]] < keys[order[i]]) {
            ++rank;
        }
        ranks[order[i]] = rank;
    }
    return ranks;
}

bool isNumber(const QVariant &value)
{
    return value.userType() == QMetaType::UInt || value.userType() == QMetaType::Bool;
}

QString toText(const QVariant &value)
{
    return value.userType() == QMetaType::QStringList ? value.toStringList().join(QLatin1Char(' ')) : value.toString();
}

/** People do not expect the byte order of the locale "C". */
QLocale sortLocale()
{
    const QLocale locale;
    return locale.language() == QLocale::C ? QLocale(QLocale::English) : locale;
}
}

QVector<int> ranksOf(const QVector<QVariant> &values)
{
    if (std::all_of(values.begin(), values.end(), isNumber)) {
        std::vector<uint> numbers;
        numbers.reserve(values.size());
        std::transform(values.begin(), values.end(), std::back_inserter(numbers), [](const QVariant &value) {
            return value.toUInt();
        });
        return ranksOfKeys(numbers);
    }
    QCollator collator(sortLocale());
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<QCollatorSortKey> keys;
    keys.reserve(values.size());
    std::transform(values.begin(), values.end(), std::back_inserter(keys), [&collator](const QVariant &value) {
        return collator.sortKey(toText(value));
    });
    return ranksOfKeys(keys);
}

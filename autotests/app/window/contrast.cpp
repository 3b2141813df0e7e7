/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "contrast.h"

#include <QColor>
#include <QHash>
#include <QImage>

#include <cmath>

namespace
{
/** The relative luminance of a colour as WCAG defines it, from 0 to 1. */
qreal luminance(const QColor &colour)
{
    const auto linear = [](qreal part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}
}

qreal contrast(const QImage &picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            ++counts[picture.pixel(x, y)];
        }
    }
    QRgb background = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() > counts.value(background)) {
            background = it.key();
        }
    }
    qreal best = 1;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        const qreal other = luminance(it.key()) + 0.05;
        const qreal own = luminance(background) + 0.05;
        best = qMax(best, qMax(other / own, own / other));
    }
    return best;
}

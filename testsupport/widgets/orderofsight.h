/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ORDEROFSIGHT_H
#define ORDEROFSIGHT_H

#include <QTextLayout>
#include <QVector>

#include <algorithm>

/** The letters of a line of text from left to right, as they are seen. */
inline QString inOrderOfSight(const QString &text, Qt::LayoutDirection direction)
{
    QTextLayout layout(text);
    QTextOption option;
    option.setTextDirection(direction);
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    const auto middle = [&line](int i) { return line.cursorToX(i) + line.cursorToX(i, QTextLine::Trailing); };
    QVector<int> positions;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i).category() != QChar::Other_Format) {
            positions.append(i);
        }
    }
    std::stable_sort(positions.begin(), positions.end(), [&](int a, int b) { return middle(a) < middle(b); });
    QString letters;
    for (const int i : qAsConst(positions)) {
        letters.append(text.at(i));
    }
    return letters;
}

#endif

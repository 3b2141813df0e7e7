/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "hitdelegate.h"

#include "readingorder.h"
#include "recordmodel.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>
#include <QtMath>

namespace
{
QRect textRect(const QStyleOptionViewItem &option)
{
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
    return style->subElementRect(QStyle::SE_ItemViewItemText, &option, option.widget).adjusted(margin, 0, -margin, 0);
}

/** Hits may have marks of the reading order within them. */
QVector<SearchWords::Hit> hitsIn(const QString &text, const SearchWords &search)
{
    QVector<int> places;
    for (int i = 0; i < text.size(); ++i) {
        if (!ReadingOrder::isMark(text.at(i))) {
            places.append(i);
        }
    }
    QVector<SearchWords::Hit> hits = search.hitsIn(ReadingOrder::withoutMarks(text));
    for (SearchWords::Hit &hit : hits) {
        const int last = places.at(hit.start + hit.length - 1);
        hit.start = places.at(hit.start);
        hit.length = last + 1 - hit.start;
    }
    return hits;
}

QColor transparent(QColor color, qreal opacity)
{
    color.setAlphaF(opacity);
    return color;
}
}

void HitDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    LeftToRight::Delegate::initStyleOption(option, index);
    const QVariant sentence = index.data(RecordModel::SentenceRole);
    if (sentence.isValid()) {
        option->text = sentence.toString();
    }
    if (index.data(RecordModel::NewsRole).toBool()) {
        option->backgroundBrush = transparent(option->palette.color(QPalette::Link), 0.25);
        option->font.setBold(true);
    }
}

void HitDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    LeftToRight::Delegate::paint(painter, option, index);
    const auto *model = qobject_cast<const RecordModel *>(index.model());
    if (model && !model->marks().isEmpty()) {
        QStyleOptionViewItem item = option;
        initStyleOption(&item, index);
        paintHits(*painter, item, *model);
    }
}

void HitDelegate::paintHits(QPainter &painter, const QStyleOptionViewItem &option, const RecordModel &model)
{
    const QRect room = textRect(option);
    const QString text = QFontMetrics(option.font).elidedText(option.text, option.textElideMode, room.width());
    const QVector<SearchWords::Hit> hits = hitsIn(text, model.marks());
    if (hits.isEmpty()) {
        return;
    }
    QTextLayout layout(text, option.font);
    QTextOption textOption;
    textOption.setTextDirection(option.direction);
    textOption.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(textOption);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    const QSize size(qCeil(line.naturalTextWidth()), room.height());
    const QRect place = QStyle::alignedRect(option.direction, option.displayAlignment, size, room);
    const bool selected = option.state & QStyle::State_Selected;
    const QColor color = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Link);
    // The layout has unlimited room and begins at its left edge.
    const qreal offset = place.left() - line.naturalTextRect().left();
    for (const SearchWords::Hit &hit : hits) {
        const qreal from = offset + line.cursorToX(hit.start);
        const qreal to = offset + line.cursorToX(hit.start + hit.length - 1, QTextLine::Trailing);
        const QRectF mark(qMin(from, to), place.top() + 1, qAbs(to - from), place.height() - 2);
        if (!selected) { // otherwise it would take contrast from the letters
            painter.fillRect(mark, transparent(color, 0.25));
        }
        painter.fillRect(QRectF(mark.left(), mark.bottom() - 1, mark.width(), 2), color);
    }
}

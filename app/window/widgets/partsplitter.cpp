/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "partsplitter.h"

#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>

namespace
{
/** The width of the bar that @p part shows when it has less height than it wants. */
int barWidth(const QWidget &part)
{
    const auto *area = qobject_cast<const QScrollArea *>(&part);
    return area ? area->verticalScrollBar()->sizeHint().width() : 0;
}
}

PartSplitter::PartSplitter(Qt::Orientation orientation, QWidget *parent)
    : QSplitter(orientation, parent)
{
    connect(this, &QSplitter::splitterMoved, this, [this] { m_moved = true; });
}

QSize PartSplitter::sizeHint() const
{
    // Qt forgets the handles.
    const int handles = handleWidth() * (count() - 1);
    return QSplitter::sizeHint() + (orientation() == Qt::Horizontal ? QSize(handles, 0) : QSize(0, handles));
}

void PartSplitter::setStacking(bool stacking)
{
    m_stacking = stacking;
}

bool PartSplitter::hasRoomForColumns() const
{
    int needed = handleWidth() * (count() - 1);
    for (int part = 0; part < count(); ++part) {
        const auto *area = qobject_cast<const QScrollArea *>(widget(part));
        needed += (area ? area->widget() : widget(part))->minimumSizeHint().width() + barWidth(*widget(part));
    }
    return needed <= contentsRect().width();
}

QByteArray PartSplitter::saveBorders() const
{
    return m_moved ? saveState() : QByteArray();
}

void PartSplitter::restoreBorders(const QByteArray &state)
{
    if (restoreState(state)) {
        m_moved = true;
    }
}

bool PartSplitter::event(QEvent *event)
{
    const bool done = QSplitter::event(event);
    const bool changesRoom = event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize;
    if (m_stacking && changesRoom) {
        stackParts();
    }
    if (!m_moved && changesRoom) {
        fitParts();
    }
    return done;
}

void PartSplitter::stackParts()
{
    const Qt::Orientation wanted = hasRoomForColumns() ? Qt::Horizontal : Qt::Vertical;
    if (wanted != orientation()) {
        setOrientation(wanted);
        m_moved = false;
    }
}

void PartSplitter::fitParts()
{
    const bool horizontal = orientation() == Qt::Horizontal;
    int left = (horizontal ? width() : height()) - handleWidth() * (count() - 1);
    QList<int> sizes;
    for (int part = 0; part < count(); ++part) {
        const QSize hint = widget(part)->sizeHint();
        const int bar = hint.height() > height() ? barWidth(*widget(part)) : 0;
        const int wanted = horizontal ? hint.width() + bar : hint.height();
        sizes.append(part == count() - 1 ? qMax(0, left) : wanted);
        left -= wanted;
    }
    if (sizes != this->sizes()) {
        setSizes(sizes);
    }
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "contentarea.h"

#include <QEvent>
#include <QLayout>
#include <QScrollBar>

ContentArea::ContentArea(QWidget *parent)
    : QScrollArea(parent)
{
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    // Widgets inside take the focus, and the view scrolls to the one that has it.
    setFocusPolicy(Qt::NoFocus);
}

QSize ContentArea::sizeHint() const
{
    QLayout *layout = widget()->layout();
    layout->activate(); // while nothing is shown, nested layouts are not notified of changes
    const QSize hint = widget()->sizeHint().expandedTo(minimumSize());
    if (!layout->hasHeightForWidth()) {
        return hint;
    }
    // A scroll bar that is shown already makes texts wrap earlier, and so would stay.
    const int beside = hint.width() - verticalScrollBar()->sizeHint().width();
    // Rounded from lengths in wrapped lines, either may be the larger one.
    return {hint.width(), qMax(hint.height(), layout->totalHeightForWidth(beside))};
}

bool ContentArea::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

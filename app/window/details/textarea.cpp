/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "textarea.h"

#include <QLabel>
#include <QResizeEvent>

namespace
{
/** How many lines stay visible. */
constexpr int minLines = 4;
}

TextArea::TextArea(QLabel *label, QWidget *parent)
    : ContentArea(parent)
{
    setWidget(label);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Maximum);
}

QSize TextArea::sizeHint() const
{
    return {minimumWidth(), widget()->heightForWidth(width())};
}

QSize TextArea::minimumSizeHint() const
{
    return {0, qMin(sizeHint().height(), minLines * fontMetrics().lineSpacing())};
}

bool TextArea::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest) {
        updateGeometry(); // the text has changed
    }
    return ContentArea::event(event);
}

void TextArea::resizeEvent(QResizeEvent *event)
{
    ContentArea::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) {
        updateGeometry();
    }
}

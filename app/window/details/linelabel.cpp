/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "linelabel.h"

#include "lefttoright.h"
#include "plaintext.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

LineLabel::LineLabel(QWidget *parent)
    : KSqueezedTextLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setTextElideMode(Qt::ElideMiddle);
    setAlignment(Qt::AlignTop | LeftToRight::lineStart());
}

bool LineLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !isSqueezed()) {
        return KSqueezedTextLabel::event(event);
    }
    const QPoint position = static_cast<const QHelpEvent *>(event)->globalPos();
    QToolTip::showText(position, PlainText::toRichText(fullText()), this);
    return true;
}

void LineLabel::keyPressEvent(QKeyEvent *event)
{
    if (isSqueezed() && event->matches(QKeySequence::Copy)) {
        QGuiApplication::clipboard()->setText(fullText());
    } else {
        KSqueezedTextLabel::keyPressEvent(event);
    }
}

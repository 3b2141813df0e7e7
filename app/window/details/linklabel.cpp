/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "linklabel.h"

#include "lefttoright.h"
#include "visibletext.h"

#include <QEvent>

LinkLabel::LinkLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::RichText);
    setWordWrap(true);
    setAlignment(Qt::AlignTop | LeftToRight::lineStart());
    connect(
        this, &QLabel::linkActivated, this, [this](const QString &url) { Q_EMIT followed(AccountLink::fromUrl(url)); });
}

void LinkLabel::setLinks(AccountLink::Kind kind, const QStringList &names, const QString &rest)
{
    QStringList links;
    for (const QString &name : names) {
        links.append(AccountLink{kind, name}.toRichText());
    }
    const bool isEmpty = links.isEmpty() && rest.isEmpty();
    const QString shownRest = isEmpty ? QStringLiteral(u"\u2013") : VisibleText::fromText(rest);
    setLinkedText(links.join(QLatin1String(", ")) + shownRest.toHtmlEscaped(),
                  VisibleText::fromText(names.join(QLatin1String(", ")) + rest));
    // Without links the tab key has no reason to stop here.
    if (links.isEmpty()) {
        setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
}

void LinkLabel::setLinkedText(const QString &richText, const QString &text)
{
    setText(richText);
    setAccessibleName(text);
    setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
}

void LinkLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        // Links keep the color that they had when the text was set.
        const QString shown = text();
        clear();
        setText(shown);
    }
}

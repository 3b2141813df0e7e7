/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "linklabel.h"

#include "lefttoright.h"
#include "visibletext.h"

LinkLabel::LinkLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::RichText);
    setWordWrap(true);
    setAlignment(Qt::AlignTop | LeftToRight::lineStart());
    connect(
        this, &QLabel::linkActivated, this, [this](const QString &url) { Q_EMIT followed(AccountLink::fromUrl(url)); });
}

void LinkLabel::setLinks(AccountLink::Kind kind, const QStringList &names)
{
    QStringList links;
    for (const QString &name : names) {
        links.append(AccountLink{kind, name}.toRichText());
    }
    setText(links.isEmpty() ? QStringLiteral(u"\u2013") : links.join(QLatin1String(", ")));
    setAccessibleName(VisibleText::fromText(names.join(QLatin1String(", "))));
    // Without links the tab key has no reason to stop here.
    setTextInteractionFlags(links.isEmpty() ? Qt::TextSelectableByMouse
                                            : Qt::TextBrowserInteraction | Qt::LinksAccessibleByKeyboard);
}

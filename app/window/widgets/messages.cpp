/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "messages.h"

#include "plaintext.h"
#include "visibletext.h"

#include <KLocalizedString>

#include <QMessageBox>

KMessageWidget *Messages::create(KMessageWidget::MessageType type, QWidget *parent)
{
    auto *message = new KMessageWidget(parent);
    message->setMessageType(type);
    message->setWordWrap(true);
    message->setCloseButtonVisible(false);
    message->hide();
    return message;
}

void Messages::show(KMessageWidget &message, const QString &text)
{
    message.setText(PlainText::toRichText(text));
    message.setVisible(!text.isEmpty());
}

void Messages::reportUnwritten(QWidget *parent, const QString &title, const QString &path, const QString &error)
{
    const QString text = i18n("Cannot write '%1': %2", VisibleText::isolated(path), VisibleText::isolated(error));
    QMessageBox::warning(parent, title, ReadingOrder::ofSentence(text));
}

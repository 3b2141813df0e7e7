/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "pageparts.h"

#include <QCursor>
#include <QKeySequence>
#include <QLabel>

bool isCursorShown(Qt::CursorShape shape)
{
    const QCursor *cursor = QGuiApplication::overrideCursor();
    return cursor && cursor->shape() == shape;
}

QStringList mnemonics(const QWidget &page)
{
    QStringList texts;
    const auto buttons = page.findChildren<QAbstractButton *>();
    for (const QAbstractButton *button : buttons) {
        texts.append(button->text());
    }
    const auto labels = page.findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->buddy()) {
            texts.append(label->text());
        }
    }
    QStringList keys;
    for (const QString &text : qAsConst(texts)) {
        const QKeySequence key = QKeySequence::mnemonic(text);
        if (!key.isEmpty()) {
            keys.append(key.toString());
        }
    }
    keys.sort();
    return keys;
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "copiedtext.h"

#include "readingorder.h"

#include <QGuiApplication>

namespace
{
/** To read what another program has copied could take long. */
bool isOwn(const QClipboard &clipboard, QClipboard::Mode mode)
{
    return mode == QClipboard::Clipboard ? clipboard.ownsClipboard() : clipboard.ownsSelection();
}

void removeMarksFrom(QClipboard::Mode mode)
{
    QClipboard &clipboard = *QGuiApplication::clipboard();
    if (mode == QClipboard::FindBuffer || !isOwn(clipboard, mode)) {
        return;
    }
    const QString text = clipboard.text(mode);
    const QString plain = ReadingOrder::withoutMarks(text);
    if (plain != text) {
        clipboard.setText(plain, mode);
    }
}
}

void CopiedText::removeMarks(QObject *context)
{
    QObject::connect(QGuiApplication::clipboard(), &QClipboard::changed, context, removeMarksFrom);
}

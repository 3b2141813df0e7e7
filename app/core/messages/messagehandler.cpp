/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "messagehandler.h"

#include "librarymessage.h"

#include <QMutex>
#include <QStringList>

#include <cstdlib>

namespace
{
/** Messages come from any thread. */
QBasicMutex s_mutex;
void (*s_show)(const QString &text);

/** Whether @p text has not been seen before. */
bool isNew(const QString &text)
{
    static QStringList shown;
    const QMutexLocker locker(&s_mutex);
    if (shown.contains(text)) {
        return false;
    }
    shown.append(text);
    return true;
}

void handle(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    if (type == QtFatalMsg) {
        // It has several lines.
        s_show(message.simplified());
        std::_Exit(EXIT_FAILURE);
    }
    const QString text = meaningOfMessage(message);
    if (!text.isEmpty() && isNew(text)) {
        s_show(text);
    }
}
}

void MessageHandler::install(void (*show)(const QString &text))
{
    s_show = show;
    qInstallMessageHandler(handle);
}

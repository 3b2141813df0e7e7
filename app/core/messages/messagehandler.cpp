/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "messagehandler.h"

#include "librarymessage.h"

#include <QMutex>

#include <cstdlib>

namespace
{
/** Messages come from any thread. */
QBasicMutex s_mutex;
void (*s_show)(const QString &text);
QStringList *s_gathered;

/** Whether @p text is there for the first time; then it is kept. */
bool isNew(const QString &text)
{
    static QStringList shown;
    QStringList &texts = s_gathered ? *s_gathered : shown;
    const bool known = texts.contains(text);
    if (!known) {
        texts.append(text);
    }
    return !known;
}

/** Whether @p text is to be shown. */
bool receive(const QString &text)
{
    const QMutexLocker locker(&s_mutex);
    return isNew(text) && !s_gathered;
}

void handle(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    if (type == QtFatalMsg) {
        // It has several lines.
        s_show(message.simplified());
        std::_Exit(EXIT_FAILURE);
    }
    const QString text = meaningOfMessage(message);
    if (!text.isEmpty() && receive(text)) {
        s_show(text);
    }
}
}

void MessageHandler::install(void (*show)(const QString &text))
{
    s_show = show;
    qInstallMessageHandler(handle);
}

GatheredMessages::GatheredMessages()
{
    const QMutexLocker locker(&s_mutex);
    m_previous = s_gathered;
    s_gathered = &m_texts;
}

GatheredMessages::~GatheredMessages()
{
    const QMutexLocker locker(&s_mutex);
    s_gathered = m_previous;
}

QStringList GatheredMessages::texts() const
{
    const QMutexLocker locker(&s_mutex);
    return m_texts;
}

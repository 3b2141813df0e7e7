/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "messagerecorder.h"

MessageRecorder *MessageRecorder::s_current = nullptr;

bool MessageRecorder::Message::isPlainWarning() const
{
    return type == QtWarningMsg && category == "default" && file.isNull() && function.isNull() && line == 0;
}

MessageRecorder::MessageRecorder()
    : m_previous(qInstallMessageHandler(record))
{
    Q_ASSERT(!s_current);
    s_current = this;
}

MessageRecorder::~MessageRecorder()
{
    s_current = nullptr;
    qInstallMessageHandler(m_previous);
}

const QVector<MessageRecorder::Message> &MessageRecorder::messages() const
{
    return m_messages;
}

QStringList MessageRecorder::takeTexts()
{
    QStringList texts;
    for (const Message &message : qAsConst(m_messages)) {
        texts.append(message.text);
    }
    m_messages.clear();
    return texts;
}

void MessageRecorder::record(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    // A null C string gives a null QByteArray, so that the two can be told apart.
    s_current->m_messages.append({type, context.category, context.file, context.function, context.line, text});
}

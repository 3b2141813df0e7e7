/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef MESSAGERECORDER_H
#define MESSAGERECORDER_H

#include <QByteArray>
#include <QStringList>
#include <QVector>

/** Records log messages during its lifetime. One at a time. */
class MessageRecorder
{
public:
    struct Message {
        QtMsgType type = QtDebugMsg;
        QByteArray category;
        QByteArray file;
        QByteArray function;
        int line = 0;
        QString text;

        /** Whether it is a warning of the category "default", without file, function and line. */
        bool isPlainWarning() const;
    };

    MessageRecorder();
    ~MessageRecorder();

    const QVector<Message> &messages() const;

    /** Returns the recorded texts and clears them. */
    QStringList takeTexts();

private:
    Q_DISABLE_COPY(MessageRecorder)

    static void record(QtMsgType type, const QMessageLogContext &context, const QString &text);

    static MessageRecorder *s_current;
    QtMessageHandler m_previous;
    QVector<Message> m_messages;
};

#endif

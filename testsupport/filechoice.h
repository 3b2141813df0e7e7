/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef FILECHOICE_H
#define FILECHOICE_H

#include <UserIconDialog>

#include <QApplication>
#include <QFileDialog>
#include <QTimerEvent>
#include <QToolButton>

/** Presses the file button of a UserIconDialog and chooses a file. */
class FileChoice : public QObject
{
public:
    FileChoice(const UserIconDialog &dialog, const QString &path)
        : m_path(path)
    {
        startTimer(0);
        dialog.findChild<QToolButton *>(QStringLiteral("fileButton"))->click();
    }

protected:
    /** Called by the event loop of the file dialog. */
    void timerEvent(QTimerEvent *event) override
    {
        auto *chooser = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!chooser) {
            return;
        }
        killTimer(event->timerId());
        chooser->selectFile(m_path);
        QMetaObject::invokeMethod(chooser, "accept");
    }

private:
    QString m_path;
};

#endif

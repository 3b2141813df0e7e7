/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PAGEPARTS_H
#define PAGEPARTS_H

#include <QAbstractButton>
#include <QApplication>
#include <QString>
#include <QTimer>

/**
 * Clicks @p button, which opens a modal dialog, and does @p work with the dialog.
 *
 * @return whether a dialog of that class was opened. It is closed when @p work leaves it open.
 */
template<typename Dialog, typename Work>
bool withDialog(QAbstractButton &button, Work work)
{
    bool done = false;
    QTimer timer; // fires in the event loop of the dialog
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget *window = QApplication::activeModalWidget();
        if (auto *dialog = qobject_cast<Dialog *>(window)) {
            work(*dialog);
            done = true;
        }
        if (window) {
            window->close();
        }
    });
    timer.start(0);
    button.click();
    return done;
}

/** Whether the application shows this cursor everywhere, because it is busy. */
bool isCursorShown(Qt::CursorShape shape);

/** The mnemonics of a page, one string for each. */
QStringList mnemonics(const QWidget &page);

#endif

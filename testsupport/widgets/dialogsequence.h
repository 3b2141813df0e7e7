/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef DIALOGSEQUENCE_H
#define DIALOGSEQUENCE_H

#include <QString>
#include <QVector>

#include <functional>

class QAbstractButton;
class QWidget;

/** Does something with a dialog, which is closed afterwards if it is still open. */
using DialogStep = std::function<void(QWidget &)>;

/**
 * Clicks @p button with the mouse, and takes one of @p steps for each modal dialog that appears, also for one
 * that a step opens.
 *
 * @return whether there were as many dialogs as steps
 */
bool withDialogs(QAbstractButton &button, const QVector<DialogStep> &steps);

/** Types @p path into a file dialog and presses Return. */
DialogStep choosesFile(const QString &path);

/** Presses Escape. */
DialogStep cancels();

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef HELP_H
#define HELP_H

#include <QList>
#include <QString>

class QAction;
class QDialog;
class QWidget;

/** Help on what the window shows. */
namespace Help
{
/**
 * A dialog on a page, which deletes itself when it is closed.
 *
 * @param page the object name of the page
 * @param title the title of the page
 * @param actions those whose shortcuts are listed
 */
QDialog *createDialog(const QString &page, const QString &title, const QList<QAction *> &actions, QWidget *parent);
}

#endif

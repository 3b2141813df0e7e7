/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ABOUT_H
#define ABOUT_H

class QMessageBox;
class QWidget;

/** What the application tells about itself. */
namespace About
{
/** Makes name, version, icon and the like known to Qt. */
void setApplicationData();

/** The dialog with what setApplicationData() told; deletes itself when it is closed. */
QMessageBox *createDialog(QWidget *parent = nullptr);
}

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ABOUT_H
#define ABOUT_H

class QMessageBox;
class QWidget;

/** Facts about the application. */
namespace About
{
/** Sets name, version, icon and the like. */
void setApplicationData();

/** The dialog that shows what setApplicationData() has set; deletes itself when it is closed. */
QMessageBox *createDialog(QWidget *parent = nullptr);
}

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef FORMROW_H
#define FORMROW_H

#include <QVector>

class QFormLayout;
class QString;
class QWidget;

/**
 * Adds a row to a form: @p widgets in a line, with a label that is the buddy of the first of them, and
 * perhaps @p note below. A hidden note takes no room.
 */
void addRow(QFormLayout *form, const QString &text, const QVector<QWidget *> &widgets, QWidget *note = nullptr);

/**
 * Makes a label or button with @p text wide enough for it. The mnemonic is drawn by itself. In
 * scripts that join letters this takes more room than Qt gives it.
 */
void makeRoomForMnemonic(QWidget *widget, const QString &text);

#endif

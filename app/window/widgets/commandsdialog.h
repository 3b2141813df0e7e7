/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef COMMANDSDIALOG_H
#define COMMANDSDIALOG_H

#include <QDialog>

struct Plan;

/** Shows the commands of a plan. F1 opens help on them. */
class CommandsDialog : public QDialog
{
    Q_OBJECT

public:
    CommandsDialog(const QString &title, const Plan &plan, QWidget *parent = nullptr);

private:
    void showHelp();
};

#endif

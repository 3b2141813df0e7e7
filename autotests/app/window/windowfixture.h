/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef WINDOWFIXTURE_H
#define WINDOWFIXTURE_H

#include <QString>

class MainWindow;
class QWidget;
class RecordView;

/** Where the window keeps what it remembers. */
QString settingsPath();

/** Writes three users, three groups, a rule and a line that is none, and forgets how a window was left. */
void prepareWindow();

bool waitUntilRead(MainWindow &window);

/** Waits for what is shown of an account a moment later than the rest. */
bool waitUntilShown(const QWidget &window);

/** Shows the window, with the focus, after everything was read. */
bool open(MainWindow &window);

/** The list of the current page. */
RecordView *accountsView(const MainWindow &window);

#endif

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

/** The file in which the window keeps its state. */
QString settingsPath();

/** Writes three users, three groups, a rule and an invalid line, and removes the state of the window. */
void prepareWindow();

bool waitUntilRead(MainWindow &window);

/** Waits for the parts of an account's details that are shown a moment later. */
bool waitUntilShown(const QWidget &window);

/** Shows the window, with the focus, after everything was read. */
bool open(MainWindow &window);

/** The list of the current page. */
RecordView *accountsView(const MainWindow &window);

#endif

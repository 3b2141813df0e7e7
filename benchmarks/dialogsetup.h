/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef DIALOGSETUP_H
#define DIALOGSETUP_H

#include <GroupInfo>

#include <functional>

class QDialog;
class QTreeView;
class QWidget;

/** Does @p work and waits until the widget is painted. */
void waitUntilPainted(QWidget &widget, const std::function<void()> &work);

/** The list of a UserSelectDialog. */
QTreeView *treeView(const QDialog &dialog);

/** Does @p work and waits until the list of the dialog is painted. @return how many rows it has */
int paintAfter(const QDialog &dialog, const std::function<void()> &work);

/** Shows a dialog until it has painted its rows. @return how many it has */
int paint(QDialog &dialog);

/** A group with many members that is nobody's primary group. */
GroupInfo sharedGroup();

#endif

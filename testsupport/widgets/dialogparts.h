/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef DIALOGPARTS_H
#define DIALOGPARTS_H

#include <QModelIndex>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>

class QAbstractItemView;
class QComboBox;
class QDialog;
class QFileDialog;
class QGridLayout;

/** The widget of a dialog by its object name. Ends the test if there is none. */
template<typename Widget>
Widget *part(const QWidget &dialog, const char *name)
{
    auto *widget = dialog.findChild<Widget *>(QString::fromLatin1(name));
    if (!widget) {
        qFatal("The dialog has no %s", name);
    }
    return widget;
}

/** Shows a dialog. Returns false if it does not get the focus. */
bool open(QDialog &dialog);

/** The cells of a form's widgets: "buttonBox 2,0 1x2" with row, column and spans. */
QStringList gridCells(const QGridLayout &layout);

/** The entries with the type and value of their data: "All int 0". Entries with an icon get a star. */
QStringList comboBoxEntries(const QComboBox &comboBox);

/** The row of the view that shows @p text in its first column. */
QModelIndex viewIndex(const QAbstractItemView &view, const QString &text);

/** Mouse clicks on the row that shows @p text. */
void clickCheckBox(QAbstractItemView &view, const QString &text);
void clickText(QAbstractItemView &view, const QString &text);
void doubleClickText(QAbstractItemView &view, const QString &text);

/** The widgets in tab order, from @p first on. */
QStringList tabOrder(QWidget &dialog, QWidget *first);

/** The elements of a dialog that can get the focus but have no accessible name. */
QStringList unnamedAccessibles(QWidget &dialog);

/** Presses the file button of a dialog and runs @p work with the file dialog. It should close the dialog. */
void withFileDialog(const QDialog &dialog, const std::function<void(QFileDialog *)> &work);

#endif

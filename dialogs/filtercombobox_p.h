/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef FILTERCOMBOBOX_P_H
#define FILTERCOMBOBOX_P_H

#include <QComboBox>

/**
 * A combo box whose list has its name for screen readers.
 *
 * The list gets the focus when it pops up. QComboBox creates it then, or when a screen reader asks
 * for it, as a child of a window that is the combo box's child.
 */
class FilterComboBox : public QComboBox
{
public:
    using QComboBox::QComboBox;

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void childEvent(QChildEvent *event) override;
};

#endif

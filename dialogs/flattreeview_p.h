/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef FLATTREEVIEW_P_H
#define FLATTREEVIEW_P_H

#include <QTreeView>

/**
 * A tree view for the rows of a FlatProxyModel, sorted by clicks on its header.
 *
 * QTreeView asks for the flags of each row when it lays its rows out, whether the row is in view or
 * not, and for those of selected rows in each column when it paints its header. With a model that looks
 * an account up for its flags, that takes seconds for thousands of rows. This view asks for the
 * flags of the rows that it paints, once each time, and for those that the operator works on.
 */
class FlatTreeView : public QTreeView
{
public:
    explicit FlatTreeView(QWidget *parent = nullptr);

    void doItemsLayout() override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "flattreeview_p.h"

#include "flatproxymodel_p.h"

#include <QHeaderView>

namespace
{
/** A header like that of QTreeView. To draw a section, QHeaderView finds out whether its whole column is selected. */
class Header : public QHeaderView
{
public:
    explicit Header(QWidget *parent)
        : QHeaderView(Qt::Horizontal, parent)
    {
        setSectionsMovable(true);
        setStretchLastSection(true);
        setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        const FlagsScope scope(model(), FlatProxyModel::Flags::Assumed);
        QHeaderView::paintEvent(event);
    }
};
}

FlatTreeView::FlatTreeView(QWidget *parent)
    : QTreeView(parent)
{
    setHeader(new Header(this));
    setSelectionMode(ExtendedSelection);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setSortingEnabled(true);
}

void FlatTreeView::doItemsLayout()
{
    // Only whether rows have children matters here.
    const FlagsScope scope(model(), FlatProxyModel::Flags::Assumed);
    QTreeView::doItemsLayout();
}

void FlatTreeView::paintEvent(QPaintEvent *event)
{
    const FlagsScope scope(model(), FlatProxyModel::Flags::AskedOnce);
    QTreeView::paintEvent(event);
}

void FlatTreeView::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    // For screen readers, QTreeView lists the whole selection and uses its first row.
    const FlagsScope scope(model(), FlatProxyModel::Flags::Assumed);
    QTreeView::selectionChanged(selected, deselected);
}

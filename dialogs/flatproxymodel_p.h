/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef FLATPROXYMODEL_P_H
#define FLATPROXYMODEL_P_H

#include <QHash>
#include <QSortFilterProxyModel>

/**
 * Sorts and filters rows that have no children.
 *
 * The list models do not look at the parent when they count their rows. Without this every row
 * would seem to have all rows as children, and expanding all of them, as views do on the asterisk
 * key, would never end.
 *
 * The flags of a row can cost an account lookup. A FlagsScope saves lookups when a view asks for
 * all rows, or for one row many times.
 */
class FlatProxyModel : public QSortFilterProxyModel
{
public:
    /** How flags() gets the flags of a row. */
    enum class Flags {
        Asked, ///< asks the model each time
        AskedOnce, ///< asks the model once a row, for its first column
        Assumed, ///< does not ask: the row is assumed to be enabled
    };

    using QSortFilterProxyModel::QSortFilterProxyModel;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /** @return what was set before. */
    Flags setFlags(Flags flags);

private:
    Flags m_flags = Flags::Asked;
    mutable QHash<int, Qt::ItemFlags> m_rowFlags;
};

/** Sets how a FlatProxyModel gets flags for as long as it lives. Leaves other models alone. */
class FlagsScope
{
public:
    FlagsScope(QAbstractItemModel *model, FlatProxyModel::Flags flags);
    ~FlagsScope();

private:
    Q_DISABLE_COPY_MOVE(FlagsScope)

    FlatProxyModel *m_model;
    FlatProxyModel::Flags m_previous = FlatProxyModel::Flags::Asked;
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "flatproxymodel_p.h"

#include <utility>

int FlatProxyModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : QSortFilterProxyModel::rowCount();
}

Qt::ItemFlags FlatProxyModel::flags(const QModelIndex &index) const
{
    if (m_flags == Flags::Asked || !index.isValid()) {
        return QSortFilterProxyModel::flags(index);
    }
    if (m_flags == Flags::Assumed) {
        return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    }
    if (!m_rowFlags.contains(index.row())) {
        m_rowFlags.insert(index.row(), QSortFilterProxyModel::flags(index.siblingAtColumn(0)));
    }
    return m_rowFlags.value(index.row());
}

FlatProxyModel::Flags FlatProxyModel::setFlags(Flags flags)
{
    m_rowFlags.clear();
    return std::exchange(m_flags, flags);
}

FlagsScope::FlagsScope(QAbstractItemModel *model, FlatProxyModel::Flags flags)
    : m_model(dynamic_cast<FlatProxyModel *>(model))
{
    if (m_model) {
        m_previous = m_model->setFlags(flags);
    }
}

FlagsScope::~FlagsScope()
{
    if (m_model) {
        m_model->setFlags(m_previous);
    }
}

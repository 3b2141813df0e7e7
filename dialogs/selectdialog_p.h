/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SELECTDIALOG_P_H
#define SELECTDIALOG_P_H

#include <KLocalizedString>

#include <QComboBox>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QTreeView>

#include <initializer_list>

/** What the constructors of UserSelectDialog and GroupSelectDialog have in common. */
namespace SelectDialog
{
struct FilterEntry {
    KLocalizedString text;
    int filter;
};

inline void addFilters(QComboBox *comboBox, std::initializer_list<FilterEntry> entries)
{
    for (const FilterEntry &entry : entries) {
        comboBox->addItem(entry.text.toString(), entry.filter);
    }
}

/** Shows @p model in @p view through @p proxy, and lets the other two widgets narrow it. */
template<typename Model>
void connectModel(
    Model *model, QSortFilterProxyModel *proxy, QComboBox *filterComboBox, QLineEdit *filterLineEdit, QTreeView *view)
{
    proxy->setSourceModel(model);
    proxy->setFilterKeyColumn(Model::NameColumn);
    view->setModel(proxy);
    filterComboBox->setCurrentIndex(filterComboBox->findData(static_cast<int>(model->filter())));

    const auto applyFilter = [=] {
        model->setFilter(filterComboBox->currentData().template value<typename Model::Filter>());
        view->resizeColumnToContents(Model::NameColumn);
        filterLineEdit->clear();
    };
    QObject::connect(filterComboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), view, applyFilter);
    QObject::connect(filterLineEdit, &QLineEdit::textChanged, proxy, &QSortFilterProxyModel::setFilterFixedString);
    view->resizeColumnToContents(Model::NameColumn);
}
}

#endif

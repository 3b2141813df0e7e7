/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTLIST_H
#define ACCOUNTLIST_H

#include <QPersistentModelIndex>
#include <QWidget>

#include <functional>

class KMessageWidget;
class QAbstractItemModel;
class QComboBox;
class QLineEdit;
class QSettings;
class QSortFilterProxyModel;
class QTreeView;

/** The accounts of a list model to choose one from, with a filter of the model and one by name. */
class AccountList : public QWidget
{
    Q_OBJECT

public:
    struct Filter {
        QString text;
        int filter;
    };

    /**
     * @param name what screen readers call the list; in settings, the object name does
     * @param filters the filters of the model to choose from
     */
    AccountList(const QString &name, const QVector<Filter> &filters, QWidget *parent = nullptr);

    /** Shows a UserListModel or a GroupListModel, with the filter chosen so far. */
    template<typename Model>
    void setModel(Model *model)
    {
        m_setModelFilter = [model](int filter) { model->setFilter(static_cast<typename Model::Filter>(filter)); };
        show(model);
    }

    /** Shows @p text above the list; nothing when it is empty. */
    void setError(const QString &text);

    void focusList();

    /** Puts the cursor where names are filtered. */
    void focusFilter();

    void saveState(QSettings &settings) const;
    void restoreState(const QSettings &settings);

Q_SIGNALS:
    /** Another account is current, or the same one read anew. The index is one of the model; invalid for none. */
    void currentChanged(const QModelIndex &index);

private:
    void show(QAbstractItemModel *model);
    void applyFilter();
    void restoreCurrent();
    void updateCurrent(const QModelIndex &current);

    KMessageWidget *const m_error;
    QComboBox *const m_filterComboBox;
    QLineEdit *const m_filterLineEdit;
    QTreeView *const m_view;
    QSortFilterProxyModel *const m_proxy;
    std::function<void(int)> m_setModelFilter;
    /** Outlives resets of the model. */
    QString m_currentName;
};

#endif

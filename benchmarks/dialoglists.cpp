/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountsetup.h"
#include "comparison.h"
#include "dialogsetup.h"

#include <UserSelectDialog>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTreeView>

#include <map>
#include <memory>

#include <pwd.h>

using benchmark::State;

namespace
{
/** Copies everything that @p model shows to @p copy. */
void fill(QStandardItemModel &copy, const QAbstractItemModel &model)
{
    for (int row = 0; row < model.rowCount(); ++row) {
        QList<QStandardItem *> items;
        for (int column = 0; column < model.columnCount(); ++column) {
            const QModelIndex index = model.index(row, column);
            auto *item = new QStandardItem;
            for (const int role : {Qt::DisplayRole, Qt::DecorationRole, Qt::CheckStateRole}) {
                item->setData(model.data(index, role), role);
            }
            item->setFlags(model.flags(index));
            items.append(item);
        }
        copy.appendRow(items);
    }
}

enum class Rows {
    Accounts, ///< those of the dialog
    Items, ///< the same in a QStandardItemModel
    LookedUpItems, ///< the same, with a lookup for the flags of each
};

/** Like a UserListModel with a group, it looks an account up each time it is asked for flags. */
class ItemModel : public QStandardItemModel
{
public:
    void setLookedUp(bool lookedUp)
    {
        m_lookedUp = lookedUp;
    }

    Qt::ItemFlags flags(const QModelIndex &index) const override
    {
        if (m_lookedUp) {
            benchmark::DoNotOptimize(getpwnam(index.siblingAtColumn(0).data().toString().toLatin1().constData()));
        }
        return QStandardItemModel::flags(index);
    }

private:
    bool m_lookedUp = false;
};

/** A dialog for a group, with its own rows or others. */
class List
{
public:
    explicit List(Rows rows)
        : m_dialog(sharedGroup(), {})
        , m_proxy(m_dialog.findChild<QSortFilterProxyModel *>())
        , m_comboBox(m_dialog.findChild<QComboBox *>())
        , m_lineEdit(m_dialog.findChild<QLineEdit *>())
        , m_view(treeView(m_dialog))
    {
        if (rows != Rows::Accounts) {
            for (ItemModel &items : m_items) {
                fill(items, *m_proxy->sourceModel());
                items.setLookedUp(rows == Rows::LookedUpItems);
            }
            m_proxy->setSourceModel(m_items);
        }
        paint(m_dialog);
    }

    /** Leaves nothing of what was done before. */
    void reset()
    {
        paintAfter(m_dialog, [this] {
            m_lineEdit->clear();
            m_view->clearSelection();
            m_view->sortByColumn(1, Qt::AscendingOrder);
            m_view->verticalScrollBar()->setValue(0);
            m_view->viewport()->update();
        });
    }

    int layOut()
    {
        return paintAfter(m_dialog, [this] {
            m_view->setModel(nullptr);
            m_view->setModel(m_proxy);
        });
    }

    int sort()
    {
        return paintAfter(m_dialog, [this] {
            const bool isAscending = m_proxy->sortOrder() == Qt::AscendingOrder;
            m_view->sortByColumn(1, isAscending ? Qt::DescendingOrder : Qt::AscendingOrder);
        });
    }

    /** Sets other rows, which happen to be equal. A QStandardItemModel is replaced by another one. */
    int filter()
    {
        return paintAfter(m_dialog, [this] {
            if (m_proxy->sourceModel() == m_items) {
                m_proxy->setSourceModel(m_items + 1);
                m_view->resizeColumnToContents(0);
            } else if (m_proxy->sourceModel() == m_items + 1) {
                m_proxy->setSourceModel(m_items);
                m_view->resizeColumnToContents(0);
            } else {
                m_comboBox->setCurrentIndex(m_comboBox->currentIndex() == 0 ? 1 : 0);
            }
        });
    }

    int type()
    {
        return paintAfter(
            m_dialog, [this] { m_lineEdit->setText(m_lineEdit->text().isEmpty() ? QStringLiteral("9") : QString()); });
    }

    int selectAll()
    {
        return paintAfter(m_dialog, [this] {
            if (m_view->selectionModel()->hasSelection()) {
                m_view->clearSelection();
            } else {
                m_view->selectAll();
            }
        });
    }

    /** Scrolls row by row, down to the end and again from the top. */
    int scroll()
    {
        QScrollBar *bar = m_view->verticalScrollBar();
        bar->setValue(bar->value() == bar->maximum() ? 0 : bar->value() + 1);
        QCoreApplication::processEvents();
        return bar->value();
    }

private:
    ItemModel m_items[2];
    UserSelectDialog m_dialog;
    QSortFilterProxyModel *m_proxy;
    QComboBox *m_comboBox;
    QLineEdit *m_lineEdit;
    QTreeView *m_view;
};

/** The dialogs, which take long to construct. They are deleted before the application object. */
auto &madeLists()
{
    static std::map<std::pair<int64_t, Rows>, std::unique_ptr<List>> lists;
    return lists;
}

List &listFor(const State &state, Rows rows)
{
    prepareAccounts(state);
    auto &lists = madeLists();
    if (lists.empty()) {
        qAddPostRoutine([] { madeLists().clear(); });
    }
    auto &list = lists[{state.range(0), rows}];
    if (!list) {
        list = std::make_unique<List>(rows);
    }
    return *list;
}

template<int (List::*operation)(), Rows rows>
void measureList(State &state)
{
    List &list = listFor(state, rows);
    list.reset();
    measure(state, [&list] { return (list.*operation)(); });
}

template<int (List::*operation)(), Rows peer = Rows::Items>
Comparison comparison(const char *name, const char *what, Limit limit, const char *explanation)
{
    return {name,
            what,
            peer == Rows::Items ? "the same with a `QStandardItemModel`"
                                : "the same, and the lookups of the rows in view",
            limit,
            explanation,
            {1000, 10000},
            benchmark::oNone,
            measureList<operation, Rows::Accounts>,
            measureList<operation, peer>};
}
}

Comparisons dialogListComparisons()
{
    return {
        comparison<&List::layOut>("layOutRows",
                                  "laying out the rows of a `UserSelectDialog` for a group",
                                  {1.5, 0, 1.9},
                                  "#dialogs-with-a-group"),
        comparison<&List::sort>("sortRows", "sorting them", {1.5, 0, 2.8}, "#dialogs-with-a-group"),
        comparison<&List::sort, Rows::LookedUpItems>(
            "sortLookedUpRows", "sorting them", {1.15, 0, 1.5}, "#dialogs-with-a-group"),
        comparison<&List::filter>("filterRows", "changing their filter", {1.5, 0}, ""),
        comparison<&List::type>("typeText", "typing a letter and erasing it", {1.5, 0}, ""),
        comparison<&List::selectAll>("selectAll", "selecting all of them and none", {1.5, 0}, ""),
        comparison<&List::scroll>("scroll", "scrolling by one of them", {1.5, 0, 1.9}, "#scrolling"),
        comparison<&List::scroll, Rows::LookedUpItems>(
            "scrollLookedUpRows", "scrolling by one of them", {1.15, 0, 1.5}, "#scrolling"),
    };
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountsetup.h"
#include "comparison.h"

#include <UserListModel>
#include <UserSelectDialog>

#include <QCoreApplication>
#include <QPaintEvent>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTreeView>

using benchmark::State;

namespace
{
QTreeView *treeView(const QDialog &dialog)
{
    return dialog.findChild<QTreeView *>(QStringLiteral("usersTreeView"));
}

/** Tells when a widget was painted. */
class PaintWatcher : public QObject
{
public:
    explicit PaintWatcher(QWidget *widget)
    {
        widget->installEventFilter(this);
    }

    bool isPainted() const
    {
        return m_painted;
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        m_painted = m_painted || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool m_painted = false;
};

/** Shows a dialog until it has painted its rows. */
int paint(QDialog &dialog)
{
    const PaintWatcher watcher(treeView(dialog)->viewport());
    dialog.show();
    while (!watcher.isPainted()) {
        QCoreApplication::processEvents();
    }
    return treeView(dialog)->model()->rowCount();
}

GroupInfo sharedGroup()
{
    return GroupInfo::getGroup(QStringLiteral("shared200"));
}

void openDialog(State &state)
{
    prepareAccounts(state);
    measure(state, [] {
        UserSelectDialog dialog;
        return paint(dialog);
    });
}

void openDialogOfGroup(State &state)
{
    prepareAccounts(state);
    const GroupInfo group = sharedGroup();
    measure(state, [&group] {
        UserSelectDialog dialog(group, group.users());
        return paint(dialog);
    });
}

void constructModel(State &state)
{
    prepareAccounts(state);
    measure(state, [] { return UserListModel(GroupInfo(), {}).rowCount(); });
}

void constructModelOfGroup(State &state)
{
    prepareAccounts(state);
    const GroupInfo group = sharedGroup();
    measure(state, [&group] { return UserListModel(group, group.users()).rowCount(); });
}

/** Scrolls row by row, down to the end and again from the top; paints each time. */
void scroll(State &state, QDialog &dialog)
{
    paint(dialog);
    QScrollBar *bar = treeView(dialog)->verticalScrollBar();
    measure(state, [bar] {
        bar->setValue(bar->value() == bar->maximum() ? 0 : bar->value() + 1);
        QCoreApplication::processEvents();
        return bar->value();
    });
}

/** A copy of all that @p model shows. */
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

void scrollDialog(State &state)
{
    prepareAccounts(state);
    const GroupInfo group = sharedGroup();
    UserSelectDialog dialog(group, group.users());
    scroll(state, dialog);
}

void scrollStandardItems(State &state)
{
    prepareAccounts(state);
    const GroupInfo group = sharedGroup();
    UserSelectDialog dialog(group, group.users());
    auto *proxy = dialog.findChild<QSortFilterProxyModel *>();
    QStandardItemModel items;
    fill(items, *proxy->sourceModel());
    proxy->setSourceModel(&items);
    scroll(state, dialog);
}
}

Comparisons dialogComparisons()
{
    return {
        {"firstPaint",
         "first paint of a `UserSelectDialog`",
         "constructing its `UserListModel`",
         {1.5, 1000},
         "",
         {100, 1000},
         benchmark::oNone,
         openDialog,
         constructModel},
        {"firstPaintOfGroup",
         "first paint of a `UserSelectDialog` for a group",
         "constructing its `UserListModel`",
         {1.5, 1000, 2.8},
         "#dialogs-with-a-group",
         {100, 1000},
         benchmark::oNone,
         openDialogOfGroup,
         constructModelOfGroup},
        {"scroll",
         "a frame of scrolling a `UserSelectDialog` for a group",
         "the same with a `QStandardItemModel`",
         {},
         "#scrolling",
         {100, 1000},
         benchmark::oNone,
         scrollDialog,
         scrollStandardItems},
    };
}

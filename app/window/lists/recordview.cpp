/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "recordview.h"

#include "columnwidths.h"
#include "flattree.h"
#include "hitdelegate.h"
#include "recordmodel.h"

#include <KLocalizedString>

#include <QAction>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QSettings>

#include <algorithm>

namespace
{
/** The preferred width of a list, at least and at most. In characters. */
constexpr int minWantedCharacters = 56;
constexpr int maxWantedCharacters = 84;

/** How many rows count for the width of a column. To measure the texts of all would take long. */
constexpr int measuredRows = 100;
}

RecordView::RecordView(RecordModel *model, QWidget *parent)
    : QTreeView(parent)
    , m_model(model)
{
    setUpFlatTree(*this);
    setSelectionMode(ExtendedSelection);
    setItemDelegate(new HitDelegate(this));
    // Before the base class forgets its rows.
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this, &RecordView::remember);
    setModel(model);
    m_widths = new ColumnWidths(this);
    setSortingEnabled(true);
    sortByColumn(0, Qt::AscendingOrder);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(true);
    header()->setResizeContentsPrecision(measuredRows);
    header()->setContextMenuPolicy(Qt::ActionsContextMenu);
    addColumnActions();
    fitColumns();
    connect(model, &QAbstractItemModel::modelReset, this, &RecordView::restore);
    connect(this, &QAbstractItemView::activated, this, [this](const QModelIndex &index) {
        Q_EMIT recordActivated(m_model->recordAt(index));
    });
}

QSize RecordView::sizeHint() const
{
    const int character = fontMetrics().averageCharWidth();
    const int contents = m_widths->wantedWidth() + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
    return {qBound(minWantedCharacters * character, contents, maxWantedCharacters * character),
            QTreeView::sizeHint().height()};
}

RecordModel *RecordView::recordModel() const
{
    return m_model;
}

int RecordView::currentRecord() const
{
    return m_model->recordAt(currentIndex());
}

QVector<int> RecordView::selectedRecords() const
{
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QVector<int> records;
    records.reserve(rows.size());
    for (const QModelIndex &row : qAsConst(rows)) {
        records.append(m_model->recordAt(row));
    }
    return records;
}

void RecordView::setCurrentName(const QString &name)
{
    m_currentName = name;
    const QModelIndex index = m_model->find(name);
    if (index.isValid()) {
        // Whatever modifiers are held down.
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        scrollTo(index);
    }
}

const QString &RecordView::currentName() const
{
    return m_currentName;
}

void RecordView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTreeView::currentChanged(current, previous);
    if (m_restoring) {
        return;
    }
    const int record = m_model->recordAt(current);
    if (record != -1) {
        m_currentName = m_model->name(record);
    }
    if (current.row() != previous.row() || !previous.isValid()) {
        Q_EMIT currentRecordChanged(record);
    }
}

void RecordView::remember()
{
    m_restoring = true;
    m_currentRow = qMax(0, currentIndex().row());
    m_selectedNames.clear();
    const QVector<int> selected = selectedRecords();
    for (const int record : selected) {
        m_selectedNames.insert(m_model->name(record));
    }
    const int top = m_model->recordAt(indexAt(QPoint()));
    m_topName = top == -1 || verticalScrollBar()->value() == 0 ? QString() : m_model->name(top);
}

void RecordView::restore()
{
    fitColumns();
    QModelIndex current = m_model->find(m_currentName);
    const bool hidden = !current.isValid() && m_model->rowCount() < m_model->recordCount();
    if (!current.isValid() && m_model->rowCount() > 0) {
        // The next record in the place of one that is gone; in a search, the best hit.
        current = m_model->index(hidden ? 0 : qMin(m_currentRow, m_model->rowCount() - 1), 0);
    }
    const bool scrolls = hasAutoScroll();
    setAutoScroll(false);
    selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    restoreSelection();
    setAutoScroll(scrolls);
    const QModelIndex top = m_topName.isNull() ? QModelIndex() : m_model->find(m_topName);
    if (top.isValid()) {
        scrollTo(top, PositionAtTop);
    } else {
        scrollTo(current);
    }
    m_restoring = false;
    if (!hidden && current.isValid()) {
        m_currentName = m_model->name(m_model->recordAt(current));
    }
    Q_EMIT currentRecordChanged(m_model->recordAt(current));
}

void RecordView::fitColumns()
{
    m_widths->fitContents();
    updateGeometry();
}

void RecordView::resizeEvent(QResizeEvent *event)
{
    QTreeView::resizeEvent(event);
    m_widths->fitRoom();
}

void RecordView::restoreSelection()
{
    const auto isSelected = [this](int row) {
        return row < m_model->rowCount()
            && m_selectedNames.contains(m_model->name(m_model->recordAt(m_model->index(row, 0))));
    };
    // Qt takes seconds for thousands of ranges.
    QItemSelection selection;
    int selected = 0;
    // One that was selected is the current row, which is known already.
    for (int row = 0; row < m_model->rowCount() && m_selectedNames.size() > 1; ++row) {
        const int first = row;
        while (isSelected(row)) {
            ++row;
        }
        if (row > first) {
            selection.select(m_model->index(first, 0), m_model->index(row - 1, m_model->columnCount() - 1));
            selected += row - first;
        }
    }
    if (selected < 2 && currentIndex().isValid()) {
        selection = QItemSelection(currentIndex().siblingAtColumn(0),
                                   currentIndex().siblingAtColumn(m_model->columnCount() - 1));
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void RecordView::keyboardSearch(const QString &search)
{
    // The base class looks in the column of the current cell, which may have been clicked.
    selectionModel()->setCurrentIndex(currentIndex().siblingAtColumn(0), QItemSelectionModel::NoUpdate);
    QTreeView::keyboardSearch(search);
}

void RecordView::contextMenuEvent(QContextMenuEvent *event)
{
    const QList<QAction *> own = actions();
    if (own.isEmpty()) {
        return;
    }
    QMenu menu(this);
    menu.addActions(own);
    menu.addSeparator();
    menu.addMenu(i18nc("@title:menu of a list", "C&olumns"))->addActions(m_columnActions);
    QPoint position = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        position = viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft());
    }
    menu.exec(position);
}

void RecordView::addColumnActions()
{
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const QString title = m_model->headerData(column, Qt::Horizontal).toString();
        auto *action = new QAction(title, this);
        action->setCheckable(true);
        action->setChecked(true);
        action->setEnabled(column > 0); // without a name a row says nothing
        connect(action, &QAction::triggered, this, [this, column](bool shown) {
            setColumnHidden(column, !shown);
            m_widths->fitRoom();
        });
        header()->addAction(action);
        m_columnActions.append(action);
    }
}

void RecordView::updateColumnActions()
{
    for (int column = 0; column < m_columnActions.size(); ++column) {
        m_columnActions.at(column)->setChecked(!isColumnHidden(column));
    }
}

QList<QAction *> RecordView::columnActions() const
{
    return m_columnActions;
}

void RecordView::setShownColumns(const QVector<int> &columns)
{
    for (int column = 0; column < m_model->columnCount(); ++column) {
        setColumnHidden(column, !columns.contains(column));
    }
    m_widths->fitRoom();
    updateColumnActions();
}

void RecordView::setWideColumn(int column)
{
    m_widths->setWideColumn(column);
}

void RecordView::setAlwaysFitting(bool always)
{
    m_widths->setAlwaysFitting(always);
}

QVector<int> RecordView::shownColumns() const
{
    QVector<int> columns;
    for (int place = 0; place < header()->count(); ++place) {
        const int column = header()->logicalIndex(place);
        if (!isColumnHidden(column)) {
            columns.append(column);
        }
    }
    return columns;
}

QString RecordView::settingsKey(const char *name) const
{
    return objectName() + QLatin1Char('/') + QLatin1String(name);
}

void RecordView::saveState(QSettings &settings) const
{
    settings.setValue(settingsKey("header"), header()->saveState());
    settings.setValue(settingsKey("hasChosenWidths"), m_widths->areChosen());
    settings.setValue(settingsKey("current"), m_currentName);
}

void RecordView::restoreState(const QSettings &settings)
{
    const QByteArray state = settings.value(settingsKey("header")).toByteArray();
    if (header()->restoreState(state)) {
        m_widths->setChosen(settings.value(settingsKey("hasChosenWidths"), true).toBool());
        setColumnHidden(0, false);
        updateColumnActions();
        sortByColumn(header()->sortIndicatorSection(), header()->sortIndicatorOrder());
    }
    setCurrentName(settings.value(settingsKey("current")).toString());
}

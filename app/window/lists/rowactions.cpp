/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "rowactions.h"

#include "messages.h"
#include "recordmodel.h"
#include "recordview.h"
#include "rowtable.h"

#include <KLocalizedString>

#include <QAction>
#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMimeData>
#include <QSaveFile>

#include <algorithm>
#include <numeric>

namespace
{
void copy(const QString &text, const char *mimeType = nullptr, const QByteArray &data = {})
{
    auto *mimeData = new QMimeData;
    mimeData->setText(text);
    if (mimeType) {
        mimeData->setData(QString::fromLatin1(mimeType), data);
    }
    QGuiApplication::clipboard()->setMimeData(mimeData);
}

QByteArray contentFor(const QString &path, const RowTable &rows)
{
    if (path.endsWith(QLatin1String(".json"), Qt::CaseInsensitive)) {
        return rows.toJson();
    }
    if (path.endsWith(QLatin1String(".txt"), Qt::CaseInsensitive)) {
        return rows.toText().toUtf8() + '\n';
    }
    return rows.toCsv().toUtf8();
}

QString exportTitle()
{
    return i18nc("@title:window", "Export the List");
}

/** Where to write the list that is called @p name; empty when the operator does not want to. */
QString askForFile(const QString &name, QWidget *parent)
{
    QFileDialog dialog(parent, exportTitle());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters({
        i18nc("@item:inlistbox types of files", "CSV files (*.csv)"),
        i18nc("@item:inlistbox types of files", "JSON files (*.json)"),
        i18nc("@item:inlistbox types of files", "Text files (*.txt)"),
    });
    // A name without a suffix gets that of the type, and the content follows the suffix.
    const auto setSuffix = [&dialog](const QString &filter) {
        dialog.setDefaultSuffix(filter.section(QLatin1String("*."), 1).section(QLatin1Char(')'), 0, 0));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, setSuffix);
    setSuffix(dialog.selectedNameFilter());
    dialog.selectFile(name);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}
}

RowActions::RowActions(RecordView *view)
    : QObject(view)
    , m_view(view)
{
    QAction *text = add(i18nc("@action:inmenu rows of a list", "&Copy"), "edit-copy", &RowActions::copyText);
    text->setShortcut(QKeySequence::Copy);
    text->setShortcutContext(Qt::WidgetShortcut);
    QAction *csv = add(i18nc("@action:inmenu rows of a list", "Copy as C&SV"), "edit-copy", &RowActions::copyCsv);
    QAction *json = add(i18nc("@action:inmenu rows of a list", "Copy as &JSON"), "edit-copy", &RowActions::copyJson);
    m_copyActions = {text, csv, json};
    QAction *all = add(i18nc("@action:inmenu rows of a list", "Select &All"), "edit-select-all", nullptr);
    all->setShortcut(QKeySequence::SelectAll);
    all->setShortcutContext(Qt::WidgetShortcut);
    connect(all, &QAction::triggered, view, &QAbstractItemView::selectAll);
    m_exportAction =
        add(i18nc("@action:inmenu all rows of a list", "&Export…"), "document-export", &RowActions::exportRows);
    view->addActions(m_actions);
    m_actions.removeLast();
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &RowActions::updateActions);
    connect(view->model(), &QAbstractItemModel::modelReset, this, &RowActions::updateActions);
    updateActions();
}

QAction *RowActions::add(const QString &text, const char *icon, void (RowActions::*run)() const)
{
    auto *action = new QAction(QIcon::fromTheme(QLatin1String(icon)), text, this);
    if (run) {
        connect(action, &QAction::triggered, this, run);
    }
    m_actions.append(action);
    return action;
}

QList<QAction *> RowActions::actions() const
{
    return m_actions;
}

QAction *RowActions::exportAction() const
{
    return m_exportAction;
}

void RowActions::updateActions()
{
    for (QAction *action : qAsConst(m_copyActions)) {
        action->setEnabled(m_view->selectionModel()->hasSelection());
    }
}

RowTable RowActions::rows(const QVector<int> &rows) const
{
    const RecordModel &model = *m_view->recordModel();
    const QVector<int> columns = m_view->shownColumns();
    RowTable table;
    for (const int column : columns) {
        table.ids.append(QString::fromLatin1(model.columns().at(column).id));
        table.titles.append(model.headerData(column, Qt::Horizontal).toString());
    }
    for (const int row : rows) {
        QVector<RowTable::Cell> cells;
        for (const int column : columns) {
            const QModelIndex index = model.index(row, column);
            cells.append({index.data().toString(), index.data(RecordModel::ValueRole)});
        }
        table.rows.append(cells);
    }
    return table;
}

RowTable RowActions::selectedRows() const
{
    const QModelIndexList selected = m_view->selectionModel()->selectedRows();
    QVector<int> numbers;
    std::transform(selected.begin(), selected.end(), std::back_inserter(numbers), [](const QModelIndex &index) {
        return index.row();
    });
    std::sort(numbers.begin(), numbers.end());
    return rows(numbers);
}

RowTable RowActions::allRows() const
{
    QVector<int> numbers(m_view->model()->rowCount());
    std::iota(numbers.begin(), numbers.end(), 0);
    return rows(numbers);
}

void RowActions::copyText() const
{
    copy(selectedRows().toText());
}

void RowActions::copyCsv() const
{
    const QString csv = selectedRows().toCsv();
    copy(csv, "text/csv", csv.toUtf8());
}

void RowActions::copyJson() const
{
    const QByteArray json = selectedRows().toJson();
    copy(QString::fromUtf8(json), "application/json", json);
}

void RowActions::exportRows() const
{
    const QString path = askForFile(m_view->accessibleName(), m_view->window());
    if (path.isEmpty()) {
        return;
    }
    const QByteArray content = contentFor(path, allRows());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit()) {
        Messages::reportUnwritten(m_view->window(), exportTitle(), path, file.errorString());
    }
}

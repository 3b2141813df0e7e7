/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "table.h"

#include "flattree.h"
#include "lefttoright.h"
#include "plaintext.h"

#include <KLocalizedString>

#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>

namespace
{
/** How many characters a column has room for by default. */
constexpr int maxCharacters = 36;
}

Table::Table(const QString &title, const QStringList &columns, QWidget *parent)
    : QTreeWidget(parent)
    , m_title(title)
{
    setItemDelegate(new LeftToRight::Delegate(this));
    setHeaderLabels(columns);
    setAccessibleName(KLocalizedString::removeAcceleratorMarker(title));
    setUpFlatTree(*this);
    setRows({});
}

QSize Table::sizeHint() const
{
    const int last = columnCount() - 1; // it takes the remaining width, but at least as much as other columns
    int width = 2 * frameWidth() + verticalScrollBar()->sizeHint().width()
        + qMax(header()->defaultSectionSize(), header()->sectionSizeHint(last));
    for (int column = 0; column < last; ++column) {
        width += columnWidth(column);
    }
    return QTreeWidget::sizeHint().expandedTo({width, 0});
}

QLabel *Table::createTitleLabel()
{
    auto *label = new QLabel(m_title, parentWidget());
    label->setAlignment(LeftToRight::lineStart());
    label->setBuddy(this);
    return label;
}

QTreeWidgetItem *Table::row(const QVector<Cell> &cells)
{
    auto *row = new QTreeWidgetItem;
    for (int column = 0; column < cells.size(); ++column) {
        const Cell &cell = cells.at(column);
        row->setText(column, cell.text);
        if (!cell.explanation.isEmpty()) {
            row->setToolTip(column, PlainText::toRichText(cell.explanation));
            row->setData(column, Qt::AccessibleDescriptionRole, cell.explanation);
        }
    }
    return row;
}

void Table::setRows(const QList<QTreeWidgetItem *> &rows)
{
    clear();
    addTopLevelItems(rows);
    // Where the arrow keys begin. Nothing is chosen before they are used.
    setCurrentItem(topLevelItem(0), 0, QItemSelectionModel::NoUpdate);
    const int maxWidth = maxCharacters * fontMetrics().averageCharWidth();
    for (int column = 0; column < columnCount() - 1; ++column) {
        resizeColumnToContents(column);
        setColumnWidth(column, qMin(columnWidth(column), maxWidth));
    }
    updateGeometry();
}

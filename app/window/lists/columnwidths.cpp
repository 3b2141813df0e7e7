/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "columnwidths.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTreeView>

namespace
{
/** The largest width of a column where there is room, and where there is little. In characters. */
constexpr int maxCharacters = 28;
constexpr int maxCharactersInLittleRoom = 16;

/** The least room for a column with sentences. In characters. */
constexpr int minWideCharacters = 60;
}

ColumnWidths::ColumnWidths(QTreeView *view)
    : QObject(view)
    , m_view(view)
{
    connect(view->header(), &QHeaderView::sectionResized, this, &ColumnWidths::noteWidth);
}

void ColumnWidths::setWideColumn(int column)
{
    m_wideColumn = column;
}

void ColumnWidths::setAlwaysFitting(bool always)
{
    m_alwaysFitting = always;
}

void ColumnWidths::fitContents()
{
    if (m_chosen || (m_hasFitted && !m_alwaysFitting)) {
        return;
    }
    const QAbstractItemModel &model = *m_view->model();
    m_hasFitted = model.rowCount() > 0;
    m_contents.clear();
    m_titles.clear();
    for (int column = 0; column < model.columnCount(); ++column) {
        m_contents.append(contentsWidth(column));
        m_titles.append(m_view->header()->sectionSizeHint(column));
    }
    fitRoom();
}

int ColumnWidths::contentsWidth(int column) const
{
    const auto *view = static_cast<const QAbstractItemView *>(m_view); // there it is public
    const int contents = view->sizeHintForColumn(column);
    return column == m_wideColumn ? contents : qMin(contents, characters(maxCharacters));
}

void ColumnWidths::fitRoom()
{
    if (m_chosen) {
        return;
    }
    const QScopedValueRollback<bool> fitting(m_fitting, true);
    const int largest = largestWidth();
    for (int column = 0; column < m_contents.size(); ++column) {
        m_view->header()->resizeSection(column, widthWithin(column, largest));
    }
    if (m_wideColumn != -1 && m_wideColumn < m_contents.size()) {
        m_view->header()->resizeSection(m_wideColumn, wideWidth());
    }
}

int ColumnWidths::wantedWidth() const
{
    return m_hasFitted ? widthOfAll(m_view->maximumWidth()) : m_view->header()->length();
}

/** The first column tells what a row is about, so it is never narrower than its contents. */
int ColumnWidths::widthWithin(int column, int largest) const
{
    const int contents = m_contents.at(column);
    return qMax(m_titles.at(column), column == 0 ? contents : qMin(contents, largest));
}

int ColumnWidths::widthOfAll(int largest) const
{
    int width = 0;
    for (int column = 0; column < m_contents.size(); ++column) {
        width += m_view->isColumnHidden(column) ? 0 : widthWithin(column, largest);
    }
    return width;
}

/** The widest columns are the first to become narrower. */
int ColumnWidths::largestWidth() const
{
    int largest = characters(maxCharacters);
    if (m_wideColumn != -1) {
        return largest;
    }
    while (largest > characters(maxCharactersInLittleRoom) && widthOfAll(largest) > m_view->viewport()->width()) {
        --largest;
    }
    return largest;
}

int ColumnWidths::wideWidth() const
{
    const QHeaderView &header = *m_view->header();
    const int left = m_view->viewport()->width() - header.length() + header.sectionSize(m_wideColumn);
    const int contents = qMin(m_contents.at(m_wideColumn), qMax(left, characters(minWideCharacters)));
    return qMax(m_titles.at(m_wideColumn), contents);
}

int ColumnWidths::characters(int count) const
{
    return count * m_view->fontMetrics().averageCharWidth();
}

void ColumnWidths::noteWidth(int /*section*/, int oldSize, int newSize)
{
    // Columns that are hidden or shown change to nothing or from nothing.
    if (!m_fitting && oldSize > 0 && newSize > 0) {
        m_chosen = true;
    }
}

bool ColumnWidths::areChosen() const
{
    return m_chosen;
}

void ColumnWidths::setChosen(bool chosen)
{
    m_chosen = chosen;
}

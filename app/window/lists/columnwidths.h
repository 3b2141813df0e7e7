/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef COLUMNWIDTHS_H
#define COLUMNWIDTHS_H

#include <QObject>
#include <QVector>

class QTreeView;

/** How wide the columns of a list are until the operator chooses other widths. */
class ColumnWidths : public QObject
{
    Q_OBJECT

public:
    explicit ColumnWidths(QTreeView *view);

    /** Gives @p column, which has sentences, the room that the others leave. */
    void setWideColumn(int column);

    /** Measures the contents each time, not just the first time. */
    void setAlwaysFitting(bool always);

    /** Measures the contents of all columns, and makes the columns as wide as fits both these and the view. */
    void fitContents();

    /** Makes the columns as wide as fits the view and the contents that were measured. */
    void fitRoom();

    /** How wide the columns that are shown are together when there is room. */
    int wantedWidth() const;

    bool areChosen() const;
    void setChosen(bool chosen);

private:
    void noteWidth(int section, int oldSize, int newSize);
    int contentsWidth(int column) const;
    int widthWithin(int column, int largest) const;
    int widthOfAll(int largest) const;
    int largestWidth() const;
    int wideWidth() const;
    int characters(int count) const;

    QTreeView *const m_view;
    int m_wideColumn = -1;
    bool m_alwaysFitting = false;
    bool m_fitting = false;
    bool m_hasFitted = false;
    bool m_chosen = false;
    /** For each column: what its contents take, and what its title takes. */
    QVector<int> m_contents;
    QVector<int> m_titles;
};

#endif

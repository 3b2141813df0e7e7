/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITLINESMODEL_H
#define LIMITLINESMODEL_H

#include "limitanalysis.h"

#include <QAbstractTableModel>

/**
 * The lines of the limits files. A row keeps only the place of its line, since there may be a
 * million.
 */
class LimitLinesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { PlaceColumn, TextColumn, MeaningColumn, ColumnCount };
    enum Filter { AllLines, AppliedLines, ProblemLines };

    using QAbstractTableModel::QAbstractTableModel;

    /** Shows lines that were not shown before. */
    void setAnalysis(const LimitAnalysis::Pointer &analysis);

    /** Shows more about the same lines. */
    void updateAnalysis(const LimitAnalysis::Pointer &analysis);

    void setFilter(Filter filter);

    /** The place of the line in a row; -1 for none. */
    int lineAt(int row) const;

    /** The row of the line at @p place; -1 where it is not shown. */
    int rowOf(int place) const;

    /** The purpose of the line at @p place. */
    QString meaningOf(int place) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void fill();
    bool isShown(int place) const;
    QString textOf(int place, int column) const;

    LimitAnalysis::Pointer m_analysis;
    Filter m_filter = AllLines;
    QVector<int> m_rows;
};

#endif

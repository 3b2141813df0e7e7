/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITLINESMODEL_H
#define LIMITLINESMODEL_H

#include "limitfindings.h"

#include <QAbstractTableModel>

#include <memory>

/**
 * The lines of the limits files. Nothing is kept for a row but the place of its line, as there may
 * be a million.
 */
class LimitLinesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { PlaceColumn, TextColumn, MeaningColumn, ColumnCount };
    enum Filter { AllLines, AppliedLines, ProblemLines };

    using QAbstractTableModel::QAbstractTableModel;
    ~LimitLinesModel() override;

    /** Shows the lines of @p limits. */
    void setLimits(const PamLimits::SessionLimits &limits);

    /** Sets what the lines do for the accounts, which tells some of the problems; null while that is not known. */
    void setUsage(std::shared_ptr<const PamLimits::LimitUsage> usage);

    void setFilter(Filter filter);

    /** The place of the line in a row; -1 for none. */
    int lineAt(int row) const;

    /** What the line at @p place is for, and what there is to say of it. */
    QString meaningOf(int place) const;
    QStringList problemsOf(int place) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void fill();
    bool isShown(int place) const;
    QString textOf(int place, int column) const;

    PamLimits::SessionLimits m_limits;
    std::shared_ptr<const PamLimits::LimitUsage> m_usage;
    std::unique_ptr<PamLimits::Findings> m_findings;
    Filter m_filter = AllLines;
    QVector<int> m_rows;
};

#endif

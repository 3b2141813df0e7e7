/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PROBLEMMODEL_H
#define PROBLEMMODEL_H

#include "problem.h"
#include "problemtexts.h"
#include "recordmodel.h"

#include <QIcon>

/** Problems of the machine. */
class ProblemModel : public RecordModel
{
    Q_OBJECT

public:
    enum Filter { All, Serious, Errors, Notes };
    enum Column { SeverityColumn, TextColumn, AccountColumn, PlaceColumn, KindColumn, MeaningColumn, RemedyColumn };

    explicit ProblemModel(QObject *parent = nullptr);

    /** @param problems the worst first */
    void setProblems(const QList<Problem> &problems);
    const Problem &problem(int record) const;

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    int recordCount() const override;

    /** Identifies the problem: no two have the same place, kind and account. */
    QString name(int record) const override;
    bool isNamed(int record, const QString &name) const override;

protected:
    QVariant value(int record, int column) const override;
    QVariant sortValue(int record, int column) const override;
    SortValues sortValues(int column) const override;
    bool passes(int record, int filter) const override;
    bool contains(int record, const SearchWords::Word &word) const override;
    QVariant icon(int record) const override;

private:
    void replaceProblems(const QList<Problem> &problems);
    QVariant sentence(int record, int column) const;

    QList<Problem> m_problems;
    mutable ProblemTexts m_texts;
    /** In the order of Problem::Severity. */
    const QVector<QIcon> m_icons;
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ROWACTIONS_H
#define ROWACTIONS_H

#include <QObject>

class QAction;
class RecordView;
struct RowTable;

/** Copying the selected rows of a view, and writing all that it shows to a file. */
class RowActions : public QObject
{
    Q_OBJECT

public:
    explicit RowActions(RecordView *view);

    /** What is done with rows: copying and selecting them. */
    QList<QAction *> actions() const;

    QAction *exportAction() const;

    /** The rows that are selected, with the columns that are shown. */
    RowTable selectedRows() const;

    /** All rows that are shown. */
    RowTable allRows() const;

private:
    QAction *add(const QString &text, const char *icon, void (RowActions::*run)() const);
    void copyText() const;
    void copyCsv() const;
    void copyJson() const;
    void exportRows() const;
    void updateActions();
    RowTable rows(const QVector<int> &rows) const;

    RecordView *const m_view;
    QList<QAction *> m_copyActions;
    QList<QAction *> m_actions;
    QAction *m_exportAction = nullptr;
};

#endif

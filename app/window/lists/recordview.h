/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef RECORDVIEW_H
#define RECORDVIEW_H

#include <QTreeView>

class ColumnWidths;
class QSettings;
class RecordModel;

/**
 * The rows of a RecordModel. The operator chooses columns, their places and widths, and the order.
 *
 * The current and selected records, and the one at the top, stay the same when the model is filled again.
 */
class RecordView : public QTreeView
{
    Q_OBJECT

public:
    /** @param model outlives the view */
    explicit RecordView(RecordModel *model, QWidget *parent = nullptr);

    /** Wide enough for the columns that are shown, or some of them. */
    QSize sizeHint() const override;

    RecordModel *recordModel() const;

    /** The current record; -1 when there is none. */
    int currentRecord() const;

    /** The selected records in the order of their rows. */
    QVector<int> selectedRecords() const;

    /** Makes the record of that name the current one, now or as soon as it is shown. */
    void setCurrentName(const QString &name);

    /** The name that was last chosen, even if it is not shown at the moment. */
    const QString &currentName() const;

    /** Shows these columns only, until the operator chooses others. */
    void setShownColumns(const QVector<int> &columns);

    /** Gives @p column, which has sentences, much room at first. */
    void setWideColumn(int column);

    /** Fits the columns each time the model is filled, not just the first time. Not after the operator chose widths. */
    void setAlwaysFitting(bool always);

    /** Sections in the order in which they are shown, without the hidden ones. */
    QVector<int> shownColumns() const;

    /** An action for each column, to show and hide it. */
    QList<QAction *> columnActions() const;

    void keyboardSearch(const QString &search) override;

    void saveState(QSettings &settings) const;
    void restoreState(const QSettings &settings);

Q_SIGNALS:
    /** Another record is current, or the same one was read again; -1 for none. */
    void currentRecordChanged(int record);

    /** A row was double-clicked or the Enter key pressed on it. */
    void recordActivated(int record);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void remember();
    void restore();
    void restoreSelection();
    void addColumnActions();
    void updateColumnActions();
    void fitColumns();
    QString settingsKey(const char *name) const;

    RecordModel *const m_model;
    QList<QAction *> m_columnActions;
    ColumnWidths *m_widths = nullptr;
    QString m_currentName;
    int m_currentRow = 0;
    QSet<QString> m_selectedNames;
    QString m_topName;
    /** Whether the model is being filled again. Then a new current row is not the operator's choice. */
    bool m_restoring = false;
};

#endif

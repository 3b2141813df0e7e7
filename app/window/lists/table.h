/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef TABLE_H
#define TABLE_H

#include <QTreeWidget>

class QLabel;

/** A read-only table of text. */
class Table : public QTreeWidget
{
    Q_OBJECT

public:
    struct Cell {
        QString text;
        /** A tool tip in plain text; empty for none. */
        QString explanation;
    };

    /** @param title the title, which may have a mnemonic */
    Table(const QString &title, const QStringList &columns, QWidget *parent = nullptr);

    /** With room for the titles of the columns. */
    QSize sizeHint() const override;

    /** A new label with the title, to be shown above the table. */
    QLabel *createTitleLabel();

    /** A new row with one cell for each column. It is not added yet. */
    static QTreeWidgetItem *row(const QVector<Cell> &cells);

    /** Replaces all rows. The first one becomes the current one, but is not selected. */
    void setRows(const QList<QTreeWidgetItem *> &rows);

private:
    const QString m_title;
};

#endif

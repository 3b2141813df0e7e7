/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef RECORDMODEL_H
#define RECORDMODEL_H

#include "searchwords.h"

#include <KLazyLocalizedString>

#include <QAbstractTableModel>
#include <QFutureWatcher>
#include <QSet>
#include <QTimer>

#include <functional>
#include <optional>

/**
 * A table of the records that pass a search and a filter, sorted by a column.
 *
 * Records are numbered as they were given; rows are counted as they are shown. Besides the record itself
 * only some numbers are kept, and texts are made when they are shown.
 *
 * Very many records may be sorted in a thread. What was shown stays until that is done.
 */
class RecordModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Role {
        ValueRole = Qt::UserRole, ///< the value of a cell: a text, a list of texts, a number or a Boolean
        NewsRole, ///< whether the record is marked as one that has just changed
        SentenceRole, ///< what a view shows of a cell that holds a sentence
    };

    struct Column {
        /** An identifier for settings and for files. */
        const char *id;
        KLazyLocalizedString title;
        /** How a Boolean is shown. */
        KLazyLocalizedString yes = {};
        KLazyLocalizedString no = {};
    };

    explicit RecordModel(const QVector<Column> &columns, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /**
     * Sorts by the values of @p column: numbers as numbers, texts by the rules of the language, equal ones
     * by the first column. Very many may be sorted a moment later.
     */
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    const QVector<Column> &columns() const;

    /** Shows the records that contain each of the words in any column. Resets the model. */
    void setSearch(const SearchWords &search);
    const SearchWords &search() const;

    /** Marks words for which the list is not searched. */
    void setMarks(const SearchWords &marks);

    /** The words to mark: those that are searched for or, without a search, the others. */
    const SearchWords &marks() const;

    /**
     * Shows the records that pass @p filter, a number that the derived class defines; 0 is for all. Resets
     * the model.
     */
    void setFilter(int filter);
    int filter() const;

    /** The number of records, shown or not. */
    virtual int recordCount() const = 0;

    /** The name of a record. Others may have the same name. */
    virtual QString name(int record) const = 0;

    /** Whether a record has this name. */
    virtual bool isNamed(int record, const QString &name) const;

    /** The record of a row, -1 for an invalid index. */
    int recordAt(const QModelIndex &index) const;

    /** The first shown record of that name; invalid when there is none. */
    QModelIndex find(const QString &name) const;

    /** Whether there is a record of that name, shown or not. */
    bool hasRecord(const QString &name) const;

    /** Marks the records of these names for some seconds. */
    void setNews(const QSet<QString> &names);

protected:
    virtual QVariant value(int record, int column) const = 0;

    /** What @p column is sorted by: numbers, Booleans or texts. */
    virtual QVariant sortValue(int record, int column) const;

    /** What records are sorted by, in the order of the records. It is called in a thread. */
    using SortValues = std::function<QVector<QVariant>()>;

    /** Empty when sortValue() is to be asked at once, however many records there are. */
    virtual SortValues sortValues(int column) const;

    virtual bool passes(int record, int filter) const = 0;
    virtual bool contains(int record, const SearchWords::Word &word) const = 0;
    virtual QVariant icon(int record) const = 0;

    /** Replaces the records within @p replace. Resets the model. */
    void replaceRecords(const std::function<void()> &replace);

    /** The same, but sorts them in a thread before. @p sortValues gives the values of a column. */
    void replaceRecordsLater(const std::function<SortValues(int column)> &sortValues,
                             const std::function<void()> &replace);

private:
    struct Order {
        int column = 0;
        Qt::SortOrder order = Qt::AscendingOrder;
    };

    /** Records that will replace those that are shown. */
    struct NewRecords {
        std::function<SortValues(int column)> sortValues;
        std::function<void()> replace;
    };

    void replaceRanked(const std::function<void()> &replace, const QVector<int> &ranks);
    void fill();
    bool isRanked(int column) const;
    void rankLater(const SortValues &values);
    void useRanks();
    void sortShown();
    void sortRows(QVector<int> &rows);
    const QVector<int> &ranks(int column);
    QString text(const QModelIndex &index) const;
    QString accessibleText(const QModelIndex &index) const;
    void endNews();

    const QVector<Column> m_columns;
    SearchWords m_search;
    SearchWords m_marks;
    int m_filter = 0;
    Order m_wantedOrder;
    Order m_order;
    /** The record of each row. */
    QVector<int> m_rows;
    /** For each column that was sorted by: the place of each record, equal for equal values. */
    QVector<QVector<int>> m_ranks;
    std::optional<NewRecords> m_newRecords;
    QFutureWatcher<QVector<int>> m_ranking;
    int m_rankedColumn = 0;
    QSet<QString> m_news;
    QTimer m_endOfNews;
};

#endif

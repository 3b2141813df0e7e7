/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "recordmodel.h"

#include "ranking.h"

#include <KLocalizedString>

#include <QtConcurrent>

#include <algorithm>
#include <numeric>

namespace
{
/** How long changed records are marked. In milliseconds. */
constexpr int newsDuration = 5000;
}

RecordModel::RecordModel(const QVector<Column> &columns, QObject *parent)
    : QAbstractTableModel(parent)
    , m_columns(columns)
    , m_ranks(columns.size())
{
    m_endOfNews.setSingleShot(true);
    m_endOfNews.setInterval(newsDuration);
    connect(&m_endOfNews, &QTimer::timeout, this, &RecordModel::endNews);
    connect(&m_ranking, &QFutureWatcherBase::finished, this, &RecordModel::useRanks);
}

int RecordModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int RecordModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_columns.size();
}

QVariant RecordModel::data(const QModelIndex &index, int role) const
{
    const int record = recordAt(index);
    if (record == -1) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return text(index);
    case Qt::AccessibleTextRole:
        return accessibleText(index);
    case Qt::DecorationRole:
        return index.column() == 0 ? icon(record) : QVariant();
    case Qt::TextAlignmentRole:
        return value(record, index.column()).userType() == QMetaType::UInt ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                                                                           : QVariant();
    case ValueRole:
        return value(record, index.column());
    case NewsRole:
        return m_news.contains(name(record));
    default:
        return {};
    }
}

QString RecordModel::text(const QModelIndex &index) const
{
    const QVariant value = data(index, ValueRole);
    switch (value.userType()) {
    case QMetaType::Bool:
        return (value.toBool() ? m_columns.at(index.column()).yes : m_columns.at(index.column()).no).toString();
    case QMetaType::QStringList:
        return value.toStringList().join(QLatin1String(", "));
    default:
        return value.toString();
    }
}

QString RecordModel::accessibleText(const QModelIndex &index) const
{
    const QString shown = data(index).toString();
    return shown.isEmpty() ? i18nc("@info read out for an empty cell", "none") : shown;
}

QVariant RecordModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= m_columns.size()) {
        return QAbstractTableModel::headerData(section, orientation, role);
    }
    return m_columns.at(section).title.toString();
}

Qt::ItemFlags RecordModel::flags(const QModelIndex &index) const
{
    return index.isValid() ? QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren : Qt::NoItemFlags;
}

const QVector<RecordModel::Column> &RecordModel::columns() const
{
    return m_columns;
}

const SearchWords &RecordModel::search() const
{
    return m_search;
}

void RecordModel::setMarks(const SearchWords &marks)
{
    m_marks = marks;
    if (!m_rows.isEmpty()) {
        Q_EMIT dataChanged(index(0, 0), index(m_rows.size() - 1, m_columns.size() - 1), {Qt::DisplayRole});
    }
}

const SearchWords &RecordModel::marks() const
{
    return m_search.isEmpty() ? m_marks : m_search;
}

void RecordModel::setSearch(const SearchWords &search)
{
    beginResetModel();
    m_search = search;
    fill();
    endResetModel();
}

void RecordModel::setFilter(int filter)
{
    beginResetModel();
    m_filter = filter;
    fill();
    endResetModel();
}

int RecordModel::filter() const
{
    return m_filter;
}

int RecordModel::recordAt(const QModelIndex &index) const
{
    return index.isValid() && index.row() < m_rows.size() ? m_rows.at(index.row()) : -1;
}

QModelIndex RecordModel::find(const QString &name) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [&](int record) { return isNamed(record, name); });
    return found == m_rows.end() ? QModelIndex() : index(int(found - m_rows.begin()), 0);
}

bool RecordModel::hasRecord(const QString &name) const
{
    for (int record = 0; record < recordCount(); ++record) {
        if (isNamed(record, name)) {
            return true;
        }
    }
    return false;
}

bool RecordModel::isNamed(int record, const QString &name) const
{
    return this->name(record) == name;
}

void RecordModel::setNews(const QSet<QString> &names)
{
    endNews();
    m_news = names;
    if (!m_news.isEmpty()) {
        m_endOfNews.start();
    }
}

void RecordModel::endNews()
{
    const bool shown = !m_news.isEmpty() && !m_rows.isEmpty();
    m_news.clear();
    if (shown) {
        Q_EMIT dataChanged(index(0, 0), index(m_rows.size() - 1, m_columns.size() - 1), {NewsRole});
    }
}

void RecordModel::fill()
{
    m_rows.clear();
    const QVector<SearchWords::Word> &words = m_search.words();
    for (int record = 0; record < recordCount(); ++record) {
        const auto isIn = [&](const SearchWords::Word &word) { return contains(record, word); };
        if (passes(record, m_filter) && std::all_of(words.begin(), words.end(), isIn)) {
            m_rows.append(record);
        }
    }
    sortRows(m_rows);
}

void RecordModel::sort(int column, Qt::SortOrder order)
{
    if (column < 0 || column >= m_columns.size()) {
        return;
    }
    m_wantedOrder = {column, order};
    const SortValues values = m_newRecords ? m_newRecords->sortValues(column) : sortValues(column);
    if (values && (m_newRecords || !isRanked(column))) {
        rankLater(values);
    } else {
        sortShown();
    }
}

void RecordModel::replaceRecords(const std::function<void()> &replace)
{
    m_newRecords.reset();
    m_ranking.cancel();
    replaceRanked(replace, {});
}

void RecordModel::replaceRecordsLater(const std::function<SortValues(int column)> &sortValues,
                                      const std::function<void()> &replace)
{
    m_newRecords = NewRecords{sortValues, replace};
    rankLater(sortValues(m_wantedOrder.column));
}

void RecordModel::replaceRanked(const std::function<void()> &replace, const QVector<int> &ranks)
{
    beginResetModel();
    replace();
    m_ranks = QVector<QVector<int>>(m_columns.size());
    m_ranks[m_wantedOrder.column] = ranks;
    m_order = m_wantedOrder;
    fill();
    endResetModel();
}

void RecordModel::rankLater(const SortValues &values)
{
    m_rankedColumn = m_wantedOrder.column;
    m_ranking.setFuture(QtConcurrent::run([values] { return ranksOf(values()); }));
}

void RecordModel::useRanks()
{
    if (m_ranking.isCanceled()) {
        return;
    }
    const QVector<int> ranks = m_ranking.result();
    if (m_newRecords) {
        const NewRecords records = *m_newRecords;
        m_newRecords.reset();
        replaceRanked(records.replace, ranks);
    } else {
        m_ranks[m_rankedColumn] = ranks;
        sortShown();
    }
}

bool RecordModel::isRanked(int column) const
{
    return m_ranks.at(column).size() == recordCount();
}

void RecordModel::sortShown()
{
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    m_order = m_wantedOrder;
    const QVector<int> before = m_rows;
    sortRows(m_rows);
    QVector<int> rowOf(recordCount());
    for (int row = 0; row < m_rows.size(); ++row) {
        rowOf[m_rows.at(row)] = row;
    }
    const QModelIndexList from = persistentIndexList();
    QModelIndexList to;
    to.reserve(from.size());
    for (const QModelIndex &index : from) {
        to.append(this->index(rowOf.at(before.at(index.row())), index.column()));
    }
    changePersistentIndexList(from, to);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

void RecordModel::sortRows(QVector<int> &rows)
{
    const QVector<int> first = ranks(0);
    const QVector<int> wanted = ranks(m_order.column);
    const bool ascending = m_order.order == Qt::AscendingOrder;
    std::sort(rows.begin(), rows.end(), [&](int a, int b) {
        if (wanted.at(a) != wanted.at(b)) {
            return (wanted.at(a) < wanted.at(b)) == ascending;
        }
        return first.at(a) != first.at(b) ? first.at(a) < first.at(b) : a < b;
    });
}

QVariant RecordModel::sortValue(int record, int column) const
{
    return value(record, column);
}

RecordModel::SortValues RecordModel::sortValues(int /*column*/) const
{
    return {};
}

const QVector<int> &RecordModel::ranks(int column)
{
    QVector<int> &ranks = m_ranks[column];
    if (!isRanked(column)) {
        QVector<QVariant> values;
        values.reserve(recordCount());
        for (int record = 0; record < recordCount(); ++record) {
            values.append(sortValue(record, column));
        }
        ranks = ranksOf(values);
    }
    return ranks;
}

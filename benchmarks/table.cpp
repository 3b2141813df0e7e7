/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "table.h"

#include "results.h"

#include <QDate>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QSysInfo>
#include <QThread>

#include <algorithm>

#include <gnu/libc-version.h>

namespace
{
constexpr double bytesPerMegabyte = 1024 * 1024;
constexpr double secondsPerMillisecond = 0.001;

/** The slowest growth first. */
constexpr struct {
    benchmark::BigO order;
    const char *text;
} orders[] = {
    {benchmark::oNone, ""},
    {benchmark::o1, "O(1)"},
    {benchmark::oLogN, "O(log n)"},
    {benchmark::oN, "O(n)"},
    {benchmark::oNLogN, "O(n log n)"},
    {benchmark::oNSquared, "O(n²)"},
    {benchmark::oNCubed, "O(n³)"},
};

/** The place of @p order among them. */
std::ptrdiff_t orderOf(benchmark::BigO order)
{
    const auto *const found = std::find_if(
        std::begin(orders), std::end(orders), [order](const auto &candidate) { return candidate.order == order; });
    return std::distance(std::begin(orders), found);
}

QString circumstances()
{
    return QStringLiteral("%1, glibc %2, Qt %3, %4 processors, %5")
        .arg(QSysInfo::prettyProductName(), QLatin1String(gnu_get_libc_version()), QLatin1String(qVersion()))
        .arg(QThread::idealThreadCount())
        .arg(QDate::currentDate().toString(Qt::ISODate));
}

QString seconds(double value)
{
    static constexpr struct {
        double factor;
        const char *unit;
    } units[] = {{1, "s"}, {1e3, "ms"}, {1e6, "µs"}, {1e9, "ns"}};
    const auto *const unit = std::find_if(
        std::begin(units), std::prev(std::end(units)), [value](const auto &unit) { return value * unit.factor >= 1; });
    return QStringLiteral("%1 %2").arg(QString::number(value * unit->factor, 'g', 3), QString::fromUtf8(unit->unit));
}

QString row(const QStringList &cells)
{
    return QLatin1String("| ") + cells.join(QLatin1String(" | ")) + QLatin1String(" |\n");
}

QString times(double ratio)
{
    return QString::number(ratio, 'f', 2);
}
}

Table::Table(const Comparisons &comparisons, const Results &results)
{
    for (const Comparison &comparison : comparisons) {
        if (comparison.sizes.empty()) {
            add(comparison, results, std::nullopt);
        }
        for (const int64_t size : comparison.sizes) {
            add(comparison, results, size);
        }
    }
}

void Table::add(const Comparison &comparison, const Results &results, std::optional<int64_t> size)
{
    const std::string name = comparison.name;
    const std::string argument = size ? '/' + std::to_string(*size) : std::string();
    const auto library = results.least(name + "/library" + argument);
    const auto peer = results.least(name + "/peer" + argument);
    if (!library || (comparison.peer && !peer)) {
        return; // not both of them were run
    }
    const bool limited = comparison.limit.value > 0 && size.value_or(comparison.limit.from) >= comparison.limit.from;
    m_rows.push_back({
        comparison,
        size ? QLocale(QLocale::English).toString(qlonglong(*size)) : QString(),
        *library,
        peer,
        limited ? std::optional(comparison.limit.value) : std::nullopt,
        results.growth(name + "/library", comparison.sizes.size()),
    });
}

double Table::Row::figure() const
{
    return library / (peer ? *peer : unit());
}

double Table::Row::unit() const
{
    return comparison.figure == Figure::Memory ? bytesPerMegabyte : secondsPerMillisecond;
}

bool Table::Row::isReached() const
{
    return !limit || figure() <= *limit;
}

bool Table::Row::isAccepted() const
{
    return isReached() || figure() <= comparison.limit.accepted;
}

bool Table::Row::growsTooFast() const
{
    return orderOf(growth) > orderOf(comparison.growth);
}

QString Table::Row::reached() const
{
    const QLatin1String anchor(comparison.explanation);
    QString why = anchor.isEmpty() ? QString() : QStringLiteral("[why](performance.md%1)").arg(anchor);
    if (!limit) {
        return why;
    }
    if (isReached()) {
        return QStringLiteral("yes");
    }
    return isAccepted() ? QStringLiteral("no: ") + why : QStringLiteral("**no**");
}

QString Table::Row::growthText() const
{
    const QString text = QString::fromUtf8(orders[orderOf(growth)].text);
    return growsTooFast() ? QStringLiteral("**%1**").arg(text) : text;
}

QString Table::Row::amount(double value) const
{
    return comparison.figure == Figure::Memory ? QStringLiteral("%1 MB").arg(value / bytesPerMegabyte, 0, 'f', 1)
                                               : seconds(value);
}

QString Table::toMarkdown() const
{
    QString text = circumstances() + QLatin1String("\n\n");
    text += row({QStringLiteral("What"),
                 QStringLiteral("Beside it"),
                 QStringLiteral("Size"),
                 QStringLiteral("Library"),
                 QStringLiteral("Peer"),
                 QStringLiteral("Ratio"),
                 QStringLiteral("Limit"),
                 QStringLiteral("Reached"),
                 QStringLiteral("Growth")});
    text += QLatin1String("|---|---|--:|--:|--:|--:|--:|---|---|\n");
    for (const Row &entry : m_rows) {
        text += row(
            {QString::fromUtf8(entry.comparison.what),
             QString::fromUtf8(entry.comparison.beside),
             entry.size,
             entry.amount(entry.library),
             entry.peer ? entry.amount(*entry.peer) : QString(),
             entry.peer ? times(entry.figure()) : QString(),
             entry.limit ? (entry.peer ? times(*entry.limit) : entry.amount(*entry.limit * entry.unit())) : QString(),
             entry.reached(),
             entry.growthText()});
    }
    return text;
}

QByteArray Table::toJson() const
{
    const auto optional = [](const std::optional<double> &value) { return value ? *value : QJsonValue(); };
    QJsonArray rows;
    for (const Row &row : m_rows) {
        rows.append(QJsonObject{
            {QStringLiteral("name"), QLatin1String(row.comparison.name)},
            {QStringLiteral("what"), QString::fromUtf8(row.comparison.what)},
            {QStringLiteral("beside"), QString::fromUtf8(row.comparison.beside)},
            {QStringLiteral("size"), row.size},
            {QStringLiteral("unit"), QLatin1String(row.comparison.figure == Figure::Memory ? "bytes" : "seconds")},
            {QStringLiteral("library"), row.library},
            {QStringLiteral("peer"), optional(row.peer)},
            {QStringLiteral("figure"), row.figure()},
            {QStringLiteral("limit"), optional(row.limit)},
            {QStringLiteral("reached"), row.limit ? row.isReached() : QJsonValue()},
            {QStringLiteral("explanation"), QLatin1String(row.comparison.explanation)},
            {QStringLiteral("growth"), QString::fromUtf8(orders[orderOf(row.growth)].text)},
        });
    }
    const QJsonObject table{
        {QStringLiteral("circumstances"), circumstances()},
        {QStringLiteral("rows"), rows},
    };
    return QJsonDocument(table).toJson();
}

bool Table::hasSurprise() const
{
    return m_rows.empty() || std::any_of(m_rows.begin(), m_rows.end(), [](const Row &row) {
               return !row.isAccepted() || row.growsTooFast();
           });
}

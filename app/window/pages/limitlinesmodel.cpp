/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitlinesmodel.h"

#include "limitwords.h"
#include "plaintext.h"

#include <KLocalizedString>

LimitLinesModel::~LimitLinesModel() = default;

void LimitLinesModel::setLimits(const PamLimits::SessionLimits &limits)
{
    beginResetModel();
    m_limits = limits;
    m_findings.reset();
    m_usage.reset();
    fill();
    endResetModel();
}

void LimitLinesModel::setUsage(std::shared_ptr<const PamLimits::LimitUsage> usage)
{
    m_findings.reset();
    m_usage = std::move(usage);
    if (m_usage) {
        m_findings = std::make_unique<PamLimits::Findings>(m_limits, *m_usage);
    }
    if (m_filter == ProblemLines) {
        setFilter(m_filter);
    } else if (!m_rows.isEmpty()) {
        Q_EMIT dataChanged(index(0, MeaningColumn), index(m_rows.size() - 1, MeaningColumn));
    }
}

void LimitLinesModel::setFilter(Filter filter)
{
    beginResetModel();
    m_filter = filter;
    fill();
    endResetModel();
}

void LimitLinesModel::fill()
{
    m_rows.clear();
    const int count = m_limits.rules().lines().size();
    for (int place = 0; place < count; ++place) {
        if (isShown(place)) {
            m_rows.append(place);
        }
    }
}

bool LimitLinesModel::isShown(int place) const
{
    if (m_filter == AllLines) {
        return true;
    }
    const PamLimits::Rules &rules = m_limits.rules();
    const PamLimits::Line &line = rules.lines().at(place);
    const bool isApplied = rules.isEffective(line) && LimitWords::problem(rules, line).isEmpty();
    return m_filter == AppliedLines ? isApplied : !isApplied || !problemsOf(place).isEmpty();
}

int LimitLinesModel::lineAt(int row) const
{
    return m_rows.value(row, -1);
}

QString LimitLinesModel::meaningOf(int place) const
{
    const PamLimits::Rules &rules = m_limits.rules();
    const PamLimits::Line &line = rules.lines().at(place);
    if (!rules.isEffective(line)) {
        return {};
    }
    const QString domain = LimitWords::domain(rules.domainOf(line));
    return line.kind == PamLimits::LineKind::Exemption
        ? i18n("%1: exempt from all limits", domain)
        : domain + QLatin1String(": ") + LimitWords::description(line.item);
}

QStringList LimitLinesModel::problemsOf(int place) const
{
    const PamLimits::Rules &rules = m_limits.rules();
    const PamLimits::Line &line = rules.lines().at(place);
    const QString ofFile = LimitWords::problem(rules.fileOf(line));
    if (!ofFile.isEmpty()) {
        return {ofFile};
    }
    if (m_findings) {
        return m_findings->statementsOf(place);
    }
    const QString ofLine = LimitWords::problem(rules, line);
    return ofLine.isEmpty() ? QStringList() : QStringList(i18n("PAM ignores this line: %1", ofLine));
}

QString LimitLinesModel::textOf(int place, int column) const
{
    const PamLimits::Rules &rules = m_limits.rules();
    const PamLimits::Line &line = rules.lines().at(place);
    switch (column) {
    case PlaceColumn:
        return rules.placeOf(line);
    case TextColumn:
        return LimitWords::fromFile(rules.textOf(line)).replace(QLatin1Char('\t'), QLatin1String("\\t"));
    default:
        break;
    }
    const QStringList problems = problemsOf(place);
    return problems.isEmpty() ? meaningOf(place) : problems.join(QLatin1String("; "));
}

int LimitLinesModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int LimitLinesModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant LimitLinesModel::data(const QModelIndex &index, int role) const
{
    const int place = lineAt(index.row());
    if (!index.isValid() || place < 0) {
        return {};
    }
    QString text = role == Qt::DisplayRole || role == Qt::ToolTipRole ? textOf(place, index.column()) : QString();
    if (role == Qt::DisplayRole) {
        return text;
    }
    return role == Qt::ToolTipRole ? PlainText::toRichText(text) : QVariant();
}

QVariant LimitLinesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case PlaceColumn:
        return i18nc("@title:column of a file", "Line");
    case TextColumn:
        return i18nc("@title:column of a line", "Text");
    default:
        return i18nc("@title:column of a line", "Meaning");
    }
}

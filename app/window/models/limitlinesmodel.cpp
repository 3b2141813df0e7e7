/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitlinesmodel.h"

#include "limitwords.h"
#include "plaintext.h"
#include "visibletext.h"

#include <KLocalizedString>

#include <algorithm>

void LimitLinesModel::setAnalysis(const LimitAnalysis::Pointer &analysis)
{
    beginResetModel();
    m_analysis = analysis;
    fill();
    endResetModel();
}

void LimitLinesModel::updateAnalysis(const LimitAnalysis::Pointer &analysis)
{
    if (m_filter == ProblemLines) {
        setAnalysis(analysis);
        return;
    }
    m_analysis = analysis;
    if (!m_rows.isEmpty()) {
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
    const int count = m_analysis ? m_analysis->limits().rules().lines().size() : 0;
    for (int place = 0; place < count; ++place) {
        if (isShown(place)) {
            m_rows.append(place);
        }
    }
}

bool LimitLinesModel::isShown(int place) const
{
    switch (m_filter) {
    case AppliedLines:
        return m_analysis->isApplied(place);
    case ProblemLines:
        return m_analysis->isProblem(place);
    case AllLines:
        break;
    }
    return true;
}

int LimitLinesModel::lineAt(int row) const
{
    return m_rows.value(row, -1);
}

int LimitLinesModel::rowOf(int place) const
{
    const auto row = std::lower_bound(m_rows.begin(), m_rows.end(), place);
    return row != m_rows.end() && *row == place ? int(row - m_rows.begin()) : -1;
}

QString LimitLinesModel::meaningOf(int place) const
{
    const PamLimits::Rules &rules = m_analysis->limits().rules();
    const PamLimits::Line &line = rules.lines().at(place);
    if (!rules.isEffective(line)) {
        return {};
    }
    const QString domain = LimitWords::domain(rules.domainOf(line));
    return line.kind == PamLimits::LineKind::Exemption
        ? i18n("%1: exempt from all limits", domain)
        : domain + QLatin1String(": ") + LimitWords::description(line.item);
}

QString LimitLinesModel::textOf(int place, int column) const
{
    const PamLimits::Rules &rules = m_analysis->limits().rules();
    const PamLimits::Line &line = rules.lines().at(place);
    switch (column) {
    case PlaceColumn:
        return rules.placeOf(line);
    case TextColumn:
        return LimitWords::fromFile(rules.textOf(line)).replace(QLatin1Char('\t'), QLatin1String("\\t"));
    default:
        break;
    }
    const QStringList problems = m_analysis->problemsOf(place);
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
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return {};
    }
    QString text = VisibleText::fromText(textOf(place, index.column()));
    return role == Qt::ToolTipRole ? PlainText::toRichText(text) : text;
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

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "sessionlimitsview.h"

#include "lefttoright.h"
#include "limitwords.h"
#include "linklabel.h"
#include "messages.h"
#include "plaintext.h"
#include "readingorder.h"
#include "table.h"
#include "textarea.h"
#include "visibletext.h"

#include <KLocalizedString>

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QVBoxLayout>

namespace
{
enum Column { ItemColumn, SoftColumn, HardColumn, SourceColumn, DescriptionColumn };

/** How many lines are explained; there may be thousands for an item. */
constexpr int maxLines = 12;

/** What a rule says and how it came out. */
struct Explanation {
    QString place;
    QString rule;
    QStringList fates;
};

/** What became of both limits that a rule sets; which of them only where they differ. */
QStringList fatesOf(const PamLimits::SessionLimits &limits, const PamLimits::Outcome &outcome)
{
    const auto fate = [&](PamLimits::Half half) {
        return VisibleText::fromText(LimitWords::outcome(limits, outcome.parts[half]));
    };
    const QString soft = fate(PamLimits::SoftHalf);
    const QString hard = fate(PamLimits::HardHalf);
    if (soft.isEmpty() || hard.isEmpty() || soft == hard) {
        return {soft.isEmpty() ? hard : soft};
    }
    return {QLatin1String("soft: ") + soft, QLatin1String("hard: ") + hard};
}

/** The rules for @p item among @p outcomes, the last ones when there are many. */
QVector<Explanation>
explain(const PamLimits::SessionLimits &limits, const QVector<PamLimits::Outcome> &outcomes, PamLimits::Item item)
{
    QVector<Explanation> explanations;
    for (auto outcome = outcomes.crbegin(); outcome != outcomes.crend() && explanations.size() < maxLines; ++outcome) {
        const PamLimits::Line &line = limits.rules().lines().at(outcome->line);
        if (line.item == item) {
            const QString rule = VisibleText::fromText(LimitWords::fromFile(limits.rules().textOf(line)));
            explanations.prepend({limits.rules().placeOf(line), rule, fatesOf(limits, *outcome)});
        }
    }
    return explanations;
}

QString toText(const QVector<Explanation> &explanations)
{
    QStringList lines;
    for (const Explanation &explanation : explanations) {
        const QString line = VisibleText::fromText(explanation.place) + QLatin1String("  ") + explanation.rule;
        lines.append(ReadingOrder::ofValue(line));
        for (const QString &fate : explanation.fates) {
            lines.append(QLatin1String("    ") + fate);
        }
    }
    return lines.join(QLatin1Char('\n'));
}

/** The same, with links to the lines. */
QString toRichText(const QVector<Explanation> &explanations)
{
    QStringList lines;
    for (const Explanation &explanation : explanations) {
        const AccountLink link{AccountLink::Kind::Limit, explanation.place};
        const QString rule = ReadingOrder::ofValue(explanation.rule).toHtmlEscaped();
        lines.append(link.toRichText() + QLatin1String("&nbsp; ") + rule);
        for (const QString &fate : explanation.fates) {
            lines.append(QLatin1String("&nbsp;&nbsp;&nbsp; ") + ReadingOrder::ofSentence(fate).toHtmlEscaped());
        }
    }
    return lines.join(QLatin1String("<br>"));
}

/** The lines that decide, without the folder that all their files are in. */
QString shortSource(const PamLimits::Rules &rules, const PamLimits::Limit &limit)
{
    return LimitWords::source(rules, limit).remove(QLatin1String("/etc/security/"));
}

QString shown(PamLimits::Item item, const PamLimits::Value &value)
{
    return value.isSet() ? LimitWords::fromFile(value.toText(item)) : QStringLiteral("\u2013");
}
}

SessionLimitsView::SessionLimitsView(QWidget *parent)
    : QWidget(parent)
    , m_error(Messages::create(KMessageWidget::Warning, this))
    , m_failure(Messages::create(KMessageWidget::Warning, this))
    , m_none(new QLabel(i18n("No limit applies."), this))
    , m_table(new Table(i18nc("@title of a list", "&Limits in a session"),
                        {
                            i18nc("@title:column what is limited", "Item"),
                            i18nc("@title:column soft limit", "Soft"),
                            i18nc("@title:column hard limit", "Hard"),
                            i18nc("@title:column a domain and a line of a file", "Set by"),
                            i18nc("@title:column", "Description"),
                        },
                        this))
    , m_title(m_table->createTitleLabel())
    , m_explanation(new LinkLabel(this))
    , m_explanationArea(new TextArea(m_explanation, this))
{
    m_none->setAlignment(Qt::AlignTop | LeftToRight::lineStart());
    m_table->setObjectName(QStringLiteral("limitsTable"));
    m_none->setObjectName(QStringLiteral("noLimits"));
    m_failure->setObjectName(QStringLiteral("sessionFailure"));
    m_explanation->setObjectName(QStringLiteral("limitExplanation"));
    // The name of a file cannot be wrapped; a long one must not widen the window. Tool tips show all of it.
    m_explanation->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_title);
    layout->addWidget(m_error);
    layout->addWidget(m_failure);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_explanationArea);
    layout->addWidget(m_none, 1);
    m_table->viewport()->installEventFilter(this);
    connect(m_table, &QTreeWidget::itemSelectionChanged, this, &SessionLimitsView::showExplanation);
    connect(m_explanation, &LinkLabel::followed, this, &SessionLimitsView::followed);
    clear();
}

bool SessionLimitsView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_table->viewport() && event->type() == QEvent::Resize) {
        fitSources();
    }
    return QWidget::eventFilter(watched, event);
}

void SessionLimitsView::fitSources()
{
    // Without enough room the sources are elided, since tool tips show them, and not the title of the descriptions.
    const QHeaderView &header = *m_table->header();
    int room = m_table->viewport()->width() - header.sectionSizeHint(DescriptionColumn);
    for (const int column : {ItemColumn, SoftColumn, HardColumn}) {
        room -= m_table->columnWidth(column);
    }
    const int least = header.sectionSizeHint(SourceColumn);
    m_table->setColumnWidth(SourceColumn, qMax(least, qMin(room, m_sourceWidth)));
    // If even that is too wide, the table scrolls.
    m_table->header()->setStretchLastSection(room >= least);
    if (room < least) {
        m_table->setColumnWidth(DescriptionColumn, header.sectionSizeHint(DescriptionColumn));
    }
}

void SessionLimitsView::clear()
{
    Messages::show(*m_error, QString());
    Messages::show(*m_failure, QString());
    showRows({}, {});
    // This is said of an account only.
    m_none->hide();
}

void SessionLimitsView::show(const PamLimits::SessionLimits &limits,
                             const PamLimits::Account &account,
                             const QString &error)
{
    m_limits = limits;
    m_account = account;
    QVector<PamLimits::Outcome> outcomes;
    const PamLimits::Answer answer = limits.answer(account, &outcomes);
    Messages::show(*m_error, error);
    QString failure = VisibleText::fromText(LimitWords::failure(limits, answer));
    failure = failure.isEmpty() ? QString() : i18n("No session can be opened: %1", failure);
    const QString exemption = VisibleText::fromText(LimitWords::source(limits.rules(), answer.exemption));
    Messages::show(*m_failure, exemption.isEmpty() ? failure : i18n("No limits are set: %1", exemption));
    showRows(answer, outcomes);
}

void SessionLimitsView::showRows(const PamLimits::Answer &answer, const QVector<PamLimits::Outcome> &outcomes)
{
    m_items.clear();
    QList<QTreeWidgetItem *> rows;
    for (int i = 0; i < PamLimits::itemCount; ++i) {
        const auto item = PamLimits::Item(i);
        const PamLimits::Limit &limit = answer.limit(item);
        if (!limit.soft.isSet() && !limit.hard.isSet()) {
            continue;
        }
        const QString description = LimitWords::description(item);
        const QString lines = toText(explain(m_limits, outcomes, item));
        m_items.append(item);
        rows.append(Table::row({
            {QString::fromLatin1(nameOf(item)), description},
            {shown(item, limit.soft), lines},
            {shown(item, limit.hard), lines},
            {shortSource(m_limits.rules(), limit), lines},
            {description, description},
        }));
    }
    m_table->setRows(rows);
    m_sourceWidth = m_table->columnWidth(SourceColumn);
    fitSources();
    m_table->setVisible(!rows.isEmpty());
    m_title->setVisible(!rows.isEmpty());
    m_none->setVisible(rows.isEmpty());
    showExplanation();
}

void SessionLimitsView::showExplanation()
{
    const QList<QTreeWidgetItem *> selected = m_table->selectedItems();
    const int row = selected.isEmpty() ? -1 : m_table->indexOfTopLevelItem(selected.first());
    const bool isAsked = row >= 0 && row < m_items.size();
    m_explanationArea->setVisible(isAsked);
    if (isAsked) {
        const PamLimits::Item item = m_items.at(row);
        const QVector<Explanation> explanations = explain(m_limits, m_limits.outcomes(m_account, item), item);
        m_explanation->setLinkedText(toRichText(explanations), toText(explanations));
    }
}

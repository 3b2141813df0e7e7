/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "sessionlimitsview.h"

#include "lefttoright.h"
#include "limitwords.h"
#include "messages.h"
#include "plaintext.h"
#include "table.h"
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

/** What a rule says and how it came out, as lines of text. */
QString describe(const PamLimits::SessionLimits &limits, const PamLimits::Outcome &outcome)
{
    const PamLimits::Line &line = limits.rules().lines().at(outcome.line);
    QStringList fates;
    for (const PamLimits::Outcome::Part &part : outcome.parts) {
        fates.append(VisibleText::fromText(LimitWords::outcome(limits, part)));
    }
    fates.removeAll(QString());
    fates.removeDuplicates();
    const QString place = limits.rules().placeOf(line);
    const QString text = LimitWords::fromFile(limits.rules().textOf(line));
    return LeftToRight::embed(VisibleText::fromText(place + QLatin1String("  ") + text)) + QLatin1String("\n    ")
        + fates.join(QLatin1String("\n    "));
}

/** The rules for @p item among @p outcomes, the last ones when there are many. */
QString
describe(const PamLimits::SessionLimits &limits, const QVector<PamLimits::Outcome> &outcomes, PamLimits::Item item)
{
    QStringList texts;
    for (auto outcome = outcomes.crbegin(); outcome != outcomes.crend() && texts.size() < maxLines; ++outcome) {
        if (limits.rules().lines().at(outcome->line).item == item) {
            texts.prepend(describe(limits, *outcome));
        }
    }
    return texts.join(QLatin1Char('\n'));
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
    , m_explanation(new QLabel(this))
{
    m_none->setAlignment(Qt::AlignTop | LeftToRight::lineStart());
    m_table->setObjectName(QStringLiteral("limitsTable"));
    m_none->setObjectName(QStringLiteral("noLimits"));
    m_failure->setObjectName(QStringLiteral("sessionFailure"));
    m_explanation->setObjectName(QStringLiteral("limitExplanation"));
    m_explanation->setTextFormat(Qt::PlainText);
    m_explanation->setWordWrap(true);
    m_explanation->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_explanation->setAlignment(Qt::AlignTop | LeftToRight::lineStart());

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_title);
    layout->addWidget(m_error);
    layout->addWidget(m_failure);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_explanation);
    layout->addWidget(m_none, 1);
    m_table->viewport()->installEventFilter(this);
    connect(m_table, &QTreeWidget::itemSelectionChanged, this, &SessionLimitsView::explain);
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
        const QString lines = describe(m_limits, outcomes, item);
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
    explain();
}

void SessionLimitsView::explain()
{
    const QList<QTreeWidgetItem *> selected = m_table->selectedItems();
    const int row = selected.isEmpty() ? -1 : m_table->indexOfTopLevelItem(selected.first());
    const bool isAsked = row >= 0 && row < m_items.size();
    const QString text =
        isAsked ? describe(m_limits, m_limits.outcomes(m_account, m_items.at(row)), m_items.at(row)) : QString();
    m_explanation->setText(text);
    m_explanation->setVisible(!text.isEmpty());
}

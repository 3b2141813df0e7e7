/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitspage.h"

#include "accountstore.h"
#include "lefttoright.h"
#include "messages.h"
#include "pagelayout.h"
#include "plaintext.h"
#include "table.h"

#include <LimitsParser>

#include <KLocalizedString>

#include <QFormLayout>
#include <QLabel>
#include <QTextDocumentFragment>
#include <QVBoxLayout>

namespace
{
enum RuleColumn { DomainColumn, TypeColumn, ItemColumn, ValueColumn, LimitColumn };

/** The explanation of a type is rich text, but a type without one is explained by itself. */
QString typeExplanation(const QString &type)
{
    const QString explanation = LimitsParser::typeToolTip(type);
    return explanation == type ? PlainText::toRichText(type) : explanation;
}

QTreeWidgetItem *ruleRow(const LimitsParser::Field &rule)
{
    const QString value = rule.value.toString();
    const QString type = typeExplanation(rule.type);
    const QString item = LimitsParser::itemToolTip(rule.item);
    QTreeWidgetItem *row = Table::row({
        {rule.domain, LimitsParser::domainToolTip(rule.domain)},
        {rule.type, {}},
        {rule.item, item},
        {value, item},
        {LimitsParser::valueToString(rule.value, rule.item), item},
    });
    row->setToolTip(TypeColumn, type); // with the line ends of its author
    row->setData(TypeColumn, Qt::AccessibleDescriptionRole, QTextDocumentFragment::fromHtml(type).toPlainText());
    return row;
}
}

LimitsPage::LimitsPage(AccountStore *store, QWidget *parent)
    : QWidget(parent)
    , m_store(store)
    , m_error(Messages::create(KMessageWidget::Error, this))
    , m_rules(new Table(i18nc("@title of a list", "&Rules in the order in which they are read"),
                        {
                            i18nc("@title:column whom a limit is for", "Domain"),
                            i18nc("@title:column soft or hard limit", "Type"),
                            i18nc("@title:column what is limited", "Item"),
                            i18nc("@title:column of a limit", "Value"),
                            i18nc("@title:column a value with its unit", "Limit"),
                        },
                        this))
    , m_findings(new Table(i18nc("@title of a list", "&Lines that do not mean what they seem to"),
                           {
                               i18nc("@title:column", "File"),
                               i18nc("@title:column of a file", "Line"),
                               i18nc("@title:column of a line", "Text"),
                               i18nc("@title:column", "Reason"),
                           },
                           this))
    , m_findingsTitle(m_findings->createTitleLabel())
    , m_noFindings(Messages::create(KMessageWidget::Positive, this))
{
    m_error->setObjectName(QStringLiteral("limitsError"));
    m_rules->setObjectName(QStringLiteral("rulesTable"));
    m_findings->setObjectName(QStringLiteral("findingsTable"));
    m_noFindings->setObjectName(QStringLiteral("noFindings"));

    auto *explanations = new QFormLayout;
    m_domain = addExplanation(explanations, i18nc("@label whom a limit is for", "Domain:"));
    m_type = addExplanation(explanations, i18nc("@label soft or hard limit", "Type:"));
    m_item = addExplanation(explanations, i18nc("@label what is limited", "Item:"));

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_error);
    layout->addWidget(m_rules->createTitleLabel());
    layout->addWidget(m_rules, 2);
    layout->addLayout(explanations);
    layout->addSpacing(2 * layout->spacing());
    layout->addWidget(m_findingsTitle);
    layout->addWidget(m_findings, 1);
    layout->addWidget(m_noFindings);

    connect(m_rules, &QTreeWidget::currentItemChanged, this, &LimitsPage::explain);
    connect(m_store, &AccountStore::limitsRead, this, &LimitsPage::showAll);
}

QLabel *LimitsPage::addExplanation(QFormLayout *layout, const QString &title)
{
    auto *label = new QLabel(this);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop | LeftToRight::lineStart());
    PageLayout::addRow(layout, title, label);
    return label;
}

void LimitsPage::showAll()
{
    Messages::show(*m_error, m_store->limitsError());
    showRules();
    showFindings();
}

void LimitsPage::showRules()
{
    QList<QTreeWidgetItem *> rows;
    const QList<LimitsParser::Field> rules = m_store->limits().fields();
    for (const LimitsParser::Field &rule : rules) {
        rows.append(ruleRow(rule));
    }
    m_rules->setRows(rows);
    m_rules->setCurrentItem(m_rules->topLevelItem(0));
    explain(m_rules->currentItem());
}

void LimitsPage::showFindings()
{
    QList<QTreeWidgetItem *> rows;
    const QList<LimitsFinding> &findings = m_store->limitsFindings();
    for (const LimitsFinding &finding : findings) {
        const QString text = finding.visibleText();
        const QString reasons = finding.allReasons();
        rows.append(Table::row({
            {finding.file, finding.file},
            {QString::number(finding.line), {}},
            {text, text},
            {reasons, reasons},
        }));
    }
    m_findings->setRows(rows);
    m_findings->setVisible(!rows.isEmpty());
    m_findingsTitle->setVisible(!rows.isEmpty());
    const bool allIsWell = rows.isEmpty() && m_store->limitsError().isEmpty();
    Messages::show(*m_noFindings, allIsWell ? i18n("Every line is taken as it is written.") : QString());
}

void LimitsPage::explain(const QTreeWidgetItem *rule)
{
    // For those who do not use the mouse, which shows the tool tips.
    m_domain->setText(rule ? rule->toolTip(DomainColumn) : QString());
    m_type->setText(rule ? rule->toolTip(TypeColumn) : QString());
    m_item->setText(rule ? rule->toolTip(ItemColumn) : QString());
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsview.h"

#include "lefttoright.h"
#include "messages.h"
#include "table.h"

#include <KLocalizedString>

#include <QLabel>
#include <QVBoxLayout>

LimitsView::LimitsView(QWidget *parent)
    : QWidget(parent)
    , m_error(Messages::create(KMessageWidget::Warning, this))
    , m_none(new QLabel(i18n("No limit applies."), this))
    , m_table(new Table(i18nc("@title of a list", "&Limits that apply"),
                        {
                            i18nc("@title:column what is limited", "Item"),
                            i18nc("@title:column of a limit", "Value"),
                            i18nc("@title:column a value with its unit", "Limit"),
                            i18nc("@title:column whom the rule is for that sets a limit", "Rule"),
                            i18nc("@title:column", "Description"),
                        },
                        this))
    , m_title(m_table->createTitleLabel())
{
    m_none->setAlignment(Qt::AlignTop | LeftToRight::lineStart());
    m_table->setObjectName(QStringLiteral("limitsTable"));
    m_none->setObjectName(QStringLiteral("noLimits"));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_title);
    layout->addWidget(m_error);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_none, 1);
    clear();
}

void LimitsView::clear()
{
    show(QVector<Limit>(), QString());
}

void LimitsView::show(const QVector<Limit> &limits, const QString &error)
{
    QList<QTreeWidgetItem *> rows;
    for (const Limit &limit : limits) {
        const QString explanation = LimitsParser::itemToolTip(limit.item);
        rows.append(Table::row({
            {limit.item, explanation},
            {limit.value.toString(), explanation},
            {LimitsParser::valueToString(limit.value, limit.item), explanation},
            {limit.domain, LimitsParser::domainToolTip(limit.domain)},
            {explanation, explanation},
        }));
    }
    m_table->setRows(rows);
    m_table->setVisible(!rows.isEmpty());
    m_title->setVisible(!rows.isEmpty());
    m_none->setVisible(rows.isEmpty());
    Messages::show(*m_error, error);
}

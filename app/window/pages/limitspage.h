/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITSPAGE_H
#define LIMITSPAGE_H

#include <QWidget>

class AccountStore;
class KMessageWidget;
class QFormLayout;
class QLabel;
class QTreeWidgetItem;
class Table;

/** The rules of the limits files as they were read, and what is odd about the files. */
class LimitsPage : public QWidget
{
    Q_OBJECT

public:
    explicit LimitsPage(AccountStore *store, QWidget *parent = nullptr);

private:
    QLabel *addExplanation(QFormLayout *layout, const QString &title);
    void showAll();
    void showRules();
    void showFindings();
    void explain(const QTreeWidgetItem *rule);

    AccountStore *const m_store;
    KMessageWidget *const m_error;
    Table *const m_rules;
    Table *const m_findings;
    QLabel *const m_findingsTitle;
    KMessageWidget *const m_noFindings;
    QLabel *m_domain = nullptr;
    QLabel *m_type = nullptr;
    QLabel *m_item = nullptr;
};

#endif

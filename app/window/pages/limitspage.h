/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITSPAGE_H
#define LIMITSPAGE_H

#include "limitusage.h"

#include <QWidget>

#include <memory>

class AccountStore;
class KMessageWidget;
class LimitLinesModel;
class QComboBox;
class QFormLayout;
class QLabel;
class QTimer;
class QTreeView;

/** The lines of the limits files, what PAM makes of them, and whom they decide for. */
class LimitsPage : public QWidget
{
    Q_OBJECT

public:
    explicit LimitsPage(AccountStore *store, QWidget *parent = nullptr);

private:
    QLabel *addExplanation(QFormLayout *layout, const char *name, const QString &title);
    QWidget *createFilter();
    void addTable();
    void showAll();
    void startCounting();
    void countSomeAccounts();
    void finishCounting();
    void explain();
    QString accountsOf(int line) const;

    AccountStore *const m_store;
    KMessageWidget *const m_error;
    QComboBox *const m_filter;
    LimitLinesModel *const m_model;
    QTreeView *const m_lines;
    QTimer *const m_counting;
    QLabel *m_meaning = nullptr;
    QLabel *m_problem = nullptr;
    QLabel *m_decides = nullptr;
    /** The accounts for which lines may decide, how many of them are counted, and what that found. */
    QVector<PamLimits::Account> m_accounts;
    int m_counted = 0;
    std::shared_ptr<PamLimits::LimitUsage> m_usage;
};

#endif

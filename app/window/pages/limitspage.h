/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITSPAGE_H
#define LIMITSPAGE_H

#include "accountlink.h"
#include "limitanalysis.h"

#include <QFutureWatcher>
#include <QWidget>

class AccountStore;
class KMessageWidget;
class LimitLinesModel;
class LinkLabel;
class QComboBox;
class QLabel;
class QTreeView;

/** The lines of the limits files, what PAM makes of them, and whom they decide for. */
class LimitsPage : public QWidget
{
    Q_OBJECT

public:
    explicit LimitsPage(AccountStore *store, QWidget *parent = nullptr);
    ~LimitsPage() override;

    /** Makes the line at @p place, as "file:line", the current one; false when there is none. */
    bool showLine(const QString &place);

    /** The current line, as "file:line". */
    QString place() const;

Q_SIGNALS:
    /** The operator wants to see a user. */
    void followed(const AccountLink &link);

private:
    QWidget *createFilter();
    void addTable();
    QFuture<LimitAnalysis::Pointer> analyse(const PamLimits::SessionLimits &limits, const QVector<UserRecord> &users);
    void analyseLines();
    void analyseUsage();
    void showLines();
    void fitPlaces();
    void showUsage();
    int currentPlace() const;
    void explain();
    void showAccounts(int place);

    AccountStore *const m_store;
    KMessageWidget *const m_error;
    QComboBox *const m_filter;
    LimitLinesModel *const m_model;
    QTreeView *const m_lines;
    QLabel *m_meaning = nullptr;
    QLabel *m_problem = nullptr;
    QLabel *m_meaningTitle = nullptr;
    QLabel *m_problemTitle = nullptr;
    LinkLabel *m_decides = nullptr;
    LimitAnalysis::Pointer m_analysis;
    /** The first one looks at the lines alone, which is quick, the second one at what they do for the users. */
    QFutureWatcher<LimitAnalysis::Pointer> m_lineAnalysis;
    QFutureWatcher<LimitAnalysis::Pointer> m_userAnalysis;
    LimitAnalysis::Cancelled m_cancelled;
};

#endif

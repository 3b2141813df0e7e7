/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SESSIONLIMITSVIEW_H
#define SESSIONLIMITSVIEW_H

#include "accountlink.h"
#include "sessionlimits.h"

#include <QWidget>

class KMessageWidget;
class LinkLabel;
class QLabel;
class Table;
class TextArea;

/** The limits in a session of an account, and the lines that decide them. */
class SessionLimitsView : public QWidget
{
    Q_OBJECT

public:
    explicit SessionLimitsView(QWidget *parent = nullptr);

    /** Shows nothing. */
    void clear();

    /**
     * Shows what @p account gets.
     *
     * @param error why @p limits are not complete; empty when they are
     */
    void show(const PamLimits::SessionLimits &limits, const PamLimits::Account &account, const QString &error);

Q_SIGNALS:
    /** The operator wants to see a line of the limits files. */
    void followed(const AccountLink &link);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fitSources();
    void showRows(const PamLimits::Answer &answer, const QVector<PamLimits::Outcome> &outcomes);
    void showExplanation();

    PamLimits::SessionLimits m_limits;
    PamLimits::Account m_account;
    /** The items of the rows. */
    QVector<PamLimits::Item> m_items;
    /** How wide the column of the sources wants to be. */
    int m_sourceWidth = 0;
    KMessageWidget *const m_error;
    KMessageWidget *const m_failure;
    QLabel *const m_none;
    Table *const m_table;
    QLabel *const m_title;
    LinkLabel *const m_explanation;
    TextArea *const m_explanationArea;
};

#endif

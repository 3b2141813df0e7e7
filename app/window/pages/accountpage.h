/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTPAGE_H
#define ACCOUNTPAGE_H

#include "accountstore.h"
#include "listpage.h"

#include <QAction>

/**
 * A list of accounts beside the details of the current one. The actions of the page plan changes of the
 * current account.
 */
class AccountPage : public ListPage
{
    Q_OBJECT

protected:
    AccountPage(AccountStore *store, AccountLink::Kind kind, RecordList *list, QWidget *parent);

    AccountStore *store() const;

    /** Adds an action that plans a change of the current account with @p plan. */
    template<typename Page>
    QAction *addPlanAction(const QString &text, const QString &icon, void (Page::*plan)())
    {
        QAction *action = addPlanAction(text, icon);
        connect(action, &QAction::triggered, static_cast<Page *>(this), plan);
        return action;
    }

    /** Puts @p parts, one above the other, beside the list. */
    void arrange(const QVector<QWidget *> &parts);

private:
    QAction *addPlanAction(const QString &text, const QString &icon);

    AccountStore *const m_store;
};

#endif

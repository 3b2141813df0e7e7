/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountpage.h"

#include "pagelayout.h"
#include "recordview.h"

AccountPage::AccountPage(AccountStore *store, AccountLink::Kind kind, RecordList *list, QWidget *parent)
    : ListPage(kind, list, parent)
    , m_store(store)
{
    connect(m_store, &AccountStore::ended, this, [this] { this->list()->setError(m_store->accountsError()); });
}

AccountStore *AccountPage::store() const
{
    return m_store;
}

QAction *AccountPage::addPlanAction(const QString &text, const QString &icon)
{
    RecordView *view = list()->view();
    auto *action = new QAction(QIcon::fromTheme(icon), text, this);
    action->setEnabled(view->currentRecord() != -1);
    connect(
        view, &RecordView::currentRecordChanged, action, [action](int record) { action->setEnabled(record != -1); });
    addAction(action);
    view->addAction(action);
    return action;
}

void AccountPage::arrange(const QVector<QWidget *> &parts)
{
    PageLayout::arrange(this, list(), parts);
}

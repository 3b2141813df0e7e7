/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountpage.h"

#include "pagelayout.h"

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

void AccountPage::arrange(const QVector<QWidget *> &parts)
{
    PageLayout::arrange(this, list(), parts);
}

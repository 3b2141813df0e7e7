/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountpage.h"

#include "pagelayout.h"
#include "recordmodel.h"
#include "recordview.h"

AccountPage::AccountPage(AccountStore *store, AccountLink::Kind kind, RecordList *list, QWidget *parent)
    : QWidget(parent)
    , m_store(store)
    , m_kind(kind)
    , m_list(list)
{
    m_list->setParent(this);
    connect(m_list->view(), &RecordView::currentRecordChanged, this, &AccountPage::showRecord);
    connect(m_store, &AccountStore::ended, this, [this] { m_list->setError(m_store->accountsError()); });
}

RecordList *AccountPage::list() const
{
    return m_list;
}

AccountStore *AccountPage::store() const
{
    return m_store;
}

AccountLink AccountPage::place() const
{
    return {m_kind, m_list->view()->currentName()};
}

bool AccountPage::showAccount(const QString &name)
{
    return m_list->showRecord(name);
}

void AccountPage::arrange(const QVector<QWidget *> &parts)
{
    PageLayout::arrange(this, m_list, parts);
}

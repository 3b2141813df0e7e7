/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTPAGE_H
#define ACCOUNTPAGE_H

#include "accountstore.h"
#include "listpage.h"

/** A list of accounts beside all there is to know of the current one. */
class AccountPage : public ListPage
{
    Q_OBJECT

protected:
    AccountPage(AccountStore *store, AccountLink::Kind kind, RecordList *list, QWidget *parent);

    AccountStore *store() const;

    /** Puts @p parts, one above the other, beside the list. */
    void arrange(const QVector<QWidget *> &parts);

private:
    AccountStore *const m_store;
};

#endif

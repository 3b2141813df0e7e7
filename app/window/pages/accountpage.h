/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTPAGE_H
#define ACCOUNTPAGE_H

#include "accountlink.h"
#include "accountstore.h"
#include "recordlist.h"

#include <QWidget>

/** A list of accounts beside all there is to know of the current one. */
class AccountPage : public QWidget
{
    Q_OBJECT

public:
    RecordList *list() const;

    /** Where the current account is. */
    AccountLink place() const;

    /** Makes the account of that name the current one, showing it if it is hidden; false when there is none. */
    bool showAccount(const QString &name);

Q_SIGNALS:
    /** The operator wants to go there. */
    void followed(const AccountLink &link);

protected:
    AccountPage(AccountStore *store, AccountLink::Kind kind, RecordList *list, QWidget *parent);

    AccountStore *store() const;

    /** Puts @p parts, one above the other, beside the list. */
    void arrange(const QVector<QWidget *> &parts);

    /** Shows the record of the model, or nothing for -1. */
    virtual void showRecord(int record) = 0;

private:
    AccountStore *const m_store;
    const AccountLink::Kind m_kind;
    RecordList *const m_list;
};

#endif

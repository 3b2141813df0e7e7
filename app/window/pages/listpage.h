/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LISTPAGE_H
#define LISTPAGE_H

#include "accountlink.h"
#include "recordlist.h"

#include <QWidget>

/** A list beside the details of its current entry. */
class ListPage : public QWidget
{
    Q_OBJECT

public:
    RecordList *list() const;

    /** Where the current entry is. */
    AccountLink place() const;

    /** Makes the entry of that name the current one, showing it if it is hidden; false when there is none. */
    bool showEntry(const QString &name);

Q_SIGNALS:
    /** The operator followed a link to @p link. */
    void followed(const AccountLink &link);

protected:
    ListPage(AccountLink::Kind kind, RecordList *list, QWidget *parent);

    /** Shows the record of the model, or nothing for -1. */
    virtual void showRecord(int record) = 0;

private:
    const AccountLink::Kind m_kind;
    RecordList *const m_list;
};

#endif

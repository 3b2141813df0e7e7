/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LINKLABEL_H
#define LINKLABEL_H

#include "accountlink.h"

#include <QLabel>

/** Links to accounts, on as many lines as necessary. */
class LinkLabel : public QLabel
{
    Q_OBJECT

public:
    explicit LinkLabel(QWidget *parent = nullptr);

    /** Shows a link to each of @p names, or a dash for none. */
    void setLinks(AccountLink::Kind kind, const QStringList &names);

Q_SIGNALS:
    void followed(const AccountLink &link);
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef HISTORY_H
#define HISTORY_H

#include "accountlink.h"

#include <QObject>
#include <QVector>

/** The places where the operator followed a link, for going back and forward. */
class History : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /** A link leads from @p here to @p there. */
    void follow(const AccountLink &here, const AccountLink &there);

    bool canGoBack() const;
    bool canGoForward() const;

    /** The place before @p here, to which forward() leads back. Only when canGoBack(). */
    AccountLink back(const AccountLink &here);
    AccountLink forward(const AccountLink &here);

Q_SIGNALS:
    void changed();

private:
    AccountLink go(int step, const AccountLink &here);

    QVector<AccountLink> m_places;
    int m_current = 0;
};

#endif

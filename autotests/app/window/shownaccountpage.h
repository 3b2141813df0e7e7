/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SHOWNACCOUNTPAGE_H
#define SHOWNACCOUNTPAGE_H

#include "accountstore.h"
#include "dialogparts.h"
#include "pageparts.h"
#include "patience.h"
#include "recordview.h"
#include "windowparts.h"

#include <QLabel>

/** A page of accounts and its parts, after everything was read. */
template<typename Page>
struct ShownAccountPage {
    ShownAccountPage()
    {
        page.resize(900, 600);
        page.show();
        page.activateWindow();
        if (!QTest::qWaitForWindowActive(&page, patience)) {
            qFatal("The page is not active");
        }
        reload();
    }

    void reload()
    {
        if (!readAccounts(store)) {
            qFatal("The accounts were not read");
        }
    }

    void select(const char *name) const
    {
        clickText(*view, QString::fromLatin1(name));
    }

    QString title() const
    {
        return part<QLabel>(page, "title")->text();
    }

    /** The first columns of the rows. */
    QStringList names() const
    {
        QStringList names;
        const QStringList rows = shownRows(*view);
        for (const QString &row : rows) {
            names.append(row.section(QLatin1Char('|'), 0, 0));
        }
        return names;
    }

    AccountStore store;
    Page page{&store};
    RecordView *view = page.list()->view();
};

#endif

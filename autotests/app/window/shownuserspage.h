/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SHOWNUSERSPAGE_H
#define SHOWNUSERSPAGE_H

#include "accountfixtures.h"
#include "accountstore.h"
#include "dialogparts.h"
#include "limitsfixtures.h"
#include "pageparts.h"
#include "recordview.h"
#include "sandbox.h"
#include "shownaccountpage.h"
#include "userspage.h"
#include "windowparts.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTreeView>

inline const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                                "ada:x:1000:1000:Ada \xc3\x96st,204,555-0142,555-0199,a,b:/home/ada:/bin/bash\n"
                                "bob:x:1001:50:<b>Bob</b> &amp; co:/home/bob:/bin/sh\n"
                                "lost:x:1002:4711::/home/lost:\n"
                                "nobody:x:65534:65534:nobody:/nonexistent:/usr/sbin/nologin\n";

inline const char groupsFile[] = "root:x:0:\n"
                                 "ormel-admin:x:27:ada\n"
                                 "audio:x:29:bob,ada\n"
                                 "staff:x:50:\n"
                                 "ada:x:1000:\n"
                                 "nogroup:x:65534:\n";

struct ShownUsersPage : ShownAccountPage<UsersPage> {
    /** The limits of a user: "item=soft hard source" for each. */
    QString rules(const char *user) const
    {
        select(user);
        QStringList rules;
        const QStringList rows = shownRows(*limits);
        for (const QString &row : rows) {
            const QStringList cells = row.split(QLatin1Char('|'));
            rules.append(cells.at(0) + QLatin1Char('=') + cells.mid(1, 3).join(QLatin1Char(' ')));
        }
        return rules.join(QLatin1String(", "));
    }

    QComboBox *filter = part<QComboBox>(page, "filterComboBox");
    QLineEdit *search = part<QLineEdit>(page, "searchField");
    QTreeView *limits = part<QTreeView>(page, "limitsTable");
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountstore.h"
#include "recordview.h"
#include "userspage.h"

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

#include <unistd.h>

// Shows one user after another, each until the picture or its substitute is there. Checks for two
// files mark the beginning and the end.

namespace
{
/** Leaves a mark in the trace, since there is no such file. */
void mark(const char *path)
{
    if (access(path, F_OK) == 0) {
        qFatal("There is a file %s", path);
    }
}
}

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    AccountStore store;
    UsersPage page(&store);
    const auto *picture = page.findChild<QLabel *>(QStringLiteral("picture"));
    RecordView *view = page.list()->view();
    page.show();
    mark("/begin");
    QSignalSpy ended(&store, &AccountStore::ended);
    store.read();
    if (!ended.wait(120000)) {
        return 1;
    }
    const auto isThere = [picture] {
        return !picture->pixmap(Qt::ReturnByValue).isNull() || !picture->text().isEmpty();
    };
    for (int row = 0; row < view->model()->rowCount(); ++row) {
        view->setCurrentIndex(view->model()->index(row, 0));
        if (!QTest::qWaitFor(isThere, 120000)) {
            return 1;
        }
    }
    mark("/end");
    return 0;
}

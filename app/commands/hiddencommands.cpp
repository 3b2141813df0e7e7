/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "hiddencommands.h"

#include "writeaccounts.h"
#include "writeproblems.h"

#include <QCoreApplication>

#include <algorithm>

namespace
{
struct HiddenCommand {
    QString (*name)();
    int (*run)();
};

const HiddenCommand commands[] = {
    {writeAccountsCommand, writeAccounts},
    {writeProblemsCommand, writeProblems},
};
}

std::optional<int> runHiddenCommand(const QString &name, int &argc, char **argv)
{
    const auto *const found = std::find_if(std::begin(commands),
                                           std::end(commands),
                                           [&name](const HiddenCommand &command) { return command.name() == name; });
    if (found == std::end(commands)) {
        return {};
    }
    const QCoreApplication application(argc, argv);
    return found->run();
}

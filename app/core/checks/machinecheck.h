/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef MACHINECHECK_H
#define MACHINECHECK_H

#include "problem.h"

/** A file that could not be read, so that its contents were not checked. */
struct UnreadFile {
    QString path;
    QString reason;
    /** Whether that is normal: a shadow file is missing, or only an administrator is allowed to read it. */
    bool isExpected = false;
};

/** What is wrong with the accounts and limits of this machine. */
struct MachineCheck {
    QList<Problem> problems;
    QList<UnreadFile> unreadFiles;

    /**
     * Reads the files, the limits files among them, and looks at the home directories and shells; the worst problems
     * come first. It takes long with very many names that are not in the files, since each of them is looked up.
     */
    static MachineCheck run();
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef WRITEPROBLEMS_H
#define WRITEPROBLEMS_H

#include "machinecheck.h"

#include <tuple>

/** The command that runs writeProblems(). Only this program uses it. */
QString writeProblemsCommand();

/** Checks the machine and writes what is found as packets to standard output; the exit status. */
int writeProblems();

/** The text of the first packet, since only the same version of the program understands the packets. */
QString problemsHello();

/** What the process sends after its hello, in this order. */
namespace ProblemPacket
{
enum Type : quint8 {
    Problems = 3, ///< PackedProblems
    UnreadFiles, ///< PackedUnreadFiles
    End, ///< nothing; all was checked
};
}

struct PackedProblem {
    quint32 kind = 0;
    QString file;
    quint32 line = 0;
    QString user;
    QString group;
    QStringList details;

    template<typename Problem>
    static auto fields(Problem &problem)
    {
        return std::tie(problem.kind, problem.file, problem.line, problem.user, problem.group, problem.details);
    }
};

struct PackedUnreadFile {
    QString path;
    QString reason;
    bool isExpected = false;

    template<typename File>
    static auto fields(File &file)
    {
        return std::tie(file.path, file.reason, file.isExpected);
    }
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "writeproblems.h"

#include "packetwriter.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace
{
PackedProblem packed(const Problem &problem)
{
    return {
        quint32(problem.kind),
        problem.file,
        quint32(problem.line),
        problem.user,
        problem.group,
        problem.details,
    };
}

PackedUnreadFile packed(const UnreadFile &file)
{
    return {file.path, file.reason, file.isExpected};
}

template<typename Packed, typename Item>
QVector<Packed> packedAll(const QList<Item> &items)
{
    QVector<Packed> all;
    all.reserve(items.size());
    std::transform(items.begin(), items.end(), std::back_inserter(all), [](const Item &item) { return packed(item); });
    return all;
}
}

QString writeProblemsCommand()
{
    return QStringLiteral("write-problems");
}

QString problemsHello()
{
    return QStringLiteral("ormel-users problems 1");
}

int writeProblems()
{
    PacketWriter writer(problemsHello());
    const MachineCheck check = MachineCheck::run();
    writer.sendAll(ProblemPacket::Problems, packedAll<PackedProblem>(check.problems));
    writer.sendAll(ProblemPacket::UnreadFiles, packedAll<PackedUnreadFile>(check.unreadFiles));
    writer.send(ProblemPacket::End);
    return EXIT_SUCCESS;
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "problemreader.h"

#include "writeproblems.h"

#include <KLocalizedString>

#include <algorithm>
#include <iterator>

namespace
{
Problem unpacked(const PackedProblem &packed)
{
    Problem problem;
    problem.kind = Problem::Kind(packed.kind);
    problem.file = packed.file;
    problem.line = int(packed.line);
    problem.user = packed.user;
    problem.group = packed.group;
    problem.details = packed.details;
    return problem;
}
}

PacketSource ProblemReader::ownProgram()
{
    return PacketSource::ownProgram(writeProblemsCommand());
}

ProblemReader::ProblemReader(const PacketSource &source, QObject *parent)
    : QObject(parent)
    , m_process(
          source, problemsHello(), [this](quint8 type, Unpacker &unpack) { return take(type, unpack); }, this)
{
    connect(&m_process, &PacketProcess::failed, this, [this] {
        Q_EMIT failed(i18n("The machine could not be checked: the program that checks it has failed."));
    });
}

void ProblemReader::start()
{
    m_check = MachineCheck();
    m_process.start();
}

bool ProblemReader::isChecking() const
{
    return m_process.isRunning();
}

bool ProblemReader::take(quint8 type, Unpacker &unpack)
{
    switch (type) {
    case ProblemPacket::Problems:
        return takeProblems(unpack);
    case ProblemPacket::UnreadFiles:
        return takeUnreadFiles(unpack);
    case ProblemPacket::End:
        return end(unpack);
    default:
        return false;
    }
}

bool ProblemReader::takeProblems(Unpacker &unpack)
{
    QVector<PackedProblem> problems;
    if (!unpack.appendTo(problems)) {
        return false;
    }
    const bool areKnown = std::all_of(problems.cbegin(), problems.cend(), [](const PackedProblem &problem) {
        return problem.kind <= quint32(Problem::lastKind);
    });
    if (areKnown) {
        std::transform(problems.cbegin(), problems.cend(), std::back_inserter(m_check.problems), unpacked);
    }
    return areKnown;
}

bool ProblemReader::takeUnreadFiles(Unpacker &unpack)
{
    QVector<PackedUnreadFile> files;
    if (!unpack.appendTo(files)) {
        return false;
    }
    for (const PackedUnreadFile &file : qAsConst(files)) {
        m_check.unreadFiles.append({file.path, file.reason, file.isExpected});
    }
    return true;
}

bool ProblemReader::end(const Unpacker &unpack)
{
    if (!unpack.isDone()) {
        return false;
    }
    m_process.cancel();
    Q_EMIT finished(std::exchange(m_check, {}));
    return true;
}

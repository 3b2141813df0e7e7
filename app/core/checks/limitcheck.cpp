/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitcheck.h"

#include "limitfindings.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace
{
using PamLimits::Finding;
using Kind = Problem::Kind;

constexpr struct {
    Finding::Kind finding;
    Kind problem;
} kinds[] = {
    {Finding::Kind::IgnoredFile, Kind::IgnoredLimitsFile},
    {Finding::Kind::FailingFile, Kind::FailingLimitsFile},
    {Finding::Kind::IgnoredLine, Kind::IgnoredLimit},
    {Finding::Kind::ForNobody, Kind::LimitForNobody},
    {Finding::Kind::Refused, Kind::RefusedLimit},
    {Finding::Kind::NeverDecides, Kind::UselessLimit},
    {Finding::Kind::LocksOut, Kind::LockingLimit},
    {Finding::Kind::ReadDifferently, Kind::MisreadLimit},
};

Problem toProblem(const Finding &finding)
{
    Problem problem;
    problem.kind = std::find_if(std::begin(kinds), std::end(kinds), [&finding](const auto &kind) {
                       return kind.finding == finding.kind;
                   })->problem;
    problem.file = finding.file;
    problem.line = finding.number;
    const QString subject = finding.number > 0 ? finding.text : QFileInfo(finding.file).fileName();
    problem.details = QStringList({subject, finding.statement});
    return problem;
}

QList<UnreadFile> unreadFiles(const PamLimits::Rules &rules)
{
    QList<UnreadFile> files;
    if (!rules.directoryError().isEmpty()) {
        files.append({QStringLiteral("/etc/security/limits.d"), rules.directoryError()});
    }
    for (const PamLimits::File &file : rules.files()) {
        if (file.state == PamLimits::File::State::Unreadable) {
            files.append({file.path, file.error});
        }
    }
    return files;
}
}

MachineCheck checkLimits()
{
    const auto limits = PamLimits::SessionLimits::read();
    PamLimits::LimitUsage usage(limits);
    const QVector<PamLimits::Account> accounts = limits.database().all();
    for (const PamLimits::Account &account : accounts) {
        usage.add(account);
    }
    usage.finish();
    MachineCheck check;
    const QVector<Finding> findings = PamLimits::Findings(limits, usage).all();
    std::transform(findings.begin(), findings.end(), std::back_inserter(check.problems), toProblem);
    check.unreadFiles = unreadFiles(limits.rules());
    return check;
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitfindings.h"

#include "limitwords.h"

#include <KLocalizedString>

#include <QFile>

namespace
{
using PamLimits::Finding;
using PamLimits::Item;
using PamLimits::LimitUsage;
using PamLimits::Line;
using PamLimits::LineKind;
using PamLimits::SessionLimits;

QString neverDecides(const SessionLimits &limits, const LimitUsage::Line &use)
{
    if (use.decides > 0 || use.matches == 0 || use.against < 0) {
        return {};
    }
    const QString place = limits.rules().placeOf(limits.rules().lines().at(use.against));
    return use.hasMore ? i18n("never decides anything: overridden by %1 and other lines", place)
                       : i18n("never decides anything: overridden by %1 for every account", place);
}

QString lockedOut(const LimitUsage::Line &use, const Line &line)
{
    if (use.lockedOut == 0) {
        return {};
    }
    const QString first = LimitWords::fromFile(use.firstLockedOut);
    const QString item = QString::fromLatin1(nameOf(line.item));
    return i18np("locks out '%2': no session can be opened with this %3",
                 "locks out '%2' and others, %1 accounts in all: no session can be opened with this %3",
                 use.lockedOut,
                 first,
                 item);
}

/** The kernel's limit is checked here, since it counts whoever the rule is for. */
QString refused(const SessionLimits &limits, const Line &line)
{
    const bool isTooHigh = line.kind == LineKind::Rule && line.item == Item::NoFile && (line.type & PamLimits::Hard)
        && line.value != PamLimits::unlimited && line.value > limits.maxOpenFiles();
    return isTooHigh ? i18n("sets nothing: the kernel refuses a hard nofile above %1 (/proc/sys/fs/nr_open), and the "
                            "session keeps the limits it had",
                            QString::number(limits.maxOpenFiles()))
                     : QString();
}

Finding findingAbout(const PamLimits::File &file)
{
    const bool fails = file.state == PamLimits::File::State::FailsSession;
    return {
        fails ? Finding::Kind::FailingFile : Finding::Kind::IgnoredFile,
        file.path,
        0,
        {},
        LimitWords::problem(file),
    };
}

/** Whether a whole file is suspicious. One with another name is when it has rules. */
bool isOdd(const PamLimits::File &file, bool hasRules)
{
    using State = PamLimits::File::State;
    const bool isNeighbour = file.state == State::OtherName || file.state == State::Hidden;
    return file.state != State::Read && file.state != State::Unreadable && (!isNeighbour || hasRules);
}
}

PamLimits::Findings::Findings(const SessionLimits &limits, const LimitUsage &usage)
    : m_limits(limits)
    , m_usage(usage)
{
}

QString PamLimits::Findings::nobodyMeant(int domain) const
{
    const auto known = m_nobodyMeant.constFind(domain);
    if (known != m_nobodyMeant.constEnd()) {
        return *known;
    }
    QString found = findNobodyMeant(m_limits.rules().domains().at(domain));
    m_nobodyMeant.insert(domain, found);
    return found;
}

QString PamLimits::Findings::findNobodyMeant(const Domain &domain) const
{
    if (domain.range != Domain::Range::None || domain.text == "*" || domain.text == "%") {
        return {};
    }
    const AccountDatabase &database = m_limits.database();
    const QString name = LimitWords::fromFile(domain.name());
    if (domain.prefix != Domain::Prefix::None) {
        return database.gidOf(domain.name()) ? QString() : i18n("is for nobody: there is no group '%1'", name);
    }
    const bool isKnown = m_usage.hasAccount(domain.text) || database.hasUserElsewhere(domain.text);
    return isKnown ? QString() : i18n("is for nobody: there is no user '%1'", name);
}

QVector<Finding> PamLimits::Findings::findingsOf(int place) const
{
    const Rules &rules = m_limits.rules();
    const Line &line = rules.lines().at(place);
    if (!rules.fileOf(line).isRead()) {
        return {};
    }
    const Finding finding{
        Finding::Kind::IgnoredLine,
        rules.fileOf(line).path,
        int(line.number),
        LimitWords::fromFile(rules.textOf(line)),
        {},
    };
    QVector<Finding> findings;
    const auto add = [&](Finding::Kind kind, const QString &statement) {
        if (!statement.isEmpty()) {
            findings.append(finding);
            findings.last().kind = kind;
            findings.last().statement = statement;
        }
    };
    const QString problem = LimitWords::problem(rules, line);
    if (!problem.isEmpty()) {
        add(Finding::Kind::IgnoredLine, i18n("PAM ignores this line: %1", problem));
        return findings;
    }
    const LimitUsage::Line &use = m_usage.at(place);
    add(Finding::Kind::ForNobody, nobodyMeant(int(line.domain)));
    add(Finding::Kind::Refused, refused(m_limits, line));
    add(Finding::Kind::NeverDecides, neverDecides(m_limits, use));
    add(Finding::Kind::LocksOut, lockedOut(use, line));
    add(Finding::Kind::ReadDifferently, parserProblem(rules, line));
    return findings;
}

QStringList PamLimits::Findings::statementsOf(int place) const
{
    QStringList statements;
    const QVector<Finding> findings = findingsOf(place);
    for (const Finding &finding : findings) {
        statements.append(finding.statement);
    }
    return statements;
}

QVector<PamLimits::Finding> PamLimits::Findings::all() const
{
    const Rules &rules = m_limits.rules();
    QVector<Finding> findings;
    int place = 0;
    for (int file = 0; file < rules.files().size(); ++file) {
        bool hasRules = false;
        QVector<Finding> ofLines;
        for (; place < rules.lines().size() && rules.lines().at(place).file == file; ++place) {
            const Line &line = rules.lines().at(place);
            hasRules = hasRules || line.kind == LineKind::Rule || line.kind == LineKind::Exemption;
            ofLines += findingsOf(place);
        }
        if (isOdd(rules.files().at(file), hasRules)) {
            findings.append(findingAbout(rules.files().at(file)));
        }
        findings += ofLines;
    }
    return findings;
}

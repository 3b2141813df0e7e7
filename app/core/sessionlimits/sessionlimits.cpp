/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "sessionlimits.h"

#include <QFile>

#include <algorithm>

#include <cerrno>
#include <sys/stat.h>

namespace
{
using PamLimits::Item;

/** Standard input, output and error; a program needs one more to load the first library. */
constexpr quint64 fewestOpenFiles = 4;

quint64 readMaxOpenFiles()
{
    QFile file(QStringLiteral("/proc/sys/fs/nr_open"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toULongLong() : PamLimits::unlimited;
}

/** Whether a soft limit is above the hard one, which then counts for both. */
bool isAbove(Item item, quint64 soft, quint64 hard)
{
    return PamLimits::isSigned(PamLimits::kindOf(item)) ? qint64(soft) < qint64(hard) : soft > hard;
}

/** Whether it is certain that a session cannot change to the directory @p path. */
bool isMissing(const QByteArray &path)
{
    struct stat status = {};
    if (!path.startsWith('/')) {
        return false;
    }
    if (stat(path.constData(), &status) == 0) {
        return !S_ISDIR(status.st_mode);
    }
    return errno == ENOENT || errno == ENOTDIR;
}
}

PamLimits::SessionLimits PamLimits::SessionLimits::read(const Progress &progress)
{
    const Module module = Module::installed();
    return {Rules(Files::read(module), module, progress), AccountDatabase::read(), readMaxOpenFiles()};
}

PamLimits::SessionLimits::SessionLimits(Rules rules, AccountDatabase database, quint64 maxOpenFiles)
    : m_rules(std::move(rules))
    , m_database(std::move(database))
    , m_matcher(m_rules, m_database)
    , m_index(m_rules)
    , m_maxOpenFiles(maxOpenFiles)
{
    findFailingFile();
}

void PamLimits::SessionLimits::findFailingFile()
{
    const QVector<File> &files = m_rules.files();
    const auto failing = std::find_if(
        files.begin(), files.end(), [](const File &file) { return file.state == File::State::FailsSession; });
    if (failing == files.end()) {
        return;
    }
    m_failingFile = int(failing - files.begin());
    const QVector<Line> &lines = m_rules.lines();
    const auto next =
        std::find_if(lines.begin(), lines.end(), [this](const Line &line) { return line.file > m_failingFile; });
    m_failingPlace = int(next - lines.begin());
}

const PamLimits::Rules &PamLimits::SessionLimits::rules() const
{
    return m_rules;
}

const PamLimits::AccountDatabase &PamLimits::SessionLimits::database() const
{
    return m_database;
}

quint64 PamLimits::SessionLimits::maxOpenFiles() const
{
    return m_maxOpenFiles;
}

bool PamLimits::SessionLimits::isComplete() const
{
    return errors().isEmpty();
}

QStringList PamLimits::SessionLimits::errors() const
{
    QStringList errors;
    for (const File &file : m_rules.files()) {
        if (file.state == File::State::Unreadable) {
            errors.append(file.path + QLatin1String(": ") + file.error);
        }
    }
    if (!m_rules.directoryError().isEmpty()) {
        errors.append(QLatin1String("/etc/security/limits.d: ") + m_rules.directoryError());
    }
    return errors;
}

int PamLimits::SessionLimits::exemptionOf(const Account &account, const QVector<int> &domains) const
{
    int first = -1;
    for (const int domain : domains) {
        const int place = m_index.exemption(domain);
        if (place >= 0 && (first < 0 || place < first) && m_matcher.exempts(domain, account)) {
            first = place;
        }
    }
    return m_failingPlace >= 0 && first >= m_failingPlace ? -1 : first;
}

QVector<PamLimits::SessionLimits::RankedLine>
PamLimits::SessionLimits::linesFor(const Account &account, const QVector<int> &domains, Lines lines) const
{
    QVector<RankedLine> ranked;
    for (const int domain : domains) {
        const Rank rank = m_matcher.rankOf(domain, account);
        if (rank == Rank::None) {
            continue;
        }
        for (const int place : (m_index.*lines)(domain)) {
            ranked.append({place, rank});
        }
    }
    std::sort(ranked.begin(), ranked.end());
    return ranked;
}

PamLimits::Answer PamLimits::SessionLimits::answer(const Account &account, QVector<Outcome> *outcomes) const
{
    const QVector<int> domains = m_matcher.domainsFor(account);
    Answer answer;
    answer.exemption = exemptionOf(account, domains);
    const bool isOverruled = answer.exemption >= 0 || m_failingFile >= 0;
    if (isOverruled && !outcomes) {
        answer.failure = failureOf(answer, account);
        return answer;
    }
    Contest contest(m_rules, outcomes);
    const QVector<RankedLine> lines = linesFor(account, domains, &LineIndex::candidates);
    for (const auto &[place, rank] : lines) {
        contest.add(place, rank);
    }
    settle(contest);
    if (outcomes) {
        finish(*outcomes, answer.exemption);
    }
    for (int i = 0; i < (isOverruled ? 0 : itemCount); ++i) {
        const Item item = Item(i);
        const int soft = contest.winner(item, SoftHalf);
        const int hard = contest.winner(item, HardHalf);
        answer.limits.at(i) = {valueOf(item, soft), valueOf(item, hard), soft, hard};
    }
    answer.failure = failureOf(answer, account);
    return answer;
}

bool PamLimits::SessionLimits::decides(int place, const Account &account) const
{
    const int domain = int(m_rules.lines().at(place).domain);
    const bool isExemption = m_rules.lines().at(place).kind == LineKind::Exemption;
    if (!(isExemption ? m_matcher.exempts(domain, account) : m_matcher.rankOf(domain, account) != Rank::None)) {
        return false;
    }
    const Answer found = answer(account);
    return found.exemption == place
        || std::any_of(found.limits.begin(), found.limits.end(), [place](const Limit &limit) {
               return limit.softLine == place || limit.hardLine == place;
           });
}

void PamLimits::SessionLimits::settle(Contest &contest) const
{
    for (int i = 0; i < itemCount; ++i) {
        const Item item = Item(i);
        const int soft = contest.winner(item, SoftHalf);
        const int hard = contest.winner(item, HardHalf);
        if (hard < 0 || !hasTwoLimits(kindOf(item))) {
            continue;
        }
        const quint64 hardValue = valueOf(item, hard).number;
        if (item == Item::NoFile && hardValue > m_maxOpenFiles) {
            contest.dismiss(item, SoftHalf, Fate::Refused, hard, -1);
            contest.dismiss(item, HardHalf, Fate::Refused, -1, -1);
        } else if (soft >= 0 && isAbove(item, valueOf(item, soft).number, hardValue)) {
            contest.dismiss(item, SoftHalf, Fate::Lowered, hard, hard);
        }
    }
}

PamLimits::Value PamLimits::SessionLimits::valueOf(Item item, int line) const
{
    if (line < 0) {
        return {};
    }
    const Line &rule = m_rules.lines().at(line);
    if (kindOf(item) == ItemKind::Directory) {
        // The module has put all words of a line into lower case.
        return {Value::Kind::Path, 0, copyOf(m_rules.columnsOf(rule).back()).toLower()};
    }
    const bool isHighest = item == Item::NoFile && rule.value == unlimited;
    return Value::of(item, isHighest ? m_maxOpenFiles : rule.value);
}

PamLimits::Failure PamLimits::SessionLimits::failureOf(const Answer &answer, const Account &account) const
{
    if (answer.exemption >= 0) {
        return {};
    }
    if (m_failingFile >= 0) {
        return {Failure::Reason::File, m_failingFile, -1};
    }
    for (const Item item : {Item::MaxLogins, Item::MaxSysLogins}) {
        const Limit &limit = answer.limit(item);
        if (limit.hard.isSet() && limit.hard.number == 0 && !account.isRoot()) {
            return {Failure::Reason::NoLogins, -1, limit.hardLine};
        }
    }
    const Limit &files = answer.limit(Item::NoFile);
    if (files.soft.isSet() && files.soft.number < fewestOpenFiles) {
        return {Failure::Reason::NoFiles, -1, files.softLine};
    }
    const Limit &directory = answer.limit(Item::Chroot);
    if (isMissing(directory.hard.path)) {
        return {Failure::Reason::NoDirectory, -1, directory.hardLine};
    }
    return {};
}

QVector<PamLimits::Outcome> PamLimits::SessionLimits::outcomes(const Account &account, Item item) const
{
    const QVector<int> domains = m_matcher.domainsFor(account);
    QVector<Outcome> outcomes;
    Contest contest(m_rules, &outcomes);
    const bool isForLogins = kindOf(item) == ItemKind::Logins;
    const QVector<RankedLine> lines = linesFor(account, domains, &LineIndex::all);
    for (const auto &[place, rank] : lines) {
        const Item other = m_rules.lines().at(place).item;
        if (other == item || (isForLogins && kindOf(other) == ItemKind::Logins)) {
            contest.add(place, rank);
        }
    }
    settle(contest);
    finish(outcomes, exemptionOf(account, domains));
    return outcomes;
}

void PamLimits::SessionLimits::finish(QVector<Outcome> &outcomes, int exemption) const
{
    for (Outcome &outcome : outcomes) {
        if (!hasTwoLimits(kindOf(m_rules.lines().at(outcome.line).item))) {
            outcome.parts[HardHalf] = outcome.parts[SoftHalf];
        }
        overrule(outcome, exemption);
    }
}

void PamLimits::SessionLimits::overrule(Outcome &outcome, int exemption) const
{
    if (exemption < 0 && m_failingFile < 0) {
        return;
    }
    const Outcome::Part overruled{exemption >= 0 ? Fate::Exempt : Fate::NotReached, exemption};
    for (Outcome::Part &part : outcome.parts) {
        part = part.fate == Fate::NotMeant ? part : overruled;
    }
}

int PamLimits::SessionLimits::successorOf(int place) const
{
    return m_index.successor(place);
}

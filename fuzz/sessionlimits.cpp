/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "fuzzing.h"
#include "limitfindings.h"
#include "limitsfixtures.h"
#include "limitwords.h"

#include <algorithm>

using Fuzzing::require;

// An input is a limits.conf, then a file of limits.d, then lines of the form "NAME UID GID" with
// accounts to compute the limits of. Lines that are "---" stand between these parts.

namespace
{
using PamLimits::Account;
using PamLimits::Answer;
using PamLimits::Item;
using PamLimits::Line;
using PamLimits::SessionLimits;

constexpr int mostAccounts = 8;

Account accountOf(const Fuzzing::Command &command)
{
    const quint32 gid = command.text(1).toUInt();
    return {command.verb(), command.text(0).toUInt(), gid, {gid, 50}, command.argumentCount() == 1};
}

QVector<Account> accountsIn(const QByteArray &part)
{
    QVector<Account> accounts;
    const QList<Fuzzing::Command> commands = Fuzzing::commands(part, mostAccounts);
    for (const Fuzzing::Command &command : commands) {
        accounts.append(accountOf(command));
    }
    return accounts;
}

bool isPlace(const PamLimits::Rules &rules, int place)
{
    return place >= 0 && place < rules.lines().size();
}

/** Whether the lines are in order, each within its own piece of its file. */
void checkLines(const PamLimits::Rules &rules)
{
    quint64 end = 0;
    int file = -1;
    for (const Line &line : rules.lines()) {
        end = line.file == file ? end : 0;
        file = line.file;
        require(line.length > 0 && line.offset >= end, QStringLiteral("Lines do not overlap"));
        end = quint64(line.offset) + line.length;
        require(end <= quint64(rules.fileOf(line).content.size()), QStringLiteral("A line ends within its file"));
        require(rules.findDomain(rules.domainOf(line).text) == int(line.domain), QStringLiteral("A domain is found"));
        require(rules.isEffective(line)
                    == (rules.fileOf(line).isRead()
                        && (line.kind == PamLimits::LineKind::Exemption || line.kind == PamLimits::LineKind::Rule)),
                QStringLiteral("Rules and exemptions count"));
    }
}

void checkWinner(const PamLimits::Rules &rules, int place, Item item)
{
    if (place == -1) {
        return;
    }
    require(isPlace(rules, place), QStringLiteral("A line decides that is there"));
    const Line &line = rules.lines().at(place);
    require(rules.isEffective(line) && line.kind == PamLimits::LineKind::Rule, QStringLiteral("A rule decides"));
    require(line.item == item, QStringLiteral("A rule decides on its own item"));
}

/** The places of the lines that decide something. */
QVector<int> winnersOf(const Answer &answer)
{
    QVector<int> winners{answer.exemption};
    for (const PamLimits::Limit &limit : answer.limits) {
        winners += {limit.softLine, limit.hardLine};
    }
    winners.removeAll(-1);
    return winners;
}

void checkOutcomes(const SessionLimits &limits, const Account &account, const Answer &answer)
{
    for (int i = 0; i < PamLimits::itemCount; ++i) {
        const auto item = Item(i);
        const PamLimits::Limit &limit = answer.limit(item);
        checkWinner(limits.rules(), limit.softLine, item);
        checkWinner(limits.rules(), limit.hardLine, item);
        const QVector<PamLimits::Outcome> outcomes = limits.outcomes(account, item);
        int before = -1;
        for (const PamLimits::Outcome &outcome : outcomes) {
            require(outcome.line > before, QStringLiteral("Outcomes are in the order of the lines"));
            before = outcome.line;
            for (const PamLimits::Outcome::Part &part : outcome.parts) {
                require(part.against == -1 || isPlace(limits.rules(), part.against),
                        QStringLiteral("A rule loses against one that is there"));
                LimitWords::outcome(limits, part);
            }
            const bool isOther = limits.rules().lines().at(outcome.line).item != item;
            const bool wins = outcome.line == limit.softLine || outcome.line == limit.hardLine;
            require(isOther || outcome.decides() == wins,
                    QStringLiteral("The outcome of a rule agrees with the answer: line %1").arg(outcome.line));
        }
    }
}

void checkAnswer(const SessionLimits &limits, const Account &account, QVector<int> &decided)
{
    QVector<PamLimits::Outcome> outcomes;
    const Answer answer = limits.answer(account, &outcomes);
    checkOutcomes(limits, account, answer);
    LimitWords::failure(limits, answer);
    const QVector<int> winners = winnersOf(answer);
    for (int place = 0; place < limits.rules().lines().size(); ++place) {
        const bool decides = limits.decides(place, account);
        require(decides == winners.contains(place),
                QStringLiteral("Line %1 decides, or not, as the answer says").arg(place));
        decided[place] += int(decides);
    }
}

void checkFindings(const SessionLimits &limits, const PamLimits::LimitUsage &usage)
{
    const PamLimits::Findings findings(limits, usage);
    const QVector<PamLimits::Finding> all = findings.all();
    int count = 0;
    for (int place = 0; place < limits.rules().lines().size(); ++place) {
        const QStringList statements = findings.statementsOf(place);
        require(!statements.contains(QString()), QStringLiteral("A finding says something"));
        count += statements.size();
    }
    const auto ofFiles =
        std::count_if(all.begin(), all.end(), [](const PamLimits::Finding &finding) { return finding.number == 0; });
    require(all.size() == count + int(ofFiles), QStringLiteral("All findings are listed"));
}
}

void Target::prepare()
{
    clearLimits();
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts("root:x:0:0::/:\n"
                         "alice:x:1000:50::/:\n",
                         "root:x:0:\n"
                         "staff:x:50:alice,carol\n"
                         "audio:x:29:bob,alice\n");
}

void Target::run(const QByteArray &input)
{
    const QList<QByteArray> parts = Fuzzing::sections(input, 3);
    Sandbox::write(limitsPath(), parts.at(0));
    Sandbox::write(dropInPath(QStringLiteral("50.conf")), parts.at(1));
    const QVector<Account> accounts = accountsIn(parts.at(2));
    const SessionLimits installed = SessionLimits::read();
    for (const PamLimits::Module &module : {PamLimits::Module::version1_5(), PamLimits::Module::version1_7()}) {
        const SessionLimits limits(
            PamLimits::Rules(PamLimits::Files::read(module), module), installed.database(), installed.maxOpenFiles());
        checkLines(limits.rules());
        PamLimits::LimitUsage usage(limits);
        QVector<int> decided(limits.rules().lines().size());
        for (const Account &account : accounts) {
            checkAnswer(limits, account, decided);
            usage.add(account);
        }
        usage.finish();
        for (int place = 0; place < decided.size(); ++place) {
            require(usage.at(place).decides == decided.at(place), QStringLiteral("What lines decide is counted"));
        }
        checkFindings(limits, usage);
    }
}

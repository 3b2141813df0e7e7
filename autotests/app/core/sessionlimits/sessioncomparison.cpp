/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "sessioncomparison.h"

#include <algorithm>

namespace
{
using PamLimits::Answer;
using PamLimits::Failure;
using PamLimits::Item;
using PamLimits::Limit;
using PamLimits::Rank;
using PamLimits::Value;

using Pair = QPair<quint64, quint64>;

/** A value in the kernel's unit. */
quint64 inKernelUnit(Item item, const Value &value)
{
    static const QByteArray kilobytes(" as core data fsize memlock rss stack ");
    if (value.kind == Value::Kind::Unlimited) {
        return ~quint64(0);
    }
    if (item == Item::Nice) {
        return quint64(20 - qint64(value.number));
    }
    if (item == Item::Cpu) {
        return value.number * 60;
    }
    return kilobytes.contains(' ' + nameOf(item) + ' ') ? value.number * 1024 : value.number;
}

/** The limits of a session that begins with @p plain. */
Pair expectedLimit(Item item, const Limit &limit, const Pair &plain)
{
    const quint64 soft = limit.soft.isSet() ? inKernelUnit(item, limit.soft) : plain.first;
    const quint64 hard = limit.hard.isSet() ? inKernelUnit(item, limit.hard) : plain.second;
    return {std::min(soft, hard), hard};
}

QString describe(const Pair &limit)
{
    return QString::number(limit.first) + QLatin1Char(' ') + QString::number(limit.second);
}

QString describe(bool state)
{
    return state ? QStringLiteral("yes") : QStringLiteral("no");
}

QByteArray nameOf(Rank rank)
{
    static const char *const names[] = {"USER", "GROUP", "ALLGROUP", "ALL", "DEFAULT"};
    return names[int(rank)];
}

bool hasKernelLimit(Item item)
{
    return hasTwoLimits(kindOf(item));
}

/** The limit of logins, whichever of the two items sets it. */
Limit loginsOf(const Answer &answer)
{
    const Limit &own = answer.limit(Item::MaxLogins);
    return own.hard.isSet() ? own : answer.limit(Item::MaxSysLogins);
}

/** Whether the logins of all users count: for "maxsyslogins" and for the domain "%". */
bool countsAll(const PamLimits::SessionLimits &limits, const Answer &answer)
{
    const PamLimits::Line &line = limits.rules().lines().at(loginsOf(answer).hardLine);
    return answer.limit(Item::MaxSysLogins).hard.isSet() || limits.rules().domainOf(line).text == "%";
}

QStringList toText(const QList<QByteArray> &lines)
{
    QStringList texts;
    for (const QByteArray &line : lines) {
        texts.append(QString::fromLatin1(line));
    }
    return texts;
}

/** The rules that match, in the words of the module. */
QList<QByteArray> rulesFor(const PamLimits::SessionLimits &limits, const PamLimits::Account &account)
{
    QMap<int, QByteArray> rules;
    for (int i = 0; i < PamLimits::itemCount; ++i) {
        const QVector<PamLimits::Outcome> outcomes = limits.outcomes(account, Item(i));
        for (const PamLimits::Outcome &outcome : outcomes) {
            const PamLimits::Columns columns = limits.rules().columnsOf(limits.rules().lines().at(outcome.line));
            using PamLimits::copyOf;
            const QByteArray words = copyOf(columns[1]) + ' ' + copyOf(columns[2]) + ' ' + copyOf(columns[3]);
            rules.insert(outcome.line, words.toLower() + " for " + nameOf(outcome.rank));
        }
    }
    return rules.values();
}
}

void SessionComparison::compare(const QString &what, const QString &expected, const QString &found)
{
    ++m_compared;
    if (expected != found) {
        m_differences.append(QStringLiteral("%1: %2 instead of %3").arg(what, expected, found));
    }
}

QStringList SessionComparison::differences(const PamSession &session,
                                           const PamSession &plain,
                                           const PamLimits::SessionLimits &limits,
                                           const PamLimits::Account &account)
{
    m_differences.clear();
    const Answer answer = limits.answer(account);
    compareOpening(session, limits, answer, account);
    compareItems(session, plain, answer);
    if (answer.failure.reason == Failure::Reason::None && answer.exemption < 0) {
        compareRules(session, limits, account);
    }
    return m_differences;
}

void SessionComparison::compareOpening(const PamSession &session,
                                       const PamLimits::SessionLimits &limits,
                                       const Answer &answer,
                                       const PamLimits::Account &account)
{
    const Limit logins = loginsOf(answer);
    const bool isLimit = logins.hard.kind == Value::Kind::Number && !account.isRoot();
    const Failure::Reason reason = answer.failure.reason;
    if (isLimit && (logins.hard.number == 1 || logins.hard.number >= PamSessions::foreignLogins)) {
        // The later module allows any number instead of one, and there are not that many logins.
        ++m_untold;
    } else {
        // While calls are recorded, neither a directory nor a descriptor is missing.
        const bool isFailure = reason == Failure::Reason::File || reason == Failure::Reason::NoLogins;
        const bool areTooMany = isLimit && countsAll(limits, answer);
        compare(QStringLiteral("open"), describe(!isFailure && !areTooMany), describe(session.isOpen));
    }
    const bool isAsked = isLimit && logins.hard.number > 0;
    compare(QStringLiteral("logins"),
            QString::number(isAsked ? qint64(logins.hard.number) : -1),
            QString::number(session.logins));
}

void SessionComparison::compareItems(const PamSession &session, const PamSession &plain, const Answer &answer)
{
    for (int i = 0; i < PamLimits::itemCount; ++i) {
        const Item item = Item(i);
        if (hasKernelLimit(item)) {
            const QByteArray name = PamLimits::nameOf(item);
            const Pair expected = expectedLimit(item, answer.limit(item), plain.limits.value(name));
            compare(QString::fromLatin1(name), describe(expected), describe(session.limits.value(name)));
        }
    }
    if (!session.isOpen) {
        return;
    }
    const Value &priority = answer.limit(Item::Priority).hard;
    const int found = std::clamp(session.priority.toInt(), -20, 19);
    compare(QStringLiteral("priority"), QString::number(qint64(priority.number)), QString::number(found));
    const bool hasNoNewPrivs = answer.limit(Item::NoNewPrivs).hard.number == 1;
    compare(QStringLiteral("nonewprivs"), describe(hasNoNewPrivs), describe(session.hasNoNewPrivs));
    compare(QStringLiteral("chroot"),
            QString::fromLatin1(answer.limit(Item::Chroot).hard.path),
            QString::fromLatin1(session.directory));
}

void SessionComparison::compareRules(const PamSession &session,
                                     const PamLimits::SessionLimits &limits,
                                     const PamLimits::Account &account)
{
    compare(QStringLiteral("rules"),
            toText(rulesFor(limits, account)).join(QLatin1String("; ")),
            toText(session.rules).join(QLatin1String("; ")));
}

QStringList SessionComparison::kernelDifferences(const PamSession &session,
                                                 const PamSession &plain,
                                                 const PamLimits::SessionLimits &limits,
                                                 const PamLimits::Account &account)
{
    m_differences.clear();
    const Answer answer = limits.answer(account);
    for (int i = 0; i < PamLimits::itemCount; ++i) {
        const Item item = Item(i);
        if (!hasKernelLimit(item)) {
            continue;
        }
        const QByteArray name = PamLimits::nameOf(item);
        const Pair before = plain.limits.value(name);
        const Pair expected = expectedLimit(item, answer.limit(item), before);
        if (expected.second > before.second) {
            ++m_untold;
        } else {
            compare(QString::fromLatin1(name), describe(expected), describe(session.limits.value(name)));
        }
    }
    return m_differences;
}

int SessionComparison::compared() const
{
    return m_compared;
}

int SessionComparison::untold() const
{
    return m_untold;
}

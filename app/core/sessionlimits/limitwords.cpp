/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitwords.h"

#include "recordtext.h"

#include <LimitsParser>

#include <KLocalizedString>

namespace
{
using PamLimits::Domain;
using PamLimits::Fate;
using PamLimits::Item;
using PamLimits::Line;
using PamLimits::LineKind;

const char libraryDomain[] = "ormel_kcm_users";

QString withIds(const Domain &domain, const char *one, const char *from, const char *between)
{
    const QString first = QString::number(domain.first);
    const QString last = QString::number(domain.last);
    switch (domain.range) {
    case Domain::Range::One:
        return i18nd(libraryDomain, one, last);
    case Domain::Range::From:
        return i18nd(libraryDomain, from, first);
    default:
        return i18nd(libraryDomain, between, first, last);
    }
}

QString column(const PamLimits::Rules &rules, const Line &line, size_t index)
{
    return LimitWords::fromFile(rules.columnsOf(line).at(index));
}

/** Why a rule for logins has no effect on whom its domain names. */
QString loginsProblem(const Domain &domain, const Line &line)
{
    const bool isForRoot = domain.contains(0);
    if (domain.prefix != Domain::Prefix::Logins || line.kind != LineKind::Rule || isForRoot) {
        return {};
    }
    if (domain.range == Domain::Range::From || domain.range == Domain::Range::Between) {
        return i18n("ranges of IDs cannot follow '%'");
    }
    return line.item == Item::MaxLogins ? QString() : i18n("'%' is for maxlogins only");
}

QString lostTo(const PamLimits::SessionLimits &limits, int line)
{
    return limits.rules().placeOf(limits.rules().lines().at(line));
}
}

QString LimitWords::fromFile(PamLimits::Text text)
{
    return RecordText::decode(QString::fromLatin1(text.data(), int(text.size())));
}

QString LimitWords::fromFile(const QByteArray &text)
{
    return RecordText::decode(QString::fromLatin1(text));
}

QString LimitWords::description(Item item)
{
    if (item == Item::Rss) {
        return i18n("Maximum resident set size. Linux ignores it.");
    }
    // The catalogue was made when the library was loaded, before there was a language.
    const QString english = LimitsParser::fieldDescriptor(QString::fromLatin1(nameOf(item))).description;
    return i18nd(libraryDomain, english.toUtf8().constData());
}

QString LimitWords::domain(const Domain &domain)
{
    const QString name = fromFile(domain.name());
    if (domain.prefix == Domain::Prefix::Logins) {
        return name.isEmpty() ? i18n("All logins together")
                              : i18n("All logins of members of the group '%1' together", name);
    }
    const bool isGroup = domain.prefix == Domain::Prefix::Group;
    if (domain.range == Domain::Range::None || domain.range == Domain::Range::Invalid) {
        if (domain.text == "*") {
            return i18nd(libraryDomain, "All users");
        }
        return isGroup ? i18nd(libraryDomain, "Group name: \"%1\"", name)
                       : i18nd(libraryDomain, "User name: \"%1\"", name);
    }
    if (isGroup) {
        return withIds(domain,
                       "Group with GID equal to %1",
                       "Groups with GID greater than or equal to %1",
                       "Group GID range from %1 to %2");
    }
    return withIds(domain,
                   "User with UID equal to %1",
                   "Users with UID greater than or equal to %1",
                   "User UID range from %1 to %2");
}

QString LimitWords::problem(const PamLimits::Rules &rules, const Line &line)
{
    switch (line.kind) {
    case LineKind::BadRange:
        return i18n("the IDs in '%1' are not numbers", column(rules, line, 0));
    case LineKind::BadColumns:
        return i18n("it has fewer than four columns");
    case LineKind::UnknownItem:
        return i18n("there is no item '%1'", column(rules, line, 2));
    case LineKind::UnknownType:
        return i18n("the type '%1' is not soft, hard or -", column(rules, line, 1));
    case LineKind::BadValue:
        return i18n("'%1' is not a value of %2", column(rules, line, 3), QString::fromLatin1(nameOf(line.item)));
    case LineKind::Rule:
    case LineKind::Exemption:
        break;
    }
    return loginsProblem(rules.domainOf(line), line);
}

QString LimitWords::problem(const PamLimits::File &file)
{
    using State = PamLimits::File::State;
    switch (file.state) {
    case State::Read:
        return {};
    case State::OtherName:
        return i18n("PAM does not read this file: its name does not end in .conf");
    case State::Hidden:
        return i18n("PAM does not read this file: its name begins with a dot");
    case State::Directory:
        return i18n("PAM reads nothing from it: it is a directory");
    case State::Missing:
        return i18n("PAM leaves this file out: %1", file.error);
    case State::FailsSession:
        return i18n("PAM opens no session for anybody: it cannot open this file: %1", file.error);
    case State::Unreadable:
        return i18n("Cannot read '%1': %2", file.path, file.error);
    }
    return {};
}

QString LimitWords::outcome(const PamLimits::SessionLimits &limits, const PamLimits::Outcome::Part &part)
{
    switch (part.fate) {
    case Fate::NotMeant:
        return {};
    case Fate::Decides:
        return i18nc("@info a rule", "decides");
    case Fate::Outranked:
        return i18n("a domain of higher rank decides: %1", lostTo(limits, part.against));
    case Fate::Overridden:
        return i18n("a later line decides: %1", lostTo(limits, part.against));
    case Fate::Blocked:
        return i18n("lost together with the soft limit: %1", lostTo(limits, part.against));
    case Fate::Lowered:
        return i18n("lowered to the hard limit: %1", lostTo(limits, part.against));
    case Fate::Refused:
        return i18n("the kernel refuses more than %1, so that the session keeps the limits it had",
                    QString::number(limits.maxOpenFiles()));
    case Fate::Exempt:
        return i18n("the account is exempt from all limits: %1", lostTo(limits, part.against));
    case Fate::Invalid:
        return i18n("'%' is for maxlogins only");
    case Fate::NotReached:
        return i18n("no session is opened");
    }
    return {};
}

QString LimitWords::failure(const PamLimits::SessionLimits &limits, const PamLimits::Answer &answer)
{
    using Reason = PamLimits::Failure::Reason;
    const PamLimits::Failure &failure = answer.failure;
    if (failure.reason == Reason::None) {
        return {};
    }
    if (failure.reason == Reason::File) {
        const PamLimits::File &file = limits.rules().files().at(failure.file);
        return i18n("PAM cannot open '%1': %2", file.path, file.error);
    }
    const QString place = lostTo(limits, failure.line);
    if (failure.reason == Reason::NoLogins) {
        return i18n("%1 allows no logins", place);
    }
    if (failure.reason == Reason::NoFiles) {
        return i18n("%1 allows too few open files to start a program", place);
    }
    return i18n("%1 needs a directory that does not exist", place);
}

QString LimitWords::source(const PamLimits::Rules &rules, int line)
{
    if (line < 0) {
        return {};
    }
    const Line &rule = rules.lines().at(line);
    return fromFile(rules.domainOf(rule).text) + QLatin1Char(' ') + rules.placeOf(rule);
}

QString LimitWords::source(const PamLimits::Rules &rules, const PamLimits::Limit &limit)
{
    if (limit.softLine == limit.hardLine || limit.hardLine < 0) {
        return source(rules, limit.softLine);
    }
    const QString hard = source(rules, limit.hardLine);
    return limit.softLine < 0 ? hard : source(rules, limit.softLine) + QLatin1String(", ") + hard;
}

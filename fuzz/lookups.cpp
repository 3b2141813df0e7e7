/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "describe.h"
#include "fuzzing.h"
#include "limitsfixtures.h"
#include "limitsmodel.h"

#include <QSet>

#include <algorithm>

#include <grp.h>
#include <pwd.h>

using Fuzzing::requireEqual;

// An input is a limits.conf, then lines of the form "NAME UID GID" with accounts to look it up for,
// then texts in UTF-8 to explain, a line each. Lines that are "---" stand between these parts.

namespace
{
constexpr int mostAccounts = 8;

UserInfo userOf(const Fuzzing::Command &account)
{
    QByteArray name = account.verb();
    char empty[] = "";
    passwd entry{};
    entry.pw_name = name.data();
    entry.pw_uid = account.text(0).toUInt();
    entry.pw_gid = account.text(1).toUInt();
    entry.pw_gecos = empty;
    entry.pw_dir = empty;
    entry.pw_shell = empty;
    return UserInfo::getUser(&entry);
}

GroupInfo groupOf(const Fuzzing::Command &account)
{
    QByteArray name = account.verb();
    char *noMembers[] = {nullptr};
    group entry{};
    entry.gr_name = name.data();
    entry.gr_gid = account.text(1).toUInt();
    entry.gr_mem = noMembers;
    return GroupInfo::getGroup(&entry);
}

/** The two slashes at @p position with the letters d after them; null when there is something else. */
QString numberAt(const QString &domain, int position)
{
    if (domain.mid(position, 2) != QLatin1String("//")) {
        return {};
    }
    int end = position + 2;
    while (end < domain.size() && domain.at(end) == QLatin1Char('d')) {
        ++end;
    }
    return domain.mid(position, end - position);
}

QString rangeToolTip(const QString &domain, int position, const QString &text)
{
    const QString first = numberAt(domain, position);
    const int colon = position + first.size();
    const QString last = numberAt(domain, colon + 1);
    const bool isRange = !first.isNull() && domain.mid(colon, 1) == QLatin1String(":") && !last.isNull();
    return isRange ? text.arg(first, last) : QString();
}

/** The explanation of a domain, from left to right. */
QString toolTipOf(const QString &domain)
{
    const bool isGroup = domain.startsWith(QLatin1Char('@'));
    QString range = isGroup ? rangeToolTip(domain, 1, QStringLiteral("Group GID range from %1 to %2"))
                            : rangeToolTip(domain, 0, QStringLiteral("User UID range from %1 to %2"));
    if (!range.isNull()) {
        return range;
    }
    if (domain == QLatin1String("*")) {
        return QStringLiteral("All users");
    }
    return isGroup ? QLatin1String("Group name: \"") + domain.mid(1) + QLatin1Char('"')
                   : QLatin1String("User name: \"") + domain + QLatin1Char('"');
}

void explain(const QString &text)
{
    requireEqual(LimitsParser::domainToolTip(text), toolTipOf(text), "The tool tip of a domain");
    if (!LimitsParser::m_fieldDescriptionsMap.contains(text)) {
        requireEqual(LimitsParser::itemToolTip(text), text, "The tool tip of an unknown item");
        requireEqual(LimitsParser::valueToString(text, text), text, "The value of an unknown item");
    }
    if (text.size() > 4) {
        requireEqual(LimitsParser::typeToolTip(text), text, "The tool tip of an unknown type");
    }
}

void explainValue(const LimitsParser::Field &rule)
{
    static const QMap<int, QString> units{
        {LimitsParser::Bytes, QStringLiteral(" Bytes")},
        {LimitsParser::KiloBytes, QStringLiteral(" KB")},
        {LimitsParser::Minutes, QStringLiteral(" Minutes")},
    };
    QString expected = rule.value.toString();
    if (rule.valueType == LimitsParser::Boolean) {
        expected = rule.value == 1 ? QStringLiteral("Enabled") : QStringLiteral("Disabled");
    } else if (units.contains(rule.valueType)) {
        expected = QString::number(rule.value.toInt()) + units.value(rule.valueType);
    }
    requireEqual(LimitsParser::valueToString(rule.value, rule.item), expected, "The text of a value");
}

/** Compares a lookup by domain and item with the first rule that has both. */
void explainFirst(const LimitsParser &limits, const LimitsParser::Field &rule)
{
    const QList<LimitsParser::Field> rules = limits.fields();
    const auto first = std::find_if(rules.begin(), rules.end(), [&rule](const LimitsParser::Field &other) {
        return other.domain == rule.domain && other.item == rule.item;
    });
    requireEqual(describe(limits.findField(rule.domain, rule.item)), describe(first->value), "The value of a rule");
    const bool isKnown = LimitsParser::m_fieldDescriptionsMap.contains(rule.item);
    Fuzzing::require(LimitsParser::availableItems().contains(rule.item) == isKnown,
                     QStringLiteral("The items of the catalogue are available"));
}
}

void Target::prepare()
{
    clearLimits();
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts("root:x:0:0::/:\n"
                         "alice:x:1000:50::/:\n",
                         "root:x:0:\n"
                         "ormel-admin:x:27:\n"
                         "staff:x:50:alice,carol\n"
                         "audio:x:29:bob,alice\n");
}

void Target::run(const QByteArray &input)
{
    const QList<QByteArray> parts = Fuzzing::sections(input, 3);
    Sandbox::write(limitsPath(), parts.at(0));
    const LimitsParser limits = readLimits();
    LimitsModel expected;
    expected.read(parts.at(0));

    QSet<QString> items{QStringLiteral("core"), QStringLiteral("maxlogins")};
    const QList<LimitsParser::Field> rules = limits.fields();
    for (const LimitsParser::Field &rule : rules) {
        items.insert(rule.item);
        explainFirst(limits, rule);
        explain(rule.domain);
        explainValue(rule);
    }
    const QList<Fuzzing::Command> accounts = Fuzzing::commands(parts.at(1), mostAccounts);
    for (const Fuzzing::Command &account : accounts) {
        const UserInfo user = userOf(account);
        const GroupInfo group = groupOf(account);
        for (const QString &item : qAsConst(items)) {
            requireEqual(describe(limits.getItem(user, item)), expected.valueFor(user, item), "The limit of a user");
            requireEqual(describe(limits.getItem(group, item)), expected.valueFor(group, item), "The limit of a group");
        }
    }
    const QStringList texts = QString::fromUtf8(parts.at(2)).split(QLatin1Char('\n'));
    for (const QString &text : texts) {
        explain(text);
    }
}

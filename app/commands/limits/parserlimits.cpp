/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "parserlimits.h"

#include "command.h"
#include "findaccount.h"
#include "recordtext.h"
#include "texttable.h"

#include <GroupInfo>
#include <LimitsParser>
#include <UserInfo>

#include <KLocalizedString>

namespace
{
/** Hands the rules to @p show, when they can be read. */
template<typename Show>
int withLimits(Show show)
{
    LimitsParser limits;
    QString error;
    return limits.readLimitsConf(error) ? show(limits) : failure(error);
}

/** Rich text for a terminal. */
QString plain(QString text)
{
    return text.replace(QLatin1String("<br>"), QLatin1String(" "));
}

int showAll(const LimitsParser &limits)
{
    TextTable table({{i18n("Rule")}, {i18n("Meaning")}});
    const QList<LimitsParser::Field> rules = limits.fields();
    for (const LimitsParser::Field &rule : rules) {
        const QStringList columns = RecordText::decode({rule.domain, rule.type, rule.item, rule.value.toString()});
        table.addRow({columns.join(QLatin1Char(' ')), LimitsParser::domainToolTip(columns.at(0))});
        table.addRow({QString(), plain(LimitsParser::typeToolTip(columns.at(1)))});
        table.addRow({QString(), LimitsParser::itemToolTip(columns.at(2))});
    }
    return print(table.toString());
}

template<typename Account>
int showValues(const LimitsParser &limits, const Account &account)
{
    TextTable table({{i18n("Item")}, {i18n("Value"), Qt::AlignRight}, {i18n("Limit")}, {i18n("Description")}});
    const QStringList items = LimitsParser::availableItems();
    for (const QString &item : items) {
        const QVariant value = limits.getItem(account, item);
        table.addRow({
            item,
            value.toString(),
            value.isNull() ? i18n("no rule") : LimitsParser::valueToString(value, item),
            LimitsParser::itemToolTip(item),
        });
    }
    return print(table.toString());
}

}

int ParserLimits::showUser(const QString &name)
{
    const UserInfo user = FindAccount::user(name);
    if (user.isEmpty()) {
        return failure(i18n("There is no user '%1'.", name));
    }
    return withLimits([&user](const LimitsParser &limits) { return showValues(limits, user); });
}

int ParserLimits::showGroup(const QString &name)
{
    const GroupInfo group = FindAccount::group(name);
    if (group.isEmpty()) {
        return failure(i18n("There is no group '%1'.", name));
    }
    return withLimits([&group](const LimitsParser &limits) { return showValues(limits, group); });
}

int ParserLimits::showRules()
{
    return withLimits(showAll);
}

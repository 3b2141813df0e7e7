/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitscommands.h"

#include "findaccount.h"
#include "limitschecker.h"
#include "recordtext.h"
#include "texttable.h"

#include <GroupInfo>
#include <LimitsParser>
#include <UserInfo>

#include <KLocalizedString>

#include <QCommandLineParser>

namespace
{
QString userOption()
{
    return QStringLiteral("user");
}

QString groupOption()
{
    return QStringLiteral("group");
}

QString checkOption()
{
    return QStringLiteral("check");
}

/** Rich text for a terminal. */
QString plain(QString text)
{
    return text.replace(QLatin1String("<br>"), QLatin1String(" "));
}

int showRules(const LimitsParser &limits)
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

int showUser(const LimitsParser &limits, const QString &name)
{
    const UserInfo user = FindAccount::user(name);
    if (user.isEmpty()) {
        return failure(i18n("There is no user '%1'.", name));
    }
    return showValues(limits, user);
}

int showGroup(const LimitsParser &limits, const QString &name)
{
    const GroupInfo group = FindAccount::group(name);
    if (group.isEmpty()) {
        return failure(i18n("There is no group '%1'.", name));
    }
    return showValues(limits, group);
}

int showFindings()
{
    const QList<LimitsFinding> findings = checkLimits();
    if (findings.isEmpty()) {
        return print(i18n("Every line is taken as it is written.") + QLatin1Char('\n'));
    }
    TextTable table({{i18n("File")}, {i18n("Line"), Qt::AlignRight}, {i18n("Reason")}, {i18n("Text")}});
    for (const LimitsFinding &finding : findings) {
        table.addRow({
            finding.file,
            QString::number(finding.line),
            finding.allReasons(),
            finding.visibleText(),
        });
    }
    print(table.toString());
    return Failure;
}
}

QList<QCommandLineOption> limitsOptions()
{
    return {
        {userOption(), i18n("Show the limits of a user."), i18n("name")},
        {groupOption(), i18n("Show the limits of a group."), i18n("name")},
        {checkOption(), i18n("List the lines that do not mean what they seem to.")},
    };
}

int showLimits(const QCommandLineParser &options, const QString & /*operand*/)
{
    const bool ofUser = options.isSet(userOption());
    const bool ofGroup = options.isSet(groupOption());
    const bool check = options.isSet(checkOption());
    if (ofUser + ofGroup + check > 1) {
        return usageError(i18n("Only one of --user, --group and --check can be given."));
    }
    LimitsParser limits;
    QString error;
    if (!limits.readLimitsConf(error)) {
        return failure(error);
    }
    if (ofUser) {
        return showUser(limits, options.value(userOption()));
    }
    if (ofGroup) {
        return showGroup(limits, options.value(groupOption()));
    }
    return check ? showFindings() : showRules(limits);
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitscommands.h"

#include "limitsreport.h"
#include "parserlimits.h"

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

QString ruleOption()
{
    return QStringLiteral("rule");
}

QString checkOption()
{
    return QStringLiteral("check");
}

QString explainOption()
{
    return QStringLiteral("explain");
}

QString parserOption()
{
    return QStringLiteral("parser");
}

/** Why the options do not go together; empty when they do. */
QString problemWith(const QCommandLineParser &options)
{
    const bool ofUser = options.isSet(userOption());
    const bool ofGroup = options.isSet(groupOption());
    const bool ofRule = options.isSet(ruleOption());
    const bool check = options.isSet(checkOption());
    const bool explain = options.isSet(explainOption());
    if (ofUser + ofGroup + ofRule + check > 1) {
        return i18n("Only one of --user, --group, --rule and --check can be given.");
    }
    if (explain && !ofUser && !ofGroup) {
        return i18n("--explain needs --user or --group.");
    }
    if (options.isSet(parserOption()) && (ofRule || check || explain || options.isSet(jsonOption()))) {
        return i18n("--parser can only be combined with --user or --group.");
    }
    return {};
}

int showParserLimits(const QCommandLineParser &options)
{
    if (options.isSet(userOption())) {
        return ParserLimits::showUser(options.value(userOption()));
    }
    if (options.isSet(groupOption())) {
        return ParserLimits::showGroup(options.value(groupOption()));
    }
    return ParserLimits::showRules();
}
}

QList<QCommandLineOption> limitsOptions()
{
    return {
        {userOption(), i18n("Show the limits of a user's sessions."), i18n("name")},
        {groupOption(), i18n("Show the limits that a group gives to its members."), i18n("name")},
        {explainOption(), i18n("List all lines that match for an item, and why one of them decides."), i18n("item")},
        {ruleOption(), i18n("List the accounts for which a line decides something."), i18n("file:line")},
        {checkOption(), i18n("List suspicious lines, which do not mean what they seem to.")},
        {jsonOption(), i18n("Print JSON instead of text.")},
        {parserOption(), i18n("Show what programs get from LimitsParser instead.")},
    };
}

int showLimits(const QCommandLineParser &options, const QString & /*operand*/)
{
    const QString problem = problemWith(options);
    if (!problem.isEmpty()) {
        return usageError(problem);
    }
    if (options.isSet(parserOption())) {
        return showParserLimits(options);
    }
    const LimitsReport report(options.isSet(jsonOption()));
    if (options.isSet(userOption())) {
        return report.showUser(options.value(userOption()), options.value(explainOption()));
    }
    if (options.isSet(groupOption())) {
        return report.showGroup(options.value(groupOption()), options.value(explainOption()));
    }
    if (options.isSet(ruleOption())) {
        return report.showAccounts(options.value(ruleOption()));
    }
    return options.isSet(checkOption()) ? report.showFindings() : report.showLines();
}

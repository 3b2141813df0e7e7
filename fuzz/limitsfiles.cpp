/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "describe.h"
#include "fuzzing.h"
#include "limitsfixtures.h"
#include "limitsmodel.h"

using Fuzzing::require;
using Fuzzing::requireEqual;

// An input is a limits.conf and, behind lines that are "---", files of limits.d.

namespace
{
/** The memory for a rule of the shortest line, and for the first rule. */
constexpr size_t bytesForEachByte = 64;
constexpr size_t bytesForNothing = 1 << 16;

QString dropIn(int number)
{
    return dropInPath(QStringLiteral("%1.conf").arg(number, 3, 10, QLatin1Char('0')));
}

QByteArray lineOf(const LimitsParser::Field &rule)
{
    // The comment keeps white space at the end of the value.
    const QStringList columns{rule.domain, rule.type, rule.item, rule.value.toString(), QStringLiteral("#\n")};
    return columns.join(QLatin1Char(' ')).toLatin1();
}
}

void Target::prepare()
{
    clearLimits();
    readLimits(); // once for what stays in memory, such as texts
}

void Target::run(const QByteArray &input)
{
    const QList<QByteArray> files = Fuzzing::sections(input, 1).mid(0, 100);
    LimitsModel expected;
    Sandbox::write(limitsPath(), files.first());
    expected.read(files.first());
    for (int i = 1; i < files.size(); ++i) {
        Sandbox::write(dropIn(i), files.at(i));
        expected.read(files.at(i));
    }

    const size_t before = Fuzzing::allocatedBytes();
    LimitsParser limits = readLimits();
    const size_t after = Fuzzing::allocatedBytes();
    require(after <= before + bytesForNothing + bytesForEachByte * static_cast<size_t>(input.size()),
            QStringLiteral("Rules take memory in proportion to the files"));
    const QStringList rules = describe(limits.fields());
    requireEqual(rules.join(QLatin1Char('\n')), expected.rules().join(QLatin1Char('\n')), "The rules");

    for (int i = 1; i < files.size(); ++i) {
        Sandbox::remove(dropIn(i));
    }
    QByteArray written;
    const QList<LimitsParser::Field> fields = limits.fields();
    for (const LimitsParser::Field &rule : fields) {
        written += lineOf(rule);
    }
    Sandbox::write(limitsPath(), written);
    requireEqual(describe(readLimits().fields()).join(QLatin1Char('\n')),
                 rules.join(QLatin1Char('\n')),
                 "The rules, written and read again");
}

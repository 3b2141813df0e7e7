/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitfindings.h"
#include "limitwords.h"

#include <LimitsParser>

#include <KLocalizedString>

#include <algorithm>

namespace
{
using PamLimits::ItemKind;
using PamLimits::Line;
using PamLimits::LineKind;

/** The number that LimitsParser makes of a value. */
int parserValue(const QString &value)
{
    const bool isUnlimited = value == QLatin1String("unlimited") || value == QLatin1String("infinity");
    return isUnlimited ? -1 : value.toInt();
}

/** Whether LimitsParser has the value of @p line, too. */
bool isSameValue(const Line &line, const QString &value)
{
    if (kindOf(line.item) == ItemKind::Directory) {
        return value.startsWith(QLatin1Char('/')) && value == value.toLower();
    }
    const int number = parserValue(value);
    if (isSigned(kindOf(line.item))) {
        // Only the kernel cuts a number that is out of range.
        bool isNumber = false;
        value.toInt(&isNumber);
        return isNumber;
    }
    return line.value == PamLimits::unlimited ? number == -1 : line.value == quint64(number);
}

QString problemWithColumns(const QStringList &columns, const Line &line)
{
    const QString item = QString::fromLatin1(nameOf(line.item));
    if (columns.at(1) != columns.at(1).toLower() || columns.at(2) != item) {
        return i18n("capitals in type or item");
    }
    if (LimitsParser::valueType(item) == LimitsParser::Unknown) {
        return i18n("the item %1", item);
    }
    if (!isSameValue(line, columns.at(3))) {
        const QString &value = columns.at(3);
        const bool isDirectory = value.startsWith(QLatin1Char('/'));
        return i18n("the value, which it reads as %1", isDirectory ? value : QString::number(parserValue(value)));
    }
    return {};
}

/** The line as LimitsParser sees it. It does not know comments that begin within a line. */
QString parserText(const PamLimits::Rules &rules, const Line &line)
{
    const QByteArray &content = rules.fileOf(line).content;
    const int end = int(line.offset + line.length);
    const bool isFollowedByComment = end < content.size() && content.at(end) == '#';
    return QString::fromLatin1(content.mid(int(line.offset), int(line.length) + (isFollowedByComment ? 1 : 0)));
}

bool hasOtherBlank(const QString &column)
{
    return std::any_of(column.begin(), column.end(), [](QChar c) { return c.isSpace(); });
}

QString unseen(const PamLimits::Rules &rules, const Line &line)
{
    if (line.kind == LineKind::Exemption) {
        return i18n("an exemption from all limits");
    }
    if (rules.domainOf(line).range != PamLimits::Domain::Range::None) {
        return i18n("a range of IDs, which it takes for a name");
    }
    const QStringList columns =
        parserText(rules, line).split(QLatin1Char(' '), Qt::SkipEmptyParts).mid(0, PamLimits::columnCount);
    if (columns.size() < PamLimits::columnCount || std::any_of(columns.begin(), columns.end(), hasOtherBlank)) {
        return i18n("columns that are not separated by spaces");
    }
    return problemWithColumns(columns, line);
}
}

QString PamLimits::parserProblem(const Rules &rules, const Line &line)
{
    if (line.kind != LineKind::Rule && line.kind != LineKind::Exemption) {
        return {};
    }
    const QString reason = unseen(rules, line);
    return reason.isEmpty()
        ? QString()
        : i18n("PAM applies this; programs that read it through LimitsParser do not see it: %1", reason);
}

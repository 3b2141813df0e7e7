/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitschecker.h"

#include "recordtext.h"

#include <LimitsParser>

#include <KLazyLocalizedString>
#include <KLocalizedString>

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>

namespace
{
constexpr int columnCount = 4;
constexpr QLatin1Char tab('\t');

/** The columns as LimitsParser finds them: spaces alone separate, and a NUL byte ends the line. */
QStringList columnsOf(const QByteArray &line)
{
    return QString::fromLatin1(line.constData()).split(QLatin1Char(' '), Qt::SkipEmptyParts).mid(0, columnCount);
}

bool isUnlimited(const QString &value)
{
    return value == QLatin1String("unlimited") || value == QLatin1String("infinity");
}

/** Whether @p value is a number for LimitsParser. */
bool fits(const QString &value)
{
    bool ok = false;
    value.toInt(&ok);
    return ok;
}

bool isNumber(const QString &value)
{
    static const QRegularExpression digits(QStringLiteral("^\\s*[+-]?[0-9]+\\s*$"));
    return fits(value) || digits.match(value).hasMatch();
}

bool isPathWanted(const QStringList &columns)
{
    return LimitsParser::valueType(columns.at(2)) == LimitsParser::Path;
}

/** Whether tabs hide columns or are part of them. Around a number they do no harm. */
bool isTornByTabs(const QStringList &columns)
{
    if (columns.size() < columnCount) {
        return columns.join(tab).split(tab, Qt::SkipEmptyParts).size() >= columnCount;
    }
    return std::any_of(columns.begin(), columns.end(), [](const QString &column) {
        return column.contains(tab) && !isNumber(column);
    });
}

bool hasNoPath(const QStringList &columns)
{
    const QString &value = columns.at(3);
    const bool isPath = value.startsWith(QLatin1Char('/')) || isUnlimited(value) || value == QLatin1String("-1");
    return isPathWanted(columns) && !isPath;
}

bool hasNoNumber(const QStringList &columns)
{
    const QString &value = columns.at(3);
    return !isPathWanted(columns) && !isUnlimited(value) && !isNumber(value);
}

bool hasLargeNumber(const QStringList &columns)
{
    const QString &value = columns.at(3);
    return !isPathWanted(columns) && isNumber(value) && !fits(value);
}

bool isOutOfRange(const QStringList &columns)
{
    const LimitsParser::FieldDescriptor item = LimitsParser::fieldDescriptor(columns.at(2));
    const QString &value = columns.at(3);
    if (item.valueType == LimitsParser::Unknown || item.valueType == LimitsParser::Path) {
        return false;
    }
    if (isUnlimited(value)) {
        return item.minValue != -1;
    }
    return fits(value) && (value.toInt() < item.minValue || value.toInt() > item.maxValue);
}

bool hasUnknownItem(const QStringList &columns)
{
    return LimitsParser::valueType(columns.at(2)) == LimitsParser::Unknown;
}

bool hasUnknownType(const QStringList &columns)
{
    const QString &type = columns.at(1);
    return type != QLatin1String("soft") && type != QLatin1String("hard") && type != QLatin1String("-");
}

bool hasNumericRange(const QStringList &columns)
{
    static const QRegularExpression range(QStringLiteral("^[@%]?([0-9]+:[0-9]*|:[0-9]+)$"));
    return range.match(columns.at(0)).hasMatch();
}

struct Check {
    bool (*fails)(const QStringList &columns);
    KLazyLocalizedString reason;
};

const Check checks[] = {
    {hasNumericRange, kli18n("a numeric range in the domain applies to nobody")},
    {hasUnknownType, kli18n("the type is none of soft, hard and -")},
    {hasUnknownItem, kli18n("the item is not known")},
    {hasNoPath, kli18n("the value is not an absolute path")},
    {hasNoNumber, kli18n("the value is not a number")},
    {hasLargeNumber, kli18n("the number does not fit into 32 bits")},
    {isOutOfRange, kli18n("the value is outside the range of the item")},
};

QStringList limitsFiles()
{
    QStringList paths{QStringLiteral("/etc/security/limits.conf")};
    const QDir dropIns(QStringLiteral("/etc/security/limits.d"));
    const QFileInfoList entries = dropIns.entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo &entry : entries) {
        paths.append(entry.canonicalFilePath());
    }
    return paths;
}
}

QString LimitsFinding::visibleText() const
{
    return QString(text).replace(tab, QLatin1String("\\t"));
}

QString LimitsFinding::allReasons() const
{
    return reasons.join(QLatin1String(", "));
}

QStringList limitsLineProblems(const QByteArray &line)
{
    const QByteArray trimmed = line.trimmed();
    if (trimmed.isEmpty() || trimmed.startsWith('#')) {
        return {};
    }
    const QStringList columns = columnsOf(trimmed);
    if (isTornByTabs(columns)) {
        return {i18n("tabs between columns, only spaces separate them")};
    }
    if (columns.size() < columnCount) {
        return {i18n("fewer than four columns separated by spaces")};
    }
    QStringList problems;
    for (const Check &check : checks) {
        if (check.fails(columns)) {
            problems.append(check.reason.toString());
        }
    }
    return problems;
}

QList<LimitsFinding> checkLimits()
{
    QList<LimitsFinding> findings;
    const QStringList paths = limitsFiles();
    for (const QString &path : paths) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            continue;
        }
        int number = 0;
        for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine()) {
            ++number;
            const QStringList problems = limitsLineProblems(line);
            if (!problems.isEmpty()) {
                findings.append({path, number, RecordText::decode(QString::fromLatin1(line.trimmed())), problems});
            }
        }
    }
    return findings;
}

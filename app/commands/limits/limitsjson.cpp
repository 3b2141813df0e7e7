/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsjson.h"

#include "limitwords.h"

#include <limits>

namespace
{
using PamLimits::Item;
using PamLimits::Value;

QJsonValue toJson(Item item, const Value &value)
{
    switch (value.kind) {
    case Value::Kind::None:
        return QJsonValue::Null;
    case Value::Kind::Unlimited:
        return QStringLiteral("unlimited");
    case Value::Kind::Path:
        return LimitWords::fromFile(value.path);
    case Value::Kind::Number:
        break;
    }
    const bool isExact = isSigned(kindOf(item)) || value.number <= quint64(std::numeric_limits<qint64>::max());
    return isExact ? QJsonValue(qint64(value.number)) : QJsonValue(double(value.number));
}

QString problemOf(const PamLimits::Rules &rules, const PamLimits::Line &line)
{
    const QString ofFile = LimitWords::problem(rules.fileOf(line));
    return ofFile.isEmpty() ? LimitWords::problem(rules, line) : ofFile;
}

QJsonValue textOrNull(const QString &text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}
}

QJsonValue LimitsJson::place(const PamLimits::Rules &rules, int line)
{
    if (line < 0) {
        return QJsonValue::Null;
    }
    const PamLimits::Line &rule = rules.lines().at(line);
    return QJsonObject{
        {QStringLiteral("file"), rules.fileOf(rule).path},
        {QStringLiteral("line"), int(rule.number)},
    };
}

QJsonObject LimitsJson::answer(const PamLimits::SessionLimits &limits,
                               const PamLimits::Answer &answer,
                               const QString &key,
                               const QString &name)
{
    QJsonArray items;
    for (int i = 0; i < PamLimits::itemCount; ++i) {
        const auto item = Item(i);
        const PamLimits::Limit &limit = answer.limit(item);
        items.append(QJsonObject{
            {QStringLiteral("item"), QString::fromLatin1(nameOf(item))},
            {QStringLiteral("soft"), toJson(item, limit.soft)},
            {QStringLiteral("hard"), toJson(item, limit.hard)},
            {QStringLiteral("softFrom"), place(limits.rules(), limit.softLine)},
            {QStringLiteral("hardFrom"), place(limits.rules(), limit.hardLine)},
        });
    }
    QJsonObject object{
        {key, name},
        {QStringLiteral("complete"), limits.isComplete()},
        {QStringLiteral("limits"), items},
    };
    const QString failure = LimitWords::failure(limits, answer);
    if (!failure.isEmpty()) {
        object.insert(QStringLiteral("sessionFails"), failure);
    }
    if (answer.exemption >= 0) {
        object.insert(QStringLiteral("exemptFrom"), place(limits.rules(), answer.exemption));
    }
    return object;
}

QJsonArray LimitsJson::outcomes(const PamLimits::SessionLimits &limits, const QVector<PamLimits::Outcome> &outcomes)
{
    QJsonArray array;
    for (const PamLimits::Outcome &outcome : outcomes) {
        QJsonObject object = place(limits.rules(), outcome.line).toObject();
        const PamLimits::Line &line = limits.rules().lines().at(outcome.line);
        object.insert(QStringLiteral("text"), LimitWords::fromFile(limits.rules().textOf(line)));
        object.insert(QStringLiteral("soft"),
                      textOrNull(LimitWords::outcome(limits, outcome.parts[PamLimits::SoftHalf])));
        object.insert(QStringLiteral("hard"),
                      textOrNull(LimitWords::outcome(limits, outcome.parts[PamLimits::HardHalf])));
        object.insert(QStringLiteral("decides"), outcome.decides());
        array.append(object);
    }
    return array;
}

QJsonArray LimitsJson::findings(const QVector<PamLimits::Finding> &findings)
{
    QJsonArray array;
    for (const PamLimits::Finding &finding : findings) {
        array.append(QJsonObject{
            {QStringLiteral("file"), finding.file},
            {QStringLiteral("line"), finding.number > 0 ? QJsonValue(finding.number) : QJsonValue()},
            {QStringLiteral("text"), textOrNull(finding.text)},
            {QStringLiteral("statement"), finding.statement},
        });
    }
    return array;
}

QJsonArray LimitsJson::lines(const PamLimits::Rules &rules)
{
    QJsonArray array;
    for (int i = 0; i < rules.lines().size(); ++i) {
        const PamLimits::Line &line = rules.lines().at(i);
        QJsonObject object = place(rules, i).toObject();
        object.insert(QStringLiteral("text"), LimitWords::fromFile(rules.textOf(line)));
        object.insert(QStringLiteral("ignored"), textOrNull(problemOf(rules, line)));
        array.append(object);
    }
    return array;
}

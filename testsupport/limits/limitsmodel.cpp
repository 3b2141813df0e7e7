/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsmodel.h"

#include <QMap>

#include <algorithm>

void LimitsModel::read(const QByteArray &file)
{
    std::string line;
    const QByteArray bytes = file + '\n';
    for (const char byte : bytes) {
        if (byte != '\n') {
            line += byte;
            continue;
        }
        addRule(line);
        line.clear();
    }
}

QStringList LimitsModel::rules() const
{
    QStringList texts;
    for (const Rule &rule : m_rules) {
        texts.append(
            QStringList({rule.domain, rule.type, rule.item, rule.value, typeOf(rule.item)}).join(QLatin1String(" | ")));
    }
    return texts;
}

QString LimitsModel::valueFor(const UserInfo &user, const QString &item) const
{
    QStringList domains{user.name()};
    if (user.name() == QLatin1String("root")) {
        return firstOf(domains, item);
    }
    const QStringList groups = user.groupNames();
    addGroups(domains, groups, item);
    domains.append(QStringLiteral("<user id>"));
    domains.append(QStringLiteral("<group id>"));
    domains.append(QStringLiteral("*"));
    return firstOf(domains, item, user.uid() == 0, user.gid() == 0);
}

QString LimitsModel::valueFor(const GroupInfo &group, const QString &item) const
{
    QStringList domains;
    addGroups(domains, {group.name()}, item);
    domains.append(QStringLiteral("<group id>"));
    domains.append(QStringLiteral("*"));
    return firstOf(domains, item, false, group.gid() == 0);
}

bool LimitsModel::isSpace(char byte)
{
    return QByteArray(" \t\n\v\f\r").contains(byte);
}

void LimitsModel::addRule(std::string line)
{
    while (!line.empty() && isSpace(line.back())) {
        line.pop_back();
    }
    while (!line.empty() && isSpace(line.front())) {
        line.erase(0, 1);
    }
    if (!line.empty() && line.front() == '#') {
        return;
    }
    QStringList columns;
    QString column;
    for (const char byte : line + ' ') {
        if (byte == '\0') {
            break;
        }
        if (byte != ' ') {
            column += QLatin1Char(byte);
        } else if (!column.isEmpty()) {
            columns.append(column);
            column.clear();
        }
    }
    if (!column.isEmpty()) {
        columns.append(column);
    }
    if (columns.size() >= 4) {
        m_rules.append({columns.at(0), columns.at(1), columns.at(2), valueOf(columns.at(3))});
    }
}

QString LimitsModel::valueOf(const QString &text)
{
    if (text == QLatin1String("unlimited") || text == QLatin1String("infinity")) {
        return QStringLiteral("int -1");
    }
    if (text.at(0) == QLatin1Char('/')) {
        return QLatin1String("QString ") + text;
    }
    return QLatin1String("int ") + QString::number(numberOf(text.trimmed()));
}

int LimitsModel::numberOf(QString text)
{
    const bool negative = text.startsWith(QLatin1Char('-'));
    if (negative || text.startsWith(QLatin1Char('+'))) {
        text.remove(0, 1);
    }
    qint64 number = 0;
    for (const QChar digit : qAsConst(text)) {
        if (digit < QLatin1Char('0') || digit > QLatin1Char('9')) {
            return 0;
        }
        number = std::min<qint64>(10 * number + (digit.unicode() - '0'), Q_INT64_C(99999999999));
    }
    number = negative ? -number : number;
    return number == static_cast<int>(number) ? static_cast<int>(number) : 0;
}

QString LimitsModel::typeOf(const QString &item)
{
    static const QMap<QString, int> types{
        {QStringLiteral("msgqueue"), 0},  {QStringLiteral("as"), 1},           {QStringLiteral("core"), 1},
        {QStringLiteral("data"), 1},      {QStringLiteral("fsize"), 1},        {QStringLiteral("memlock"), 1},
        {QStringLiteral("stack"), 1},     {QStringLiteral("cpu"), 2},          {QStringLiteral("locks"), 3},
        {QStringLiteral("maxlogins"), 3}, {QStringLiteral("maxsyslogins"), 3}, {QStringLiteral("nice"), 3},
        {QStringLiteral("nofile"), 3},    {QStringLiteral("nproc"), 3},        {QStringLiteral("priority"), 3},
        {QStringLiteral("rtprio"), 3},    {QStringLiteral("sigpending"), 3},   {QStringLiteral("nonewprivs"), 4},
        {QStringLiteral("chroot"), 6},
    };
    return QString::number(types.value(item, -1));
}

void LimitsModel::addGroups(QStringList &domains, const QStringList &groups, const QString &item)
{
    for (const QString &name : groups) {
        domains.append(QLatin1Char('@') + name);
    }
    for (const QString &name : groups) {
        if (item == QLatin1String("maxlogins")) {
            domains.append(QLatin1Char('%') + name);
        }
    }
}

bool LimitsModel::namesIds(const QString &domain, const QString &sign)
{
    if (!domain.startsWith(sign + QLatin1String("//"))) {
        return false;
    }
    int position = sign.size() + 2;
    while (position < domain.size() && domain.at(position) == QLatin1Char('d')) {
        ++position;
    }
    return domain.mid(position, 3) == QLatin1String("://");
}

QString LimitsModel::firstOf(const QStringList &domains, const QString &item, bool isUser0, bool isGroup0) const
{
    for (const QString &domain : domains) {
        for (const Rule &rule : m_rules) {
            if (rule.item != item) {
                continue;
            }
            const bool byUserId = domain == QLatin1String("<user id>") && isUser0 && namesIds(rule.domain, QString());
            const bool byGroupId =
                domain == QLatin1String("<group id>") && isGroup0 && namesIds(rule.domain, QStringLiteral("@"));
            if (rule.domain == domain || byUserId || byGroupId) {
                return rule.value;
            }
        }
    }
    return QStringLiteral("null");
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsparser.h"

#include "linereader_p.h"

#include <KLocalizedString>

#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>

namespace
{
const QString mainFile = QStringLiteral("/etc/security/limits.conf");
const QString dropInDirectory = QStringLiteral("/etc/security/limits.d");

/** The main file and, with links resolved, the drop-ins. */
QStringList limitsFiles()
{
    QStringList paths{mainFile};
    const QFileInfoList entries = QDir(dropInDirectory).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo &entry : entries) {
        paths.append(entry.canonicalFilePath());
    }
    return paths;
}

using Columns = std::array<QLatin1String, 4>;

/** Finds the first columns of @p line, which a NUL byte ends early; false when it has too few. */
bool split(QLatin1String line, Columns &columns)
{
    const char *end = std::find(line.begin(), line.end(), '\0');
    const char *position = line.begin();
    for (QLatin1String &column : columns) {
        const char *start = std::find_if(position, end, [](char byte) { return byte != ' '; });
        if (start == end) {
            return false;
        }
        position = std::find(start, end, ' ');
        column = QLatin1String(start, position);
    }
    return true;
}

/** Keeps texts it has seen lately, so that the same word in many rules is one string. */
class TextCache
{
public:
    const QString &text(QLatin1String word)
    {
        QString &known = m_texts.at(qHash(word) % m_texts.size());
        if (known != word) {
            known = word;
        }
        return known;
    }

private:
    std::array<QString, 64> m_texts;
};

QVariant toValue(const QString &text)
{
    if (text == QLatin1String("unlimited") || text == QLatin1String("infinity")) {
        return -1;
    }
    if (text.startsWith(QLatin1Char('/'))) {
        return text;
    }
    return text.toInt();
}

class RuleFactory
{
public:
    LimitsParser::Field rule(const Columns &columns)
    {
        const auto &[domain, type, item, value] = columns;
        LimitsParser::Field rule;
        rule.domain = m_domains.text(domain);
        rule.type = m_types.text(type);
        rule.item = m_items.text(item);
        rule.value = toValue(m_values.text(value));
        rule.valueType = LimitsParser::valueType(rule.item);
        return rule;
    }

private:
    TextCache m_domains;
    TextCache m_types;
    TextCache m_items;
    TextCache m_values;
};

void readRules(QFile &file, RuleFactory &factory, QList<LimitsParser::Field> &rules)
{
    LineReader lines(file);
    while (lines.next()) {
        const QLatin1String line = lines.trimmed();
        Columns columns;
        if (!line.startsWith(QLatin1Char('#')) && split(line, columns)) {
            rules.append(factory.rule(columns));
        }
    }
}
}

LimitsParser::LimitsParser() = default;

bool LimitsParser::readLimitsConf(QString &error)
{
    m_fields.clear();
    RuleFactory factory;
    const QStringList paths = limitsFiles();
    for (const QString &path : paths) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            error = ki18n("Unable to open file \"%1\": %2.").subs(path).subs(file.errorString()).toString();
            return false;
        }
        readRules(file, factory, m_fields);
    }
    return true;
}

QList<LimitsParser::Field> LimitsParser::fields() const
{
    return m_fields;
}

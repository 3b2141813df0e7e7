/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "adduserconf_p.h"

#include <QFile>
#include <QStringList>

#include <optional>

namespace
{
/** The pattern of a line like NAME_REGEX="[a-z]+"; nothing for a line of any other form. */
std::optional<QString> namePattern(const QString &line)
{
    if (!line.startsWith(QLatin1String("NAME_REGEX="))) {
        return std::nullopt;
    }
    const QStringList sides = line.split(QLatin1Char('='));
    if (sides.size() != 2) {
        return std::nullopt;
    }
    const QStringList quoted = sides.at(1).split(QLatin1Char('"'));
    if (quoted.size() != 3) {
        return std::nullopt;
    }
    return quoted.at(1);
}
}

QString adduserNamePattern()
{
    QString pattern;
    QFile file(QStringLiteral("/etc/adduser.conf"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return pattern;
    }
    QByteArray line;
    // A line without an end is the last one: what is appended meanwhile is no line of its own.
    do {
        line = file.readLine();
        if (const auto accepted = namePattern(QString::fromLatin1(line.constData(), line.size()))) {
            pattern = *accepted;
        }
    } while (line.endsWith('\n'));
    return pattern;
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "fuzzing.h"
#include "sandbox.h"

#include <UserUtils>

#include <QRegularExpressionValidator>

#include <memory>

// An input is the whole file.

namespace
{
/** The pattern in one line without its end; if it has none, @p pattern from the lines before. */
QByteArray patternOf(const QByteArray &line, const QByteArray &pattern)
{
    const QByteArray start = "NAME_REGEX=";
    if (line.left(start.size()) != start || line.count('=') != 1 || line.count('"') != 2) {
        return pattern;
    }
    const int quote = line.indexOf('"');
    return line.mid(quote + 1, line.lastIndexOf('"') - quote - 1);
}

/** Qt drops every carriage return in the first line of a text file, but only those at the end of other lines. */
QString expectedPattern(const QByteArray &file)
{
    QList<QByteArray> lines = file.split('\n');
    lines.first().replace('\r', "");
    QByteArray pattern;
    for (const QByteArray &line : qAsConst(lines)) {
        pattern = patternOf(line, pattern);
    }
    return pattern.isEmpty() ? QStringLiteral("[a-z][a-z0-9\\_\\-]*")
                             : QString::fromLatin1(pattern.constData(), pattern.size());
}

QString patternInForce()
{
    const std::unique_ptr<QValidator> validator(UserUtils::createUserNameValidator(nullptr));
    const auto *expression = qobject_cast<QRegularExpressionValidator *>(validator.get());
    Fuzzing::require(expression, QStringLiteral("The validator has an expression"));
    return expression->regularExpression().pattern();
}
}

void Target::prepare()
{
}

void Target::run(const QByteArray &input)
{
    Sandbox::write(adduserConfPath(), input);
    const QString pattern = patternInForce();
    Fuzzing::requireEqual(pattern, expectedPattern(input), "The pattern");

    // The second line, so that carriage returns stay.
    Sandbox::write(adduserConfPath(), "\nNAME_REGEX=\"" + pattern.toLatin1() + "\"\n");
    Fuzzing::requireEqual(patternInForce(), pattern, "The pattern, written and read again");
}

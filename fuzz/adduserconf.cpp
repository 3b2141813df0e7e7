/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "fuzzing.h"
#include "sandbox.h"

#include <UserUtils>

#include <QRegularExpressionValidator>

#include <memory>

// An input is the whole file.

namespace
{
QString adduserConf()
{
    return QStringLiteral("/etc/adduser.conf");
}

/** The pattern of one line without its end; @p pattern, which another one set, where it has none. */
QByteArray patternOf(const QByteArray &line, const QByteArray &pattern)
{
    const QByteArray start = "NAME_REGEX=";
    if (line.left(start.size()) != start || line.count('=') != 1 || line.count('"') != 2) {
        return pattern;
    }
    const int quote = line.indexOf('"');
    return line.mid(quote + 1, line.lastIndexOf('"') - quote - 1);
}

QString expectedPattern(const QByteArray &file)
{
    QByteArray pattern;
    const QList<QByteArray> lines = file.split('\n');
    for (const QByteArray &line : lines) {
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

/** The toolkit drops carriage returns in the first line of a text file, and those at the end of others. */
QString withoutReturns(QString pattern)
{
    return pattern.remove(QLatin1Char('\r'));
}
}

void Target::prepare()
{
}

void Target::run(const QByteArray &input)
{
    Sandbox::write(adduserConf(), input);
    const QString pattern = withoutReturns(patternInForce());
    Fuzzing::requireEqual(pattern, withoutReturns(expectedPattern(input)), "The pattern");

    if (!pattern.isEmpty()) {
        Sandbox::write(adduserConf(), "NAME_REGEX=\"" + pattern.toLatin1() + "\"\n");
        Fuzzing::requireEqual(patternInForce(), pattern, "The pattern, written and read again");
    }
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "fuzzing.h"
#include "sandbox.h"

#include <UserUtils>

#include <QRegularExpressionValidator>

#include <algorithm>
#include <memory>

using Fuzzing::require;

// An input is the value of NAME_REGEX in its first line, then texts to check in UTF-8, a line each.
// "\uD800" and the like in these is one UTF-16 unit, which need not be half of a pair.

namespace
{
constexpr int mostTexts = 32;
constexpr int longestName = 32;

using Validator = std::unique_ptr<QValidator>;

QString unescaped(const QByteArray &line)
{
    QString text = QString::fromUtf8(line);
    for (int i = text.indexOf(QLatin1String("\\u")); i >= 0; i = text.indexOf(QLatin1String("\\u"), i + 1)) {
        text.replace(i, 6, QChar(text.mid(i + 2, 4).toUShort(nullptr, 16)));
    }
    return text;
}

struct Outcome {
    QValidator::State state = QValidator::Invalid;
    QString text;
    int position = 0;
};

Outcome outcomeOf(const QValidator &validator, const QString &text)
{
    Outcome outcome{QValidator::Invalid, text, 0};
    outcome.state = validator.validate(outcome.text, outcome.position);
    require(outcome.text == text, QStringLiteral("No validator changes the text: ") + text);
    return outcome;
}

bool isSmallLetter(QChar c)
{
    return c >= QLatin1Char('a') && c <= QLatin1Char('z');
}

bool isInsideName(QChar c)
{
    return isSmallLetter(c) || (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char('_')
        || c == QLatin1Char('-');
}

QValidator::State groupNameState(const QString &text)
{
    if (text.isEmpty()) {
        return QValidator::Intermediate;
    }
    if (!isSmallLetter(text.at(0)) && text.at(0) != QLatin1Char('_')) {
        return QValidator::Invalid;
    }
    const QString rest = text.mid(1, text.endsWith(QLatin1Char('$')) ? text.size() - 2 : -1);
    return std::all_of(rest.begin(), rest.end(), isInsideName) ? QValidator::Acceptable : QValidator::Invalid;
}

/** Qt matches nothing in a text with half of a surrogate pair. */
QValidator::State gecosState(const QString &text)
{
    return text.isValidUtf16() && text.count(QLatin1Char(',')) <= 4 ? QValidator::Acceptable : QValidator::Invalid;
}

void checkName(const QValidator &validator, const QString &text, QValidator::State expected)
{
    const Outcome outcome = outcomeOf(validator, text);
    if (text.size() > longestName) {
        require(outcome.state == QValidator::Invalid, QStringLiteral("Long names are refused: ") + text);
        require(outcome.position == 0, QStringLiteral("Long names leave the position: ") + text);
    } else {
        require(outcome.state == expected, QStringLiteral("%1 is %2").arg(text).arg(outcome.state));
    }
}

/** The verdict on a name by a single match, without partial matching. */
void checkUserName(const QValidator &validator, const QRegularExpression &whole, const QString &text)
{
    const QValidator::State state = outcomeOf(validator, text).state;
    if (text.size() > longestName) {
        require(state == QValidator::Invalid, QStringLiteral("Long user names are refused: ") + text);
        return;
    }
    const QRegularExpressionMatch match = whole.match(text);
    if (match.isValid()) { // otherwise Qt may have given up
        require((state == QValidator::Acceptable) == match.hasMatch(),
                QStringLiteral("%1 is %2 by %3").arg(text).arg(state).arg(whole.pattern()));
    } else if (!whole.isValid()) {
        require(state != QValidator::Acceptable, QStringLiteral("An invalid pattern accepts nothing"));
    }
}
}

void Target::prepare()
{
}

void Target::run(const QByteArray &input)
{
    const QList<QByteArray> lines = input.split('\n');
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"" + lines.first() + "\"\n");
    const Validator userName(UserUtils::createUserNameValidator(nullptr));
    const Validator groupName(UserUtils::createGroupNameValidator(nullptr));
    const Validator gecos(UserUtils::createGecosValidator(nullptr));

    const auto *expression = qobject_cast<QRegularExpressionValidator *>(userName.get());
    require(expression, QStringLiteral("The validator has an expression"));
    const QRegularExpression whole(QLatin1String("\\A(?:") + expression->regularExpression().pattern()
                                   + QLatin1String(")\\z"));
    const QList<QByteArray> texts = lines.mid(1, mostTexts);
    for (const QByteArray &line : texts) {
        const QString text = unescaped(line);
        checkUserName(*userName, whole, text);
        checkName(*groupName, text, groupNameState(text));
        require(outcomeOf(*gecos, text).state == gecosState(text), QStringLiteral("GECOS with commas: ") + text);
    }
}

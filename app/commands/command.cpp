/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "command.h"

#include "visibletext.h"

#include <KLocalizedString>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>

QList<QCommandLineOption> noOptions()
{
    return {};
}

QCommandLineOption helpOption()
{
    return {{QStringLiteral("h"), QStringLiteral("help")}, i18n("Show this help.")};
}

int run(const Command &command, const QStringList &arguments)
{
    const QString name = QString::fromLatin1(command.name);
    const QString operand = QString::fromLatin1(command.operand);
    const QCommandLineOption help = helpOption();
    QCommandLineParser parser;
    parser.setApplicationDescription(command.summary.toString());
    parser.addOption(help);
    parser.addOptions(command.options());
    parser.addPositionalArgument(
        name, command.summary.toString(), QStringLiteral("%1 %2").arg(name, operand).trimmed());

    if (!parser.parse(arguments)) {
        return usageError(parser.errorText());
    }
    if (parser.isSet(help)) {
        return print(parser.helpText());
    }
    const QStringList operands = parser.positionalArguments().mid(1);
    const int expected = operand.isEmpty() ? 0 : 1;
    if (operands.size() > expected) {
        return usageError(i18n("Unexpected argument '%1'.", operands.at(expected)));
    }
    if (operands.size() < expected && !operand.startsWith(QLatin1Char('['))) {
        return usageError(i18n("The argument %1 is missing.", operand));
    }
    return command.run(parser, operands.value(0));
}

int print(const QByteArray &text)
{
    QFile output;
    if (output.open(stdout, QIODevice::WriteOnly) && output.write(text) == text.size() && output.flush()) {
        return Success;
    }
    return failure(i18n("Cannot write the output: %1", output.errorString()));
}

int print(const QString &text)
{
    return print(text.toLocal8Bit());
}

void printError(const QString &message)
{
    const QString line =
        QCoreApplication::applicationName() + QLatin1String(": ") + VisibleText::fromText(message) + QLatin1Char('\n');
    fputs(qPrintable(line), stderr);
}

int failure(const QString &message)
{
    printError(message);
    return Failure;
}

int usageError(const QString &message)
{
    printError(message);
    printError(i18n("Try '%1 --help'.", QCoreApplication::applicationName()));
    return UsageError;
}

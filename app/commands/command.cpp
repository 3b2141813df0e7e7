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

namespace
{
/** "ormel-users", or "ormel-users users" while that command runs. */
QString &runningProgram()
{
    static QString name = QCoreApplication::applicationName();
    return name;
}

bool isOptional(const QString &operand)
{
    return operand.startsWith(QLatin1Char('['));
}

bool isRepeated(const QString &operand)
{
    return operand.endsWith(QLatin1String("...]"));
}

/** The one operand of @p command that @p operands lacks, or one too many; Success when they are right. */
int checkOperands(const QString &operand, const QStringList &operands)
{
    const int most = operand.isEmpty() ? 0 : 1;
    if (operands.size() > most && !isRepeated(operand)) {
        return usageError(i18n("Unexpected argument '%1'.", operands.at(most)));
    }
    if (operands.size() < most && !isOptional(operand)) {
        return usageError(i18n("The argument %1 is missing.", operand));
    }
    return Success;
}

QString withDashes(const QString &option)
{
    return QLatin1String(option.size() > 1 ? "--" : "-") + option;
}

/** UsageError, with a message, when an option is missing that @p command requires. */
int checkOptions(const Command &command, const QCommandLineParser &options)
{
    const QString &required = command.requiredOption;
    if (!required.isEmpty() && options.value(required).isEmpty()) {
        return usageError(i18n("The option %1 is missing.", withDashes(required)));
    }
    return Success;
}

/** The words that follow the options: an option that is required, with its value, and the operand. */
QString requiredWords(const Command &command)
{
    QStringList words;
    const QList<QCommandLineOption> options = command.options();
    for (const QCommandLineOption &option : options) {
        if (option.names().contains(command.requiredOption)) {
            words += {withDashes(command.requiredOption), option.valueName()};
        }
    }
    words.append(QString::fromLatin1(command.operand));
    return words.join(QLatin1Char(' '));
}

void printLine(const QString &program, const QString &message)
{
    const QString line = program + QLatin1String(": ") + VisibleText::fromText(message) + QLatin1Char('\n');
    fputs(qPrintable(line), stderr);
}
}

QList<QCommandLineOption> noOptions()
{
    return {};
}

QString jsonOption()
{
    return QStringLiteral("json");
}

QCommandLineOption helpOption()
{
    return {{QStringLiteral("h"), QStringLiteral("help")}, i18n("Show this help.")};
}

QString helpText(const QCommandLineParser &parser, const QString &usage)
{
    // The first line names the program by its path.
    const QString line = i18n("Usage: %1", QCoreApplication::applicationName() + QLatin1Char(' ') + usage);
    return line + QLatin1Char('\n') + parser.helpText().section(QLatin1Char('\n'), 1);
}

int run(const Command &command, const QStringList &arguments, bool hasDisplay)
{
    const QString name = QString::fromLatin1(command.name);
    const QString operand = QString::fromLatin1(command.operand);
    runningProgram() = QCoreApplication::applicationName() + QLatin1Char(' ') + name;
    QCommandLineParser parser;
    parser.setApplicationDescription(command.summary.toString());
    parser.addOption(helpOption());
    parser.addOptions(command.options());

    if (!parser.parse(arguments.mid(1))) {
        return usageError(parser);
    }
    if (parser.isSet(helpOption())) {
        return print(helpText(parser,
                              i18nc("a command with its operand, as in 'users [options] [NAME...]'",
                                    "%1 [options] %2",
                                    name,
                                    requiredWords(command))
                                  .trimmed()));
    }
    const int operandStatus = checkOperands(operand, parser.positionalArguments());
    if (operandStatus != Success) {
        return operandStatus;
    }
    const int optionStatus = checkOptions(command, parser);
    if (optionStatus != Success) {
        return optionStatus;
    }
    if (command.interface == Command::Interface::Window && !hasDisplay) {
        return displayFailure();
    }
    return command.run(parser, parser.positionalArguments().value(0));
}

int displayFailure()
{
    return failure(i18n("There is no display: neither DISPLAY nor WAYLAND_DISPLAY is set."));
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
    printLine(QCoreApplication::applicationName(), message);
}

int failure(const QString &message)
{
    printError(message);
    return Failure;
}

int usageError(const QString &message)
{
    printLine(runningProgram(), message);
    printLine(runningProgram(), i18n("Try '%1 --help'.", runningProgram()));
    return UsageError;
}

int usageError(const QCommandLineParser &parser)
{
    const QStringList unknown = parser.unknownOptionNames();
    return usageError(unknown.isEmpty() ? parser.errorText()
                                        : i18n("There is no option '%1'.", withDashes(unknown.constFirst())));
}

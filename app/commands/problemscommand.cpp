/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "problemscommand.h"

#include "machinecheck.h"
#include "problemwords.h"
#include "visibletext.h"

#include <KLocalizedString>

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace
{
QJsonObject toJson(const Problem &problem)
{
    QJsonObject object{
        {QStringLiteral("id"), problem.id()},
        {QStringLiteral("severity"), ProblemWords::id(problem.severity())},
        {QStringLiteral("file"), problem.file},
        {QStringLiteral("line"), problem.line > 0 ? QJsonValue(problem.line) : QJsonValue()},
        {QStringLiteral("text"), problem.text()},
        {QStringLiteral("meaning"), problem.meaning()},
        {QStringLiteral("remedy"), problem.remedy()},
    };
    if (!problem.user.isNull()) {
        object.insert(QStringLiteral("user"), problem.user);
    }
    if (!problem.group.isNull()) {
        object.insert(QStringLiteral("group"), problem.group);
    }
    return object;
}

QJsonObject toJson(const UnreadFile &file)
{
    return {{QStringLiteral("file"), file.path}, {QStringLiteral("reason"), file.reason}};
}

template<typename Item>
QJsonArray toJson(const QList<Item> &items)
{
    QJsonArray array;
    for (const Item &item : items) {
        array.append(toJson(item));
    }
    return array;
}

int printJson(const MachineCheck &check)
{
    const QJsonObject object{
        {QStringLiteral("problems"), toJson(check.problems)},
        {QStringLiteral("unreadFiles"), toJson(check.unreadFiles)},
    };
    return print(VisibleText::fromJson(QJsonDocument(object).toJson()));
}

QString lineOf(const Problem &problem)
{
    return i18nc("file:line: kind of problem: what was found",
                 "%1: %2: %3",
                 VisibleText::fromText(problem.place()),
                 ProblemWords::severity(problem.severity()),
                 VisibleText::fromText(problem.text()));
}

/** The meaning and the remedy are printed once for all problems of a kind, below them. */
int printText(const QList<Problem> &problems)
{
    QString text;
    for (int i = 0; i < problems.size(); ++i) {
        const Problem &problem = problems.at(i);
        text += lineOf(problem) + QLatin1Char('\n');
        if (i + 1 == problems.size() || problems.at(i + 1).kind != problem.kind) {
            text += QStringLiteral("    %1\n    %2\n").arg(problem.meaning(), problem.remedy());
        }
    }
    return print(text);
}

int print(const MachineCheck &check, bool isComplete, bool asJson)
{
    if (asJson) {
        return printJson(check);
    }
    const bool isGood = check.problems.isEmpty() && isComplete;
    return isGood ? print(i18n("No problems found.") + QLatin1Char('\n')) : printText(check.problems);
}

void reportUnread(const QList<UnreadFile> &files)
{
    for (const UnreadFile &file : files) {
        printError(file.isExpected ? i18n("'%1' is not checked: %2", file.path, file.reason)
                                   : i18n("Cannot read '%1': %2", file.path, file.reason));
    }
}
}

QList<QCommandLineOption> problemsOptions()
{
    return {QCommandLineOption(jsonOption(), i18n("Print JSON instead of text."))};
}

int listProblems(const QCommandLineParser &options, const QString & /*operand*/)
{
    const MachineCheck check = MachineCheck::run();
    reportUnread(check.unreadFiles);
    const bool isComplete = std::all_of(
        check.unreadFiles.begin(), check.unreadFiles.end(), [](const UnreadFile &file) { return file.isExpected; });
    const int printed = print(check, isComplete, options.isSet(jsonOption()));
    if (printed != Success) {
        return printed;
    }
    if (!isComplete) {
        return Unreadable;
    }
    return check.problems.isEmpty() ? Success : Failure;
}

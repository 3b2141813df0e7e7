/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsreport.h"

#include "command.h"
#include "limitsjson.h"
#include "limitwords.h"
#include "progress.h"
#include "recordtext.h"
#include "texttable.h"
#include "visibletext.h"

#include <KLocalizedString>

#include <QJsonDocument>

namespace
{
using PamLimits::Item;

PamLimits::SessionLimits readLimits()
{
    Progress progress;
    return PamLimits::SessionLimits::read([&progress](int percent) { progress.show(percent); });
}

template<typename Json>
int printJson(const Json &json)
{
    return print(VisibleText::fromJson(QJsonDocument(json).toJson()));
}

QString shown(Item item, const PamLimits::Value &value)
{
    return value.isSet() ? LimitWords::fromFile(value.toText(item)) : i18nc("@info of a limit", "not set");
}

QString numbered(const QString &file, int number)
{
    return number > 0 ? file + QLatin1Char(':') + QString::number(number) : file;
}

/** Ends a sentence on a line of its own. */
int printSentence(const QString &sentence)
{
    return print(VisibleText::fromText(sentence) + QLatin1Char('\n'));
}

/** Why pam_limits ignores a line, or how it understands it. */
QString meaning(const PamLimits::Rules &rules, const PamLimits::Line &line)
{
    QString ofFile = LimitWords::problem(rules.fileOf(line));
    QString ofLine = LimitWords::problem(rules, line);
    if (!ofFile.isEmpty()) {
        return ofFile;
    }
    if (!ofLine.isEmpty()) {
        return i18n("PAM ignores this line: %1", ofLine);
    }
    const QString domain = LimitWords::domain(rules.domainOf(line));
    if (line.kind == PamLimits::LineKind::Exemption) {
        return i18n("%1: exempt from all limits", domain);
    }
    return domain + QLatin1String(": ") + LimitWords::description(line.item);
}
}

LimitsReport::LimitsReport(bool asJson)
    : m_asJson(asJson)
    , m_limits(readLimits())
{
}

int LimitsReport::finish(int status) const
{
    const QStringList errors = m_limits.errors();
    for (const QString &error : errors) {
        printError(i18n("Cannot read %1", error));
    }
    if (!errors.isEmpty()) {
        printError(i18n("The answer is not complete."));
        return Unreadable;
    }
    return status;
}

int LimitsReport::showUser(const QString &name, const QString &item) const
{
    const QStringList texts = RecordText::encode(name);
    for (const QString &text : texts) {
        if (const auto account = m_limits.database().find(text.toLatin1())) {
            return show(*account, QStringLiteral("user"), name, item);
        }
    }
    return failure(i18n("There is no user '%1'.", name));
}

int LimitsReport::showGroup(const QString &name, const QString &item) const
{
    const QStringList texts = RecordText::encode(name);
    for (const QString &text : texts) {
        if (const auto gid = m_limits.database().gidOf(text.toLatin1())) {
            return show(PamLimits::Account::memberOf(*gid), QStringLiteral("group"), name, item);
        }
    }
    return failure(i18n("There is no group '%1'.", name));
}

int LimitsReport::show(const PamLimits::Account &account,
                       const QString &key,
                       const QString &name,
                       const QString &itemName) const
{
    if (itemName.isNull()) {
        return showAnswer(m_limits.answer(account), key, name);
    }
    Item item = Item::As;
    if (!findItem(itemName.toLatin1().toStdString(), item)) {
        return usageError(i18n("There is no item '%1'.", itemName));
    }
    return explain(account, item, key, name);
}

int LimitsReport::showAnswer(const PamLimits::Answer &answer, const QString &key, const QString &name) const
{
    if (m_asJson) {
        return finish(printJson(LimitsJson::answer(m_limits, answer, key, name)));
    }
    if (answer.exemption >= 0) {
        printSentence(i18n("No limits are set: %1", LimitWords::source(m_limits.rules(), answer.exemption)));
    }
    const QString failure = LimitWords::failure(m_limits, answer);
    if (!failure.isEmpty()) {
        printSentence(i18n("No session can be opened: %1", failure));
    }
    TextTable table({{i18n("Item")},
                     {i18n("Soft"), Qt::AlignRight},
                     {i18n("Hard"), Qt::AlignRight},
                     {i18n("Set by")},
                     {i18n("Description")}});
    for (int i = 0; i < PamLimits::itemCount; ++i) {
        const auto item = Item(i);
        const PamLimits::Limit &limit = answer.limit(item);
        table.addRow({
            QString::fromLatin1(nameOf(item)),
            shown(item, limit.soft),
            shown(item, limit.hard),
            LimitWords::source(m_limits.rules(), limit),
            LimitWords::description(item),
        });
    }
    return finish(print(table.toString()));
}

int LimitsReport::explain(const PamLimits::Account &account, Item item, const QString &key, const QString &name) const
{
    const QVector<PamLimits::Outcome> outcomes = m_limits.outcomes(account, item);
    if (m_asJson) {
        return finish(printJson(QJsonObject{
            {key, name},
            {QStringLiteral("item"), QString::fromLatin1(nameOf(item))},
            {QStringLiteral("complete"), m_limits.isComplete()},
            {QStringLiteral("lines"), LimitsJson::outcomes(m_limits, outcomes)},
        }));
    }
    if (outcomes.isEmpty()) {
        return finish(printSentence(i18n("No line sets %1.", QString::fromLatin1(nameOf(item)))));
    }
    TextTable table({{i18n("Line")}, {i18n("Text")}, {i18n("Soft")}, {i18n("Hard")}});
    for (const PamLimits::Outcome &outcome : outcomes) {
        const PamLimits::Line &line = m_limits.rules().lines().at(outcome.line);
        table.addRow({
            m_limits.rules().placeOf(line),
            LimitWords::fromFile(m_limits.rules().textOf(line)),
            LimitWords::outcome(m_limits, outcome.parts[PamLimits::SoftHalf]),
            LimitWords::outcome(m_limits, outcome.parts[PamLimits::HardHalf]),
        });
    }
    return finish(print(table.toString()));
}

QVector<int> LimitsReport::linesAt(const QString &place) const
{
    QVector<int> found;
    const QVector<PamLimits::Line> &lines = m_limits.rules().lines();
    for (int i = 0; i < lines.size(); ++i) {
        const PamLimits::Line &line = lines.at(i);
        if (place.endsWith(QLatin1Char(':') + QString::number(line.number))
            && place == m_limits.rules().placeOf(line)) {
            found.append(i);
        }
    }
    return found;
}

int LimitsReport::showAccounts(const QString &place) const
{
    const QVector<int> lines = linesAt(place);
    if (lines.isEmpty()) {
        return failure(i18n("There is no rule at '%1'.", place));
    }
    QStringList names;
    const QVector<PamLimits::Account> accounts = m_limits.database().all();
    for (const int line : lines) {
        const QList<QByteArray> found = decidedBy(line, m_limits, accounts);
        for (const QByteArray &name : found) {
            names.append(LimitWords::fromFile(name));
        }
    }
    names.removeDuplicates();
    if (m_asJson) {
        QJsonObject object = LimitsJson::place(m_limits.rules(), lines.first()).toObject();
        object.insert(QStringLiteral("complete"), m_limits.isComplete());
        object.insert(QStringLiteral("accounts"), QJsonArray::fromStringList(names));
        return finish(printJson(object));
    }
    if (names.isEmpty()) {
        return finish(printSentence(i18n("It decides nothing for any account.")));
    }
    TextTable table({{i18n("User")}});
    for (const QString &name : qAsConst(names)) {
        table.addRow({name});
    }
    return finish(print(table.toString()));
}

int LimitsReport::showFindings() const
{
    PamLimits::LimitUsage usage(m_limits);
    const QVector<PamLimits::Account> accounts = m_limits.database().all();
    {
        Progress progress;
        for (int i = 0; i < accounts.size(); ++i) {
            usage.add(accounts.at(i));
            progress.show(i * 100 / accounts.size());
        }
    }
    usage.finish();
    const QVector<PamLimits::Finding> findings = PamLimits::Findings(m_limits, usage).all();
    const int status = findings.isEmpty() ? Success : Failure;
    if (m_asJson) {
        const int printed = printJson(LimitsJson::findings(findings));
        return finish(printed == Success ? status : printed);
    }
    if (findings.isEmpty()) {
        return finish(m_limits.isComplete() ? printSentence(i18n("No problems found.")) : Success);
    }
    TextTable table({{i18n("Line")}, {i18n("Problem")}, {i18n("Text")}});
    for (const PamLimits::Finding &finding : findings) {
        table.addRow({numbered(finding.file, finding.number), finding.statement, finding.text});
    }
    print(table.toString());
    return finish(status);
}

int LimitsReport::showLines() const
{
    const PamLimits::Rules &rules = m_limits.rules();
    if (m_asJson) {
        return finish(printJson(LimitsJson::lines(rules)));
    }
    TextTable table({{i18n("Line")}, {i18n("Text")}, {i18n("Meaning")}});
    for (const PamLimits::Line &line : rules.lines()) {
        table.addRow({rules.placeOf(line), LimitWords::fromFile(rules.textOf(line)), meaning(rules, line)});
    }
    return finish(print(table.toString()));
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsprogram.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace
{
QJsonValue jsonOf(const Result &result)
{
    const QJsonDocument document = QJsonDocument::fromJson(result.output.toUtf8());
    return document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
}

/** The entry of @p item in the answer for a user. */
QJsonObject limitOf(const QJsonValue &answer, const QString &item)
{
    const QJsonArray limits = answer.toObject().value(QStringLiteral("limits")).toArray();
    for (const QJsonValue &limit : limits) {
        if (limit.toObject().value(QStringLiteral("item")) == item) {
            return limit.toObject();
        }
    }
    return {};
}

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}
}

class LimitsJsonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void printsLines();
    void printsSession();
    void explainsItem();
    void listsAccountsOfRule();
    void printsFindings();
    void tellsThatNoSessionIsOpened();
    void tellsThatNoLimitsAreSet();
};

void LimitsJsonTest::init()
{
    setLimitsOfPupils();
}

void LimitsJsonTest::printsLines()
{
    Sandbox::write(limitsPath(), "* soft core 0\n\n* both core 1\n");
    const Result result = limits({json()});
    QCOMPARE(result.status, 0);
    const QJsonArray lines = jsonOf(result).toArray();
    QCOMPARE(lines.size(), 2);
    QCOMPARE(compact(lines.at(0).toObject()),
             QStringLiteral("{\"file\":\"/etc/security/limits.conf\",\"ignored\":null,\"line\":1,"
                            "\"text\":\"* soft core 0\"}"));
    QCOMPARE(compact(lines.at(1).toObject()),
             QStringLiteral("{\"file\":\"/etc/security/limits.conf\","
                            "\"ignored\":\"the type 'both' is not soft, hard or -\",\"line\":3,"
                            "\"text\":\"* both core 1\"}"));
}

void LimitsJsonTest::printsSession()
{
    Sandbox::write(dropInPath(QStringLiteral("x.conf")), "* hard fsize 5000000000\n* - as -1\n* - nice -5\n");
    const Result result = limitsOf("--user", "alice", {json()});
    QCOMPARE(result.status, 0);
    const QJsonValue answer = jsonOf(result);
    QCOMPARE(answer.toObject().keys(),
             QStringList({QStringLiteral("complete"), QStringLiteral("limits"), QStringLiteral("user")}));
    QCOMPARE(answer.toObject().value(QStringLiteral("user")).toString(), QStringLiteral("alice"));
    QCOMPARE(answer.toObject().value(QStringLiteral("complete")).toBool(), true);
    QCOMPARE(answer.toObject().value(QStringLiteral("limits")).toArray().size(), 20);
    const QString conf = QStringLiteral("{\"file\":\"/etc/security/limits.conf\",\"line\":%1}");
    const QString dropIn = QStringLiteral("{\"file\":\"/etc/security/limits.d/x.conf\",\"line\":%1}");
    QCOMPARE(compact(limitOf(answer, QStringLiteral("nproc"))),
             QStringLiteral("{\"hard\":60,\"hardFrom\":%1,\"item\":\"nproc\",\"soft\":50,\"softFrom\":%2}")
                 .arg(conf.arg(2), conf.arg(3)));
    QCOMPARE(compact(limitOf(answer, QStringLiteral("fsize"))),
             QStringLiteral("{\"hard\":5000000000,\"hardFrom\":%1,\"item\":\"fsize\",\"soft\":null,\"softFrom\":null}")
                 .arg(dropIn.arg(1)));
    QCOMPARE(compact(limitOf(answer, QStringLiteral("as"))),
             QStringLiteral(
                 "{\"hard\":\"unlimited\",\"hardFrom\":%1,\"item\":\"as\",\"soft\":\"unlimited\",\"softFrom\":%1}")
                 .arg(dropIn.arg(2)));
    QCOMPARE(limitOf(answer, QStringLiteral("nice")).value(QStringLiteral("soft")).toInt(), -5);
}

void LimitsJsonTest::explainsItem()
{
    const Result result = limitsOf("--user", "alice", {explain(), QStringLiteral("core"), json()});
    QCOMPARE(result.status, 0);
    QCOMPARE(compact(jsonOf(result).toObject()),
             QStringLiteral("{\"complete\":true,\"item\":\"core\",\"lines\":[{\"decides\":true,"
                            "\"file\":\"/etc/security/limits.conf\",\"hard\":null,\"line\":1,\"soft\":\"decides\","
                            "\"text\":\"* soft core 0\"}],\"user\":\"alice\"}"));
}

void LimitsJsonTest::listsAccountsOfRule()
{
    const Result result = limitsOf("--rule", "/etc/security/limits.conf:1", {json()});
    QCOMPARE(result.status, 0);
    QCOMPARE(compact(jsonOf(result).toObject()),
             QStringLiteral("{\"accounts\":[\"alice\",\"bob\"],\"complete\":true,"
                            "\"file\":\"/etc/security/limits.conf\",\"line\":1}"));
}

void LimitsJsonTest::printsFindings()
{
    Sandbox::write(limitsPath(), "* both core 1\n");
    Sandbox::write(dropInPath(QStringLiteral("old")), "* soft core 1\n");
    const Result result = limits({QStringLiteral("--check"), json()});
    QCOMPARE(result.status, 1);
    const QJsonArray findings = jsonOf(result).toArray();
    QCOMPARE(findings.size(), 2);
    QCOMPARE(compact(findings.at(0).toObject()),
             QStringLiteral("{\"file\":\"/etc/security/limits.conf\",\"line\":1,\"statement\":\"PAM ignores this line: "
                            "the type 'both' is not soft, hard or -\",\"text\":\"* both core 1\"}"));
    QCOMPARE(
        compact(findings.at(1).toObject()),
        QStringLiteral("{\"file\":\"/etc/security/limits.d/old\",\"line\":null,\"statement\":\"PAM does not read this "
                       "file: its name does not end in .conf\",\"text\":null}"));
}

void LimitsJsonTest::tellsThatNoSessionIsOpened()
{
    Sandbox::write(dropInPath(QStringLiteral("x.conf")), "alice - maxlogins 0\n");
    const QJsonObject answer = jsonOf(limitsOf("--user", "alice", {json()})).toObject();
    QCOMPARE(answer.value(QStringLiteral("sessionFails")).toString(),
             QStringLiteral("/etc/security/limits.d/x.conf:1 allows no logins"));
}

void LimitsJsonTest::tellsThatNoLimitsAreSet()
{
    Sandbox::write(dropInPath(QStringLiteral("x.conf")), "@pupils -\n");
    const QJsonObject answer = jsonOf(limitsOf("--user", "alice", {json()})).toObject();
    QCOMPARE(compact(answer.value(QStringLiteral("exemptFrom")).toObject()),
             QStringLiteral("{\"file\":\"/etc/security/limits.d/x.conf\",\"line\":1}"));
    QCOMPARE(compact(limitOf(answer, QStringLiteral("nproc"))),
             QStringLiteral("{\"hard\":null,\"hardFrom\":null,\"item\":\"nproc\",\"soft\":null,\"softFrom\":null}"));
}

QTEST_GUILESS_MAIN(LimitsJsonTest)

#include "limitsjsontest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "problemreader.h"

#include "brokenaccounts.h"
#include "packetstream.h"
#include "packing.h"
#include "patience.h"
#include "sandbox.h"
#include "writeproblems.h"

#include <QSignalSpy>
#include <QTest>

namespace
{
/** A program that writes @p packets after its hello. */
PacketSource sourceOf(const QVector<Packet> &packets)
{
    QByteArray output;
    for (const Packet &packet : packets) {
        output += PacketStream::toBytes(packet);
    }
    Sandbox::write(QStringLiteral("/tmp/output"), output);
    return {QStringLiteral("/bin/cat"), {QStringLiteral("/tmp/output")}};
}

Packet hello(Packer &pack)
{
    pack(problemsHello());
    return {HelloPacket, pack.take()};
}

/** All packets of a check that finds problems of @p kinds. */
QVector<Packet> problemsOfKinds(const QVector<quint32> &kinds)
{
    Packer pack;
    const Packet greeting = hello(pack);
    for (const quint32 kind : kinds) {
        PackedProblem problem;
        problem.kind = kind;
        std::apply(pack, PackedProblem::fields(problem));
    }
    return {greeting, {ProblemPacket::Problems, pack.take()}, {ProblemPacket::End, {}}};
}

QStringList describe(const MachineCheck &check)
{
    QStringList lines;
    for (const Problem &problem : check.problems) {
        lines.append(QStringList({problem.place(), problem.id(), problem.user, problem.group, problem.text()})
                         .join(QLatin1Char('|')));
    }
    for (const UnreadFile &file : check.unreadFiles) {
        lines.append(file.path + file.reason + QString::number(int(file.isExpected)));
    }
    return lines;
}

/** What @p reader reports: a check, or a message. */
struct Report {
    explicit Report(ProblemReader &reader)
    {
        QObject::connect(&reader, &ProblemReader::finished, &reader, [this](const MachineCheck &found) {
            check = found;
            ended = true;
        });
        QObject::connect(&reader, &ProblemReader::failed, &reader, [this](const QString &text) {
            message = text;
            ended = true;
        });
        reader.start();
        if (!QTest::qWaitFor([this] { return ended; }, patience)) {
            qFatal("The check does not end");
        }
    }

    MachineCheck check;
    QString message;
    bool ended = false;
};
}

Q_DECLARE_METATYPE(Packet)

class ProblemReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsWhatCheckFinds();
    void tellsUnreadFiles();
    void tellsWhatIsNotUnderstood_data();
    void tellsWhatIsNotUnderstood();
};

void ProblemReaderTest::findsWhatCheckFinds()
{
    const QVector<BrokenAccounts> cases = BrokenAccounts::all();
    for (int i = 0; i < cases.size(); i += 7) {
        cases.at(i).install();
        ProblemReader reader(ProblemReader::ownProgram());
        const Report report(reader);
        QCOMPARE(report.message, QString());
        QCOMPARE(describe(report.check), describe(MachineCheck::run()));
        QVERIFY(!reader.isChecking());
    }
}

void ProblemReaderTest::tellsUnreadFiles()
{
    BrokenAccounts::all().constFirst().install();
    Sandbox::remove(QStringLiteral("/etc/shadow"));
    Sandbox::remove(QStringLiteral("/etc/passwd"));
    ProblemReader reader(ProblemReader::ownProgram());
    const Report report(reader);
    QCOMPARE(report.check.unreadFiles.size(), 2);
    QCOMPARE(describe(report.check), describe(MachineCheck::run()));
}

void ProblemReaderTest::tellsWhatIsNotUnderstood_data()
{
    QTest::addColumn<QVector<Packet>>("packets");

    Packer pack;
    const Packet greeting = hello(pack);
    QTest::newRow("nothing") << QVector<Packet>{};
    QTest::newRow("no end") << QVector<Packet>{greeting};
    QTest::newRow("no hello") << QVector<Packet>{{ProblemPacket::End, {}}};
    QTest::newRow("unknown packet") << QVector<Packet>{greeting, {99, {}}};
    QTest::newRow("end with data") << QVector<Packet>{greeting, {ProblemPacket::End, "x"}};
    QTest::newRow("cut problem") << QVector<Packet>{greeting, {ProblemPacket::Problems, "x"}};
    const auto unknown = quint32(Problem::lastKind) + 1;
    QTest::newRow("unknown kind") << problemsOfKinds({unknown});
    QTest::newRow("unknown kind among others") << problemsOfKinds({0, unknown, 0});
}

void ProblemReaderTest::tellsWhatIsNotUnderstood()
{
    QFETCH(QVector<Packet>, packets);

    ProblemReader reader(sourceOf(packets));
    const Report report(reader);
    QCOMPARE(report.message,
             QStringLiteral("The machine could not be checked: the program that checks it has failed."));
    QVERIFY(report.check.problems.isEmpty());
}

QTEST_GUILESS_MAIN(ProblemReaderTest)

#include "problemreadertest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "describe.h"
#include "messagerecorder.h"
#include "modellog.h"
#include "openfiles.h"
#include "processortime.h"
#include "program.h"
#include "sandbox.h"
#include "texts.h"

#include <GroupListModel>
#include <UserInfo>
#include <UserListModel>

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <dlfcn.h>

// A misbehaving name service: a module that the C library asks after the local files.

namespace
{
/** The numbered names "member0" to "member18999". */
QStringList crowd()
{
    QStringList names;
    for (int i = 0; i < 19000; ++i) {
        names.append(QStringLiteral("member%1").arg(i));
    }
    return names;
}

QString longText(char letter)
{
    return QString(100000, QLatin1Char(letter));
}

QString ghost(const QString &fields, const QString &group)
{
    return QStringLiteral("%1 | primary %2 | groups %2 | no admin").arg(fields, group);
}

QStringList aliceGroups()
{
    return {QStringLiteral("alice(1000: alice)"), QStringLiteral("ormel-admin(27: alice)")};
}

QStringList namesOf(const QStringList &groups)
{
    QStringList names;
    for (const QString &group : groups) {
        names.append(group.section(QLatin1Char('('), 0, 0));
    }
    return names;
}

/** The JSON list that ormel-users prints. */
QJsonArray listed(const QString &command)
{
    const QString directory =
        QStringLiteral("LD_LIBRARY_PATH=") + QStringLiteral(NAME_SERVICE).section(QLatin1Char('/'), 0, -2);
    const Program::Result result = Program::run(Program::path(), {command, QStringLiteral("--json")}, {}, {directory});
    return result.status == 0 ? QJsonDocument::fromJson(result.output).array() : QJsonArray();
}
}

class NameServiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void givesWhatTheServiceSays_data();
    void givesWhatTheServiceSays();
    void takesNoLongerThanTheService();
    void readsLongLocalLines();

private:
    int (*m_takeCalls)() = nullptr;
    QStringList m_filesBefore;
};

void NameServiceTest::initTestCase()
{
    // The C library finds a loaded module by its name.
    void *module = dlopen(NAME_SERVICE, RTLD_NOW);
    QVERIFY2(module, dlerror());
    m_takeCalls = reinterpret_cast<int (*)()>(dlsym(module, "takeFaultyNameServiceCalls"));
    QVERIFY(m_takeCalls);
}

void NameServiceTest::init()
{
    Sandbox::setAccounts("alice:x:1000:1000::/home/alice:/bin/sh\n", "ormel-admin:x:27:alice\nalice:x:1000:\n");
    Sandbox::write(QStringLiteral("/etc/nsswitch.conf"), "passwd: files faulty\ngroup: files faulty\n");
    qputenv("FAULTY_NAME_SERVICE", "not found");
    UserInfo::getUser(QStringLiteral("ghost"));
    m_filesBefore = openFiles();
}

void NameServiceTest::cleanup()
{
    QCOMPARE(openFiles(), m_filesBefore);
}

void NameServiceTest::givesWhatTheServiceSays_data()
{
    QTest::addColumn<QStringList>("extraGroups");
    QTest::addColumn<QString>("crewGroup");
    QTest::addColumn<QString>("ghostUser");

    const QString noGroup = QStringLiteral("null(0: )");
    const QString noUser = describe(UserInfo());
    const QString ghostFields = QStringLiteral("ghost | 7000 | 7000 | Ghost | /home/ghost | /bin/sh");
    const auto row = [](const char *name, const QStringList &extraGroups, const QString &crew, const QString &ghost) {
        QTest::newRow(name) << extraGroups << crew << ghost;
    };
    const auto answers = [&row](const char *name, const QString &crew, const QString &fields) {
        row(name, {crew}, crew, ghost(fields, crew));
    };

    const QString crew = QStringLiteral("crew(7000: alice ghost)");
    answers("well", crew, ghostFields);
    row("duplicates", {crew, crew, crew}, crew, ghost(ghostFields, crew));
    answers("spaces",
            QStringLiteral("domain users(7000: john smith  )"),
            QStringLiteral(" john smith  | 7000 | 7000 | John  Smith | /home/john smith | /bin/sh -l"));
    answers("long lines",
            QStringLiteral("%1(7000: %2)").arg(longText('n'), longText('m')),
            QStringLiteral("%1 | 7000 | 7000 | %2 | %3 | %4")
                .arg(longText('u'), longText('g'), longText('h'), longText('s')));
    answers("crowd", QStringLiteral("crew(7000: alice ghost %1)").arg(crowd().join(QLatin1Char(' '))), ghostFields);
#ifndef __SANITIZE_ADDRESS__ // it reads the names itself
    answers("nulls", QStringLiteral("crew(7000: )"), QStringLiteral("null | 7000 | 7000 | null | null | null"));
#endif
    // Each answer has another number: the id leads to one name, the name to another. A single call asks for
    // neither of them twice.
    row("changes",
        {QStringLiteral("crew2(7002: member2)")},
        QStringLiteral("crew1(7001: member1)"),
        ghost(QStringLiteral("ghost1 | 7000 | 7000 | Ghost | /home/ghost | /bin/sh"),
              QStringLiteral("crew3(7003: member3)")));
    for (const char *failure : {"again", "never enough room", "not found", "unavailable"}) {
        row(failure, {}, noGroup, noUser);
    }
}

void NameServiceTest::givesWhatTheServiceSays()
{
    QFETCH(QStringList, extraGroups);
    QFETCH(QString, crewGroup);
    QFETCH(QString, ghostUser);
    qputenv("FAULTY_NAME_SERVICE", QTest::currentDataTag());
    const QString alice = QStringLiteral("alice");
    const QStringList groups = aliceGroups() + extraGroups;

    MessageRecorder recorder;
    m_takeCalls();
    const QList<UserInfo> users = UserInfo::getUsers();
    QVERIFY(recorder.takeTexts().isEmpty());
    QCOMPARE(users.size(), 1);
    QCOMPARE(users.first().name(), alice);
    QCOMPARE(describe(users.first().groups()), groups);
    QCOMPARE(describe(users.first().primaryGroup()), groups.first());
    QVERIFY(users.first().isOrmelAdmin());

    m_takeCalls();
    QCOMPARE(describe(GroupInfo::getGroup(7000u)), crewGroup);
    QCOMPARE(recorder.takeTexts().isEmpty(), crewGroup != QLatin1String("null(0: )"));

    m_takeCalls();
    QCOMPARE(describe(UserInfo::getUser(QStringLiteral("ghost"))), ghostUser);
    QVERIFY(recorder.takeTexts().isEmpty());

    m_takeCalls();
    UserListModel model;
    const TableTester tester(&model);
    const UserInfo *shown = model.user(model.findUser(alice));
    QVERIFY(shown);
    QCOMPARE(describe(shown->groups()), groups);
    QCOMPARE(model.rowCount(), 1);

    const QJsonArray printed = listed(QStringLiteral("users"));
    QCOMPARE(printed.size(), 1);
    QCOMPARE(printed.first()[QLatin1String("name")].toString(), alice);
    QCOMPARE(strings(printed.first()[QLatin1String("groups")]), namesOf(groups));
    // Groups are listed from the local file only.
    QCOMPARE(listed(QStringLiteral("groups")).size(), 2);
}

void NameServiceTest::takesNoLongerThanTheService()
{
    qputenv("FAULTY_NAME_SERVICE", "slow");
    m_takeCalls();
    QElapsedTimer timer;
    const qint64 queued = queuedMilliseconds();
    timer.start();
    const QList<UserInfo> users = UserInfo::getUsers();
    const qint64 elapsed = timer.elapsed();
    const qint64 inTurn = queuedMilliseconds() - queued;

    QCOMPARE(describe(users.first().groups()), aliceGroups() + QStringList(QStringLiteral("crew(7000: alice ghost)")));
    // The id as one of the user's groups, then the group by its id and by its name.
    QCOMPARE(m_takeCalls(), 2);
    QVERIFY2(elapsed >= 300 && elapsed - inTurn < 1300, QByteArray::number(elapsed).constData());
}

void NameServiceTest::readsLongLocalLines()
{
    const QStringList members = crowd();
    Sandbox::setAccounts("alice:x:1000:1000:" + longText('g').toLatin1() + ":/home/alice:/bin/sh\n",
                         "crew:x:50:" + members.join(QLatin1Char(',')).toLatin1() + ",alice\n"
                             + longText('n').toLatin1() + ":x:1000:\n");
    MessageRecorder recorder;

    const QList<UserInfo> users = UserInfo::getUsers();
    QCOMPARE(users.size(), 1);
    QCOMPARE(users.first().gecos(), longText('g'));
    QCOMPARE(users.first().groupNames(), QStringList({longText('n'), QStringLiteral("crew")}));
    QCOMPARE(users.first().groups().last().users(), members + QStringList(QStringLiteral("alice")));
    QCOMPARE(recorder.takeTexts(), QStringList(noAdministrators()));

    GroupListModel model;
    const TableTester tester(&model);
    QCOMPARE(model.rowCount(), 2);
    const QJsonArray printed = listed(QStringLiteral("groups"));
    QCOMPARE(printed.size(), 2);
    QCOMPARE(printed.first()[QLatin1String("members")].toArray().size(), 19001);
    QCOMPARE(printed.last()[QLatin1String("name")].toString(), longText('n'));
}

QTEST_MAIN(NameServiceTest)

#include "nameservicetest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "callhook.h"
#include "changingfiles.h"
#include "describe.h"
#include "fileversions.h"
#include "limitsfixtures.h"
#include "messagerecorder.h"
#include "modellog.h"
#include "openfiles.h"
#include "patience.h"
#include "program.h"

#include <GroupListModel>
#include <UserListModel>
#include <UserUtils>

#include <QElapsedTimer>
#include <QProcess>
#include <QRegularExpressionValidator>
#include <QTest>

#include <algorithm>
#include <iterator>
#include <memory>

#include <malloc.h>

// Files that change while they are read: at each call of the C library's account functions, and by a second
// process at any time.

namespace
{
/** The last one is Qt's warning about a file that vanished while its directory was listed. */
bool isKnownWarning(const QString &text)
{
    static const QRegularExpression known(
        QStringLiteral("^((UserInfo: unable to open /etc/passwd)|(GroupInfo: unable to open /etc/(passwd|group))|"
                       "(GroupInfo: unable to find group entry by (gid: [0-9]+|name: [a-z0-9-]*))|"
                       "(QFSFileEngine::open: No file name specified))$"));
    return known.match(text).hasMatch();
}

struct Change {
    const char *name;
    void (*prepare)();
    void (*make)();
};

void replaceWith(const QString &path, const QByteArray &content)
{
    const QString replacement = path + QLatin1String("-new");
    Sandbox::write(replacement, content);
    rename(qPrintable(replacement), qPrintable(path));
}

void shorten(int part)
{
    QFile::resize(passwdPath(), passwdVersion(0).size() / part);
    QFile::resize(groupPath(), groupVersion(0).size() / part);
}

void setWhole()
{
    setVersion(0);
}

void setHalf()
{
    setVersion(0);
    shorten(2);
}

const Change changes[] = {
    {"replaced",
     setWhole,
     [] {
         replaceWith(passwdPath(), passwdVersion(1));
         replaceWith(groupPath(), groupVersion(1));
     }},
    {"truncated", setWhole, [] { shorten(3); }},
    {"emptied", setWhole, [] { shorten(10000); }},
    {"grown", setHalf, setWhole},
    {"removed",
     setWhole,
     [] {
         Sandbox::remove(passwdPath());
         Sandbox::remove(groupPath());
     }},
};
}

class FileChangesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void readsFilesThatChangeAtAnyCall_data();
    void readsFilesThatChangeAtAnyCall();
    void readsLinesThatGrowAtAnyCall_data();
    void readsLinesThatGrowAtAnyCall();
    void readsFilesThatChangeAtAnyTime();

private:
    bool listsUsers() const;
    bool listsGroups() const;
    bool findsUser() const;
    bool findsGroup() const;
    bool reloadsGroup() const;
    bool mapsPrimaryGroups() const;
    bool fillsUserModel() const;
    bool fillsGroupModel() const;
    bool readsLimits() const;
    bool readsAdduserConf() const;
    bool picksPicture() const;

    using Reading = bool (FileChangesTest::*)() const;
    struct NamedReading {
        const char *name;
        Reading read;
    };
    static const NamedReading lookups[];
    static const NamedReading otherReadings[];

    const PossibleAccounts m_accounts{versions(passwdVersion), versions(groupVersion)};
    QStringList m_rules;
};

const FileChangesTest::NamedReading FileChangesTest::lookups[] = {
    {"users", &FileChangesTest::listsUsers},
    {"groups", &FileChangesTest::listsGroups},
    {"user", &FileChangesTest::findsUser},
    {"group", &FileChangesTest::findsGroup},
    {"group again", &FileChangesTest::reloadsGroup},
    {"primary groups", &FileChangesTest::mapsPrimaryGroups},
};

const FileChangesTest::NamedReading FileChangesTest::otherReadings[] = {
    {"user model", &FileChangesTest::fillsUserModel},
    {"group model", &FileChangesTest::fillsGroupModel},
    {"limits", &FileChangesTest::readsLimits},
    {"adduser.conf", &FileChangesTest::readsAdduserConf},
    {"pictures", &FileChangesTest::picksPicture},
};

bool FileChangesTest::listsUsers() const
{
    return m_accounts.canBe(UserInfo::getUsers());
}

bool FileChangesTest::listsGroups() const
{
    return m_accounts.canBe(GroupInfo::getGroups());
}

bool FileChangesTest::findsUser() const
{
    return m_accounts.canBe(UserInfo::getUser(QStringLiteral("user1")));
}

bool FileChangesTest::findsGroup() const
{
    return m_accounts.canBe(GroupInfo::getGroup(QStringLiteral("staff"))) && m_accounts.canBe(GroupInfo::getGroup(50u));
}

bool FileChangesTest::reloadsGroup() const
{
    GroupInfo group = GroupInfo::getGroup(QStringLiteral("staff"));
    if (group.isEmpty()) {
        return true;
    }
    group.reload();
    const bool gone = group.gid() == 0 && group.users().isEmpty();
    return group.name() == QLatin1String("staff") && (gone || m_accounts.canBe(group));
}

bool FileChangesTest::mapsPrimaryGroups() const
{
    const QHash<uint, QStringList> groups = GroupInfo::getPrimaryGroups();
    for (auto group = groups.begin(); group != groups.end(); ++group) {
        if (!m_accounts.canBePrimary(group.key(), group.value())) {
            return false;
        }
    }
    return true;
}

bool FileChangesTest::fillsUserModel() const
{
    UserListModel model;
    const TableTester tester(&model);
    model.setFilter(UserListModel::All);
    model.reload();
    for (int row = 0; row < model.rowCount(); ++row) {
        if (!m_accounts.canBe(*model.user(model.index(row, 0)))) {
            return false;
        }
    }
    return true;
}

bool FileChangesTest::fillsGroupModel() const
{
    GroupListModel model;
    const TableTester tester(&model);
    model.setFilter(GroupListModel::All);
    model.reload();
    for (int row = 0; row < model.rowCount(); ++row) {
        if (!m_accounts.canBe(*model.group(model.index(row, 0)))) {
            return false;
        }
    }
    return true;
}

bool FileChangesTest::readsLimits() const
{
    LimitsParser limits;
    QString error;
    const bool success = limits.readLimitsConf(error);
    const QStringList rules = describe(limits.fields());
    return std::all_of(rules.begin(), rules.end(), [this](const QString &rule) { return m_rules.contains(rule); })
        && (success ? error.isEmpty() : error.startsWith(QLatin1String("Unable to open file ")));
}

bool FileChangesTest::readsAdduserConf() const
{
    const std::unique_ptr<QValidator> validator(UserUtils::createUserNameValidator(nullptr));
    return patterns().contains(static_cast<QRegularExpressionValidator &>(*validator).regularExpression().pattern());
}

bool FileChangesTest::picksPicture() const
{
    const QString picture = UserUtils::getRandomUserIcon(false);
    return picture.isNull() || picture.startsWith(facePath(1)) || picture.startsWith(facePath(2));
}

void FileChangesTest::initTestCase()
{
    Sandbox::removeExtraAccounts();
    m_rules = describe(limitsOf(beginnings(versions(limitsVersion))).fields());
    clearLimits();
    Sandbox::clear(UserUtils::userIconPath());
}

void FileChangesTest::readsFilesThatChangeAtAnyCall_data()
{
    QTest::addColumn<int>("change");
    QTest::addColumn<int>("reading");

    for (size_t change = 0; change < std::size(changes); ++change) {
        for (size_t reading = 0; reading < std::size(lookups); ++reading) {
            QTest::addRow("%s, %s", changes[change].name, lookups[reading].name)
                << static_cast<int>(change) << static_cast<int>(reading);
        }
    }
}

void FileChangesTest::readsFilesThatChangeAtAnyCall()
{
    QFETCH(int, change);
    QFETCH(int, reading);
    const Reading read = lookups[reading].read;
    const QStringList filesBefore = openFiles();

    MessageRecorder recorder;
    changes[change].prepare();
    const int calls = callsOf([this, read] { (this->*read)(); });
    QVERIFY(calls > 2);
    for (int call = 0; call < calls; ++call) {
        changes[change].prepare();
        bool possible = false;
        callsOf([this, read, &possible] { possible = (this->*read)(); },
                [change, call](int current) {
                    if (current == call) {
                        changes[change].make();
                    }
                });
        QVERIFY2(possible, QByteArray::number(call).constData());
    }
    QCOMPARE(openFiles(), filesBefore);
    const QStringList warnings = recorder.takeTexts();
    for (const QString &warning : warnings) {
        QVERIFY2(isKnownWarning(warning), qPrintable(warning));
    }
}

void FileChangesTest::readsLinesThatGrowAtAnyCall_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("reading");

    // The text of a comment must not be taken for a line.
    QTest::newRow("limits") << limitsPath() << QByteArray("#bob - core 1\n") << 2;
    QTest::newRow("adduser.conf") << adduserConfPath() << QByteArray("#NAME_REGEX=\".\"\n") << 3;
}

void FileChangesTest::readsLinesThatGrowAtAnyCall()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, content);
    QFETCH(int, reading);
    const Reading read = otherReadings[reading].read;

    for (int size = 0; size < content.size(); ++size) {
        Sandbox::write(path, content.left(size));
        const int calls = callsOf([this, read] { (this->*read)(); });
        QVERIFY(calls > 0);
        // After it has grown it may be read once more than before.
        for (int call = 0; call <= calls; ++call) {
            Sandbox::write(path, content.left(size));
            bool possible = false;
            callsOf([this, read, &possible] { possible = (this->*read)(); },
                    [&](int current) {
                        if (current == call) {
                            Sandbox::write(path, content);
                        }
                    });
            QVERIFY2(possible, qPrintable(QStringLiteral("byte %1, call %2").arg(size).arg(call)));
        }
    }
    Sandbox::remove(path);
}

// ORMEL_TEST_SECONDS sets the duration.
void FileChangesTest::readsFilesThatChangeAtAnyTime()
{
    const QVector<QPair<QString, QByteArrayList>> files{
        {passwdPath(), versions(passwdVersion)},
        {groupPath(), versions(groupVersion)},
        {limitsPath(), versions(limitsVersion)},
        {dropInPath(QStringLiteral("a.conf")), versions(limitsVersion)},
        {adduserConfPath(), versions(adduserVersion)},
        {facePath(1), {"1", "11"}},
        {facePath(2), {"2", "22"}},
    };
    QStringList arguments;
    for (const auto &[path, contents] : files) {
        arguments.append(path);
        for (const QByteArray &content : contents) {
            arguments.append(QStringLiteral("/tmp/version%1").arg(arguments.size()));
            Sandbox::write(arguments.last(), content);
        }
    }
    QProcess changer;
    changer.start(Program::builtFile(QStringLiteral("filechanger")), arguments);
    QVERIFY(changer.waitForReadyRead());
    const QStringList filesBefore = openFiles();

    const qint64 seconds = qMax(1, qEnvironmentVariableIntValue("ORMEL_TEST_SECONDS"));
    auto recorder = std::make_unique<MessageRecorder>();
    QSet<QString> warnings;
    size_t memoryBefore = 0;
    int rounds = 0;
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < 1000 * seconds; ++rounds) {
        for (const NamedReading &reading : lookups) {
            QVERIFY2((this->*reading.read)(), reading.name);
        }
        for (const NamedReading &reading : otherReadings) {
            QVERIFY2((this->*reading.read)(), reading.name);
        }
        const QStringList texts = recorder->takeTexts();
        warnings.unite(QSet<QString>(texts.begin(), texts.end()));
        if (timer.elapsed() < 500 * seconds) {
            memoryBefore = mallinfo2().uordblks;
        }
    }
    const size_t memory = mallinfo2().uordblks;
    QCOMPARE(openFiles(), filesBefore);
    QCOMPARE(changer.state(), QProcess::Running);
    recorder.reset();
    changer.kill();
    changer.waitForFinished(patience);

    qInfo("%d rounds, %d different warnings, memory from %zu to %zu", rounds, warnings.size(), memoryBefore, memory);
    QVERIFY(memory < memoryBefore + 65536);
    for (const QString &warning : qAsConst(warnings)) {
        QVERIFY2(isKnownWarning(warning), qPrintable(warning));
    }
    setVersion(1);
    QCOMPARE(UserInfo::getUsers().size(), userCount);
    QCOMPARE(describe(GroupInfo::getGroup(QStringLiteral("staff"))), QStringLiteral("staff(51: user0 user3)"));
}

QTEST_MAIN(FileChangesTest)

#include "filechangestest.moc"

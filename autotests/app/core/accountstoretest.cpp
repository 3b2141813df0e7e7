/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountstore.h"

#include "accountfixtures.h"
#include "filewatcher.h"
#include "limitsfixtures.h"
#include "patience.h"
#include "program.h"
#include "sandbox.h"
#include "texts.h"
#include "writeaccounts.h"

#include <QFile>
#include <QSignalSpy>
#include <QTest>

#include <sys/stat.h>

namespace
{
template<typename Record>
QString names(const QVector<Record> &records)
{
    QStringList names;
    for (const Record &record : records) {
        names.append(record.name);
    }
    return names.join(QLatin1Char(' '));
}

QString sorted(const QSet<QString> &names)
{
    QStringList list = names.values();
    list.sort();
    return list.join(QLatin1Char(' '));
}

/** Lines of /etc/passwd. */
namespace Line
{
QByteArray root()
{
    return "root:x:0:0:root:/root:/bin/bash\n";
}

QByteArray ada()
{
    return "ada:x:1000:50:Ada:/home/ada:/bin/sh\n";
}

QByteArray bob()
{
    return "bob:x:1001:50:Bob:/home/bob:/bin/sh\n";
}
}
}

class AccountStoreTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void isEmptyAtFirst();
    void readsEverything();
    void showsOldAccountsUntilNewOnesAreThere();
    void keepsAccountsOfUnreadableFile();
    void keepsAccountsWhenReadingFails();
    void keepsAccountsWhenCancelled();
    void tellsWhatHasChanged();
    void readsAgainWhenFilesChange_data();
    void readsAgainWhenFilesChange();
    void readsFileThatComesBack();
    void readsOnceMoreWhenFilesChangeMeanwhile();
    void readsLimitsAgainWhenTheyChange();

private:
    static bool read(AccountStore &store);
};

void AccountStoreTest::init()
{
    Sandbox::setAccounts(Line::root() + Line::ada(), "root:x:0:\nstaff:x:50:\n");
    clearLimits();
    Sandbox::write(limitsPath(), "* soft core 0\n");
}

bool AccountStoreTest::read(AccountStore &store)
{
    QSignalSpy ended(&store, &AccountStore::ended);
    store.read();
    return ended.wait(patience);
}

void AccountStoreTest::isEmptyAtFirst()
{
    const AccountStore store;
    QVERIFY(store.users().isEmpty());
    QVERIFY(store.groups().isEmpty());
    QVERIFY(!store.isReading());
    QVERIFY(!store.lastRead().isValid());
}

void AccountStoreTest::readsEverything()
{
    AccountStore store;
    QSignalSpy started(&store, &AccountStore::started);
    QVERIFY(read(store));
    QCOMPARE(started.size(), 1);
    QCOMPARE(names(store.users()), text("root ada"));
    QCOMPARE(names(store.groups()), text("root staff"));
    QCOMPARE(store.limits().rules().lines().size(), 1);
    QCOMPARE(store.accountsError(), QString());
    QVERIFY(!store.hasAdministratorsGroup());
    QVERIFY(store.lastRead().isValid());
}

void AccountStoreTest::showsOldAccountsUntilNewOnesAreThere()
{
    AccountStore store;
    QVERIFY(read(store));
    Sandbox::write(passwdPath(), Line::bob());
    QSignalSpy usersRead(&store, &AccountStore::usersRead);
    store.read();
    QVERIFY(store.isReading());
    QCOMPARE(names(store.users()), text("root ada"));
    QVERIFY(usersRead.wait(patience));
    QCOMPARE(names(store.users()), text("bob"));
}

void AccountStoreTest::keepsAccountsOfUnreadableFile()
{
    AccountStore store;
    QVERIFY(read(store));
    const QTime before = store.lastRead();
    Sandbox::remove(passwdPath());
    Sandbox::write(groupPath(), "audio:x:29:\n");
    QVERIFY(read(store));
    QCOMPARE(store.accountsError(), text("Cannot read '/etc/passwd': No such file or directory"));
    QCOMPARE(names(store.users()), text("root ada"));
    QCOMPARE(names(store.groups()), text("audio"));
    QCOMPARE(store.lastRead(), before);
    Sandbox::remove(groupPath());
    QVERIFY(read(store));
    QCOMPARE(store.accountsError(),
             text("Cannot read '/etc/group': No such file or directory\n"
                  "Cannot read '/etc/passwd': No such file or directory"));
    QCOMPARE(names(store.groups()), text("audio"));
}

void AccountStoreTest::keepsAccountsWhenReadingFails()
{
    // The program works only the first time.
    Sandbox::remove(text("/tmp/second"));
    const QString script = text("test -e /tmp/second && kill -9 $$; touch /tmp/second; exec %1 %2")
                               .arg(Program::path(), writeAccountsCommand());
    AccountStore store(nullptr, {text("/bin/sh"), {text("-c"), script}});
    QVERIFY(read(store));
    QCOMPARE(names(store.users()), text("root ada"));
    QVERIFY(read(store));
    QVERIFY2(store.accountsError().startsWith(text("The accounts could not be read: ")),
             qPrintable(store.accountsError()));
    QCOMPARE(names(store.users()), text("root ada"));
    QCOMPARE(names(store.groups()), text("root staff"));
}

void AccountStoreTest::keepsAccountsWhenCancelled()
{
    AccountStore store;
    QVERIFY(read(store));
    // Reading this file never ends.
    Sandbox::remove(passwdPath());
    QCOMPARE(mkfifo(QFile::encodeName(passwdPath()).constData(), 0644), 0);
    QSignalSpy ended(&store, &AccountStore::ended);
    store.read();
    QVERIFY(!ended.wait(200));
    QVERIFY(store.isReading());
    store.cancel();
    QCOMPARE(ended.size(), 1);
    QVERIFY(!store.isReading());
    QCOMPARE(names(store.users()), text("root ada"));
    QCOMPARE(store.accountsError(), QString());
    Sandbox::remove(passwdPath());
}

void AccountStoreTest::tellsWhatHasChanged()
{
    AccountStore store;
    QVERIFY(read(store));
    QCOMPARE(sorted(store.changedUsers()), QString());
    Sandbox::setAccounts(Line::root() + "ada:x:1000:50:Ada Byron:/home/ada:/bin/sh\n" + Line::bob(),
                         "root:x:0:\nstaff:x:50:bob\n");
    QVERIFY(read(store));
    QCOMPARE(sorted(store.changedUsers()), text("ada bob"));
    QCOMPARE(sorted(store.changedGroups()), text("staff"));
    QVERIFY(read(store));
    QCOMPARE(sorted(store.changedUsers()), QString());
    QCOMPARE(sorted(store.changedGroups()), QString());
    Sandbox::write(passwdPath(), Line::bob() + Line::bob() + Line::root());
    QVERIFY(read(store));
    QCOMPARE(sorted(store.changedUsers()), QString());
    Sandbox::write(passwdPath(), Line::bob() + "bob:x:7:50:Bob:/home/bob:/bin/sh\n");
    QVERIFY(read(store));
    QCOMPARE(sorted(store.changedUsers()), text("bob"));
}

void AccountStoreTest::readsAgainWhenFilesChange_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("users") << passwdPath() << Line::root() + Line::bob();
    QTest::newRow("groups") << groupPath() << QByteArray("staff:x:50:\n");
}

void AccountStoreTest::readsAgainWhenFilesChange()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, content);

    AccountStore store;
    QVERIFY(read(store));
    const QString before = names(store.users()) + names(store.groups());
    QSignalSpy ended(&store, &AccountStore::ended);
    Sandbox::replace(path, content);
    QVERIFY(ended.wait(patience));
    QVERIFY(names(store.users()) + names(store.groups()) != before);
}

void AccountStoreTest::readsFileThatComesBack()
{
    AccountStore store;
    QVERIFY(read(store));
    QSignalSpy ended(&store, &AccountStore::ended);
    Sandbox::remove(passwdPath());
    QVERIFY(ended.wait(patience));
    QVERIFY(!store.accountsError().isEmpty());
    QCOMPARE(names(store.users()), text("root ada"));
    Sandbox::replace(passwdPath(), Line::root() + Line::bob());
    QVERIFY(ended.wait(patience));
    QCOMPARE(store.accountsError(), QString());
    QCOMPARE(names(store.users()), text("root bob"));
}

void AccountStoreTest::readsOnceMoreWhenFilesChangeMeanwhile()
{
    // The first answer comes after the files have changed, but it has the contents from before.
    Sandbox::remove(text("/tmp/go"));
    const QString script = text("%1 %2 >/tmp/answer; while ! test -e /tmp/go; do sleep 0.05; done; cat /tmp/answer")
                               .arg(Program::path(), writeAccountsCommand());
    AccountStore store(nullptr, {text("/bin/sh"), {text("-c"), script}, std::chrono::milliseconds(patience)});
    QSignalSpy ended(&store, &AccountStore::ended);
    store.read();
    QTRY_VERIFY_WITH_TIMEOUT(QFile(text("/tmp/answer")).size() > 0, patience);
    // It notices the change at about the same time as the store.
    const FileWatcher watcher({passwdPath()});
    QSignalSpy changed(&watcher, &FileWatcher::changed);
    Sandbox::replace(passwdPath(), Line::root() + Line::bob());
    QVERIFY(changed.wait(patience));
    QVERIFY(!ended.wait(1500));
    Sandbox::write(text("/tmp/go"), QByteArray());
    QVERIFY(ended.wait(patience));
    QCOMPARE(names(store.users()), text("root ada"));
    QVERIFY(store.isReading());
    QVERIFY(ended.wait(patience));
    QCOMPARE(names(store.users()), text("root bob"));
    QVERIFY(!store.isReading());
}

void AccountStoreTest::readsLimitsAgainWhenTheyChange()
{
    AccountStore store;
    QVERIFY(read(store));
    QSignalSpy limitsRead(&store, &AccountStore::limitsRead);
    Sandbox::replace(limitsPath(), "* soft core 0\n* hard core 1\n");
    QVERIFY(limitsRead.wait(patience));
    QCOMPARE(store.limits().rules().lines().size(), 2);
    Sandbox::write(dropInPath(text("10.conf")), "* soft nproc 0\n");
    QVERIFY(limitsRead.wait(patience));
    QCOMPARE(store.limits().rules().lines().size(), 3);
}

QTEST_GUILESS_MAIN(AccountStoreTest)

#include "accountstoretest.moc"

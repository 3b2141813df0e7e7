/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "filewatcher.h"

#include "sandbox.h"
#include "texts.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTest>

#include <atomic>
#include <cstring>
#include <memory>

#include <dirent.h>
#include <dlfcn.h>
#include <sys/inotify.h>
#include <sys/stat.h>

namespace
{
/** How often files were looked at in the thread that has called countCalls(), and in others. */
std::atomic<int> s_ownCalls;
std::atomic<int> s_otherCalls;
thread_local bool s_isOwnThread = false;

void countCalls()
{
    s_isOwnThread = true;
    s_ownCalls = 0;
    s_otherCalls = 0;
}

template<typename Function>
Function counted(const char *name, const char *path)
{
    if (strstr(path, "/watched")) {
        ++(s_isOwnThread ? s_ownCalls : s_otherCalls);
    }
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}
}

extern "C" Q_DECL_EXPORT int stat(const char *path, struct stat *status) noexcept
{
    return counted<decltype(&stat)>("stat", path)(path, status);
}

extern "C" Q_DECL_EXPORT DIR *opendir(const char *path)
{
    return counted<decltype(&opendir)>("opendir", path)(path);
}

extern "C" Q_DECL_EXPORT int inotify_add_watch(int file, const char *path, uint32_t events) noexcept
{
    return counted<decltype(&inotify_add_watch)>("inotify_add_watch", path)(file, path, events);
}

namespace
{
QString folder()
{
    return text("/tmp/watched");
}

QString file(const char *name)
{
    return folder() + QLatin1Char('/') + QLatin1String(name);
}
}

class FileWatcherTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void noticesReplacedFile();
    void noticesEachReplacement();
    void noticesWrittenFile();
    void noticesFileThatGoesAndComesBack();
    void noticesChangedPermissions();
    void noticesFilesInFolder();
    void noticesFolderThatComesLater();
    void ignoresOtherFiles();
    void reportsManyChangesOnce();
    void looksInAnotherThread();
    void endsWhileFilesChange();

private:
    /** Whether exactly one change is reported. */
    bool isReportedOnce();

    std::unique_ptr<FileWatcher> m_watcher;
    std::unique_ptr<QSignalSpy> m_changes;
};

void FileWatcherTest::init()
{
    Sandbox::clear(folder());
    Sandbox::clear(file("parts"));
    Sandbox::write(file("passwd"), "one");
    m_watcher = std::make_unique<FileWatcher>(QStringList({file("passwd"), file("parts"), file("later")}));
    m_changes = std::make_unique<QSignalSpy>(m_watcher.get(), &FileWatcher::changed);
    QVERIFY(m_changes->isValid());
}

bool FileWatcherTest::isReportedOnce()
{
    m_changes->clear();
    return m_changes->wait(30000) && m_changes->size() == 1 && !m_changes->wait(700);
}

void FileWatcherTest::noticesReplacedFile()
{
    Sandbox::replace(file("passwd"), "two");
    QVERIFY(isReportedOnce());
}

void FileWatcherTest::noticesEachReplacement()
{
    for (int i = 0; i < 3; ++i) {
        Sandbox::replace(file("passwd"), QByteArray::number(i));
        QVERIFY(isReportedOnce());
    }
}

void FileWatcherTest::noticesWrittenFile()
{
    Sandbox::replace(file("passwd"), "two");
    QVERIFY(isReportedOnce());
    QFile passwd(file("passwd"));
    QVERIFY(passwd.open(QIODevice::Append));
    passwd.write("three");
    passwd.close();
    QVERIFY(isReportedOnce());
}

void FileWatcherTest::noticesFileThatGoesAndComesBack()
{
    Sandbox::remove(file("passwd"));
    QVERIFY(isReportedOnce());
    Sandbox::write(file("passwd"), "one");
    QVERIFY(isReportedOnce());
}

void FileWatcherTest::noticesChangedPermissions()
{
    QVERIFY(QFile::setPermissions(file("passwd"), QFile::ReadOwner));
    QVERIFY(isReportedOnce());
}

void FileWatcherTest::noticesFilesInFolder()
{
    Sandbox::write(file("parts/10.conf"), "one");
    QVERIFY(isReportedOnce());
    Sandbox::write(file("parts/10.conf"), "another");
    QVERIFY(isReportedOnce());
    Sandbox::remove(file("parts/10.conf"));
    QVERIFY(isReportedOnce());
}

void FileWatcherTest::noticesFolderThatComesLater()
{
    Sandbox::clear(file("later"));
    QVERIFY(isReportedOnce());
    Sandbox::write(file("later/10.conf"), "one");
    QVERIFY(isReportedOnce());
}

void FileWatcherTest::ignoresOtherFiles()
{
    Sandbox::write(file("resolv.conf"), "one");
    QVERIFY(!m_changes->wait(1500));
}

void FileWatcherTest::reportsManyChangesOnce()
{
    // 50 a second, for longer than it waits for calm, which comes where this process has to wait for a processor
    int calms = 0;
    for (int i = 0; i < 50; ++i) {
        Sandbox::replace(file("passwd"), QByteArray::number(i));
        QElapsedTimer pause;
        pause.start();
        QTest::qWait(20);
        calms += pause.elapsed() >= 400 ? 1 : 0;
    }
    // Fewer than a report every half second, and one for the last change.
    QVERIFY2(m_changes->size() <= 2 + calms, qPrintable(QString::number(m_changes->size())));
    QVERIFY(isReportedOnce());
}

void FileWatcherTest::looksInAnotherThread()
{
    countCalls();
    Sandbox::replace(file("passwd"), "two");
    Sandbox::write(file("parts/10.conf"), "one");
    QVERIFY(isReportedOnce());
    QVERIFY(s_otherCalls > 0);
    QCOMPARE(int(s_ownCalls), 0);
}

void FileWatcherTest::endsWhileFilesChange()
{
    for (int i = 0; i < 20; ++i) {
        Sandbox::replace(file("passwd"), QByteArray::number(i));
        m_watcher = std::make_unique<FileWatcher>(QStringList({file("passwd")}));
    }
    const QSignalSpy changes(m_watcher.get(), &FileWatcher::changed);
    QTest::qWait(700);
    QCOMPARE(changes.size(), 0);
}

QTEST_GUILESS_MAIN(FileWatcherTest)

#include "filewatchertest.moc"

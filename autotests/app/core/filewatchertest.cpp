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

#include <memory>

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

/** Replaces a file in the way of the tools for accounts. */
void replace(const QString &path, const QByteArray &content)
{
    const QString other = path + QLatin1Char('+');
    Sandbox::write(other, content);
    QCOMPARE(rename(QFile::encodeName(other).constData(), QFile::encodeName(path).constData()), 0);
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
    replace(file("passwd"), "two");
    QVERIFY(isReportedOnce());
}

void FileWatcherTest::noticesEachReplacement()
{
    for (int i = 0; i < 3; ++i) {
        replace(file("passwd"), QByteArray::number(i));
        QVERIFY(isReportedOnce());
    }
}

void FileWatcherTest::noticesWrittenFile()
{
    replace(file("passwd"), "two");
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
        replace(file("passwd"), QByteArray::number(i));
        QElapsedTimer pause;
        pause.start();
        QTest::qWait(20);
        calms += pause.elapsed() >= 400 ? 1 : 0;
    }
    // Fewer than a report every half second, and one for the last change.
    QVERIFY2(m_changes->size() <= 2 + calms, qPrintable(QString::number(m_changes->size())));
    QVERIFY(isReportedOnce());
}

QTEST_GUILESS_MAIN(FileWatcherTest)

#include "filewatchertest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "ownedfile.h"
#include "hostilefaces.h"
#include "sandbox.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sched.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
constexpr int largest = 1024 * 1024;
/** The owner of all files in a process that knows no user. */
constexpr uid_t nobody = 65534;

/** What @p condition returns in such a process. */
bool holdsWithoutUsers(const std::function<bool()> &condition)
{
    const pid_t pid = fork();
    if (pid == 0) {
        if (unshare(CLONE_NEWUSER) != 0) {
            _exit(2);
        }
        _exit(condition() ? 0 : 1);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) > 1) {
        qFatal("Cannot leave the users behind");
    }
    return WEXITSTATUS(status) == 0;
}
}

class OwnedFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void readsRegularFile_data();
    void readsRegularFile();
    void refusesOtherFiles_data();
    void refusesOtherFiles();
    void refusesFilesOfOthers();
    void followsLinksOfRootOnly();
    void readsFilesOfTheKernelWithinLimits();
    void survivesReplacement();

private:
    QByteArray read(const char *name) const
    {
        return OwnedFile::read(directory(), name, getuid());
    }

    QByteArray directory() const
    {
        return QFile::encodeName(m_directory.path());
    }

    QString path(const char *name) const
    {
        return m_directory.filePath(QString::fromLatin1(name));
    }

    QTemporaryDir m_directory;
};

void OwnedFileTest::initTestCase()
{
    Sandbox::write(path("file"), "content");
    QVERIFY(QDir(m_directory.path()).mkpath(QStringLiteral("a/b")));
    Sandbox::write(path("a/b/file"), "below");
}

void OwnedFileTest::readsRegularFile_data()
{
    QTest::addColumn<QByteArray>("directory");
    QTest::addColumn<QByteArray>("content");

    Sandbox::write(path("a/file"), QByteArray(largest, 'x'));
    QTest::newRow("file") << directory() << QByteArray("content");
    QTest::newRow("slashes") << "//" + directory() + "//a//b//" << QByteArray("below");
    QTest::newRow("steps up") << directory() + "/a/../a/b" << QByteArray("below");
    QTest::newRow("largest") << directory() + "/a" << QByteArray(largest, 'x');
}

void OwnedFileTest::readsRegularFile()
{
    QFETCH(QByteArray, directory);
    QFETCH(QByteArray, content);

    QCOMPARE(OwnedFile::read(directory, "file", getuid()), content);
}

void OwnedFileTest::refusesOtherFiles_data()
{
    QTest::addColumn<QByteArray>("directory");
    QTest::addColumn<QByteArray>("name");

    makePipe(path("pipe"));
    makeSocket(path("socket"));
    QFile::link(QStringLiteral("file"), path("link"));
    QFile::link(QStringLiteral("pipe"), path("linktopipe"));
    QFile::link(QStringLiteral("loop"), path("loop"));
    // Where others than root can put links.
    QDir().mkpath(path("common"));
    chmod(qPrintable(path("common")), 0777);
    QFile::link(QStringLiteral("/etc"), path("common/linktoetc"));
    QFile::link(m_directory.path(), path("common/linkback"));
    Sandbox::write(path("unreadable"), "x");
    QFile::setPermissions(path("unreadable"), {});
    Sandbox::write(path("large"), QByteArray(largest + 1, 'x'));

    const auto row = [](const char *title, const QByteArray &directory, const char *name) {
        QTest::newRow(title) << directory << QByteArray(name);
    };
    row("missing", directory(), "missing");
    row("pipe", directory(), "pipe");
    row("socket", directory(), "socket");
    row("device", "/dev", "zero");
    row("terminal", "/dev", "tty");
    row("directory", directory(), "a");
    row("this directory", directory(), ".");
    row("no name", directory(), "");
    row("link", directory(), "link");
    row("link to a pipe", directory(), "linktopipe");
    row("link to itself", directory(), "loop");
    row("unreadable", directory(), "unreadable");
    row("too large", directory(), "large");
    row("path as name", directory(), "a/file");
    row("way out", directory() + "/a", "../file");
    row("link in the path", directory() + "/common/linkback", "file");
    row("link out of the path", directory() + "/common/linktoetc", "passwd");
    row("no directory", directory() + "/file", "file");
    row("missing directory", directory() + "/missing", "file");
    row("relative directory", ".", "ormel-sandbox");
    row("empty directory", "", "file");
}

void OwnedFileTest::refusesOtherFiles()
{
    QFETCH(QByteArray, directory);
    QFETCH(QByteArray, name);

    QCOMPARE(OwnedFile::read(directory, name, getuid()), QByteArray());
}

void OwnedFileTest::refusesFilesOfOthers()
{
    const QByteArray directory = this->directory();
    QVERIFY(holdsWithoutUsers([&directory] { return OwnedFile::read(directory, "file", nobody) == "content"; }));
    QVERIFY(holdsWithoutUsers([&directory] { return OwnedFile::read(directory, "file", 1000).isNull(); }));
    QVERIFY(holdsWithoutUsers([&directory] { return OwnedFile::read(directory, "file", 0).isNull(); }));
}

void OwnedFileTest::followsLinksOfRootOnly()
{
    QVERIFY(QFile::link(path("a"), QStringLiteral("/etc/ormel-link")));
    const auto readByLink = [] { return OwnedFile::read("/etc/ormel-link/b", "file", getuid()); };
    // Here /etc belongs to the user who runs the test.
    QCOMPARE(readByLink(), getuid() == 0 ? QByteArray("below") : QByteArray());
    QCOMPARE(chmod("/etc", 0775), 0);
    QCOMPARE(readByLink(), QByteArray());
    QCOMPARE(chmod("/etc", 0757), 0);
    QCOMPARE(readByLink(), QByteArray());
    QCOMPARE(chmod("/etc", 0755), 0);
}

void OwnedFileTest::readsFilesOfTheKernelWithinLimits()
{
    const QByteArray content = OwnedFile::read("/proc/" + QByteArray::number(getpid()), "status", getuid());
    QVERIFY2(content.startsWith("Name:"), content.constData());
}

void OwnedFileTest::survivesReplacement()
{
    const QByteArray pipe = QFile::encodeName(path("pipe"));
    const QByteArray file = QFile::encodeName(path("file"));
    const QByteArray face = QFile::encodeName(path("face"));
    const pid_t pid = fork();
    if (pid == 0) {
        for (;;) { // ended from outside
            for (const QByteArray &target : {pipe, file}) {
                unlink(face.constData());
                link(target.constData(), face.constData());
            }
        }
    }
    int found = 0;
    int refused = 0;
    // Ends only after both cases have occurred. Waiting for a pipe would block it for ever.
    while (found < 20 || refused < 20) {
        const QByteArray content = read("face");
        QVERIFY(content.isNull() || content == "content");
        ++(content.isNull() ? refused : found);
    }
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
}

QTEST_GUILESS_MAIN(OwnedFileTest)

#include "ownedfiletest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsfixtures.h"
#include "messagerecorder.h"
#include "readerfixtures.h"
#include "standin.h"

#include <LimitsParser>

#include <QTest>

#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

// Files can vanish during reading. Here one is deleted when another one is opened or resolved.

namespace
{
struct Vanishing {
    const char *path;
    const char *when;
};

Vanishing s_beforeOpen;
Vanishing s_beforeResolve;

void vanish(Vanishing &vanishing, const char *path)
{
    if (qstrcmp(vanishing.when, path) == 0) {
        ::unlink(vanishing.path);
        vanishing = Vanishing();
    }
}

QString unableToOpen(const QString &path, const char *reason)
{
    return QStringLiteral("Unable to open file \"%1\": %2.").arg(path, QLatin1String(reason));
}
}

extern "C" Q_DECL_EXPORT int open64(const char *path, int flags, ...)
{
    static const auto next = original(open64, "open64");
    vanish(s_beforeOpen, path);
    return next(path, flags, 0666);
}

extern "C" Q_DECL_EXPORT char *realpath(const char *path, char *resolved) noexcept
{
    static const auto next = original(realpath, "realpath");
    vanish(s_beforeResolve, path);
    return next(path, resolved);
}

class LimitsReaderFailuresTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void failsWithoutMainFile();
    void failsOnUnreadableMainFile();
    void failsOnDirectoryInPlaceOfMainFile();
    void failsOnDanglingMainFile();
    void namesLinkedMainFileAsItIs();
    void keepsRulesBeforeUnreadableDropIn();
    void namesTargetOfUnreadableLink();
    void takesPlaceholdersInPathsForText();
    void recoversOnNextReading();
    void failsOnFileThatVanishedAfterListing();
    void failsWithoutPathForFileThatVanishedWhileListing();
};

void LimitsReaderFailuresTest::init()
{
    clearLimits();
}

void LimitsReaderFailuresTest::failsWithoutMainFile()
{
    Sandbox::remove(limitsPath());
    writeDropIn("a", "* soft core 1\n");
    LimitsParser limits;
    QCOMPARE(failure(limits), unableToOpen(limitsPath(), "No such file or directory"));
    QVERIFY(limits.fields().isEmpty());
}

void LimitsReaderFailuresTest::failsOnUnreadableMainFile()
{
    LimitsParser limits = limitsOf("* soft core 1\n");
    QCOMPARE(::chmod(qPrintable(limitsPath()), 0), 0);
    QCOMPARE(failure(limits), unableToOpen(limitsPath(), "Permission denied"));
    QVERIFY(limits.fields().isEmpty());
}

void LimitsReaderFailuresTest::failsOnDirectoryInPlaceOfMainFile()
{
    Sandbox::remove(limitsPath());
    Sandbox::clear(limitsPath());
    LimitsParser limits;
    QFile directory(limitsPath());
    QVERIFY(!directory.open(QIODevice::ReadOnly));
    QCOMPARE(failure(limits), unableToOpen(limitsPath(), qPrintable(directory.errorString())));
    QVERIFY(limits.fields().isEmpty());
}

void LimitsReaderFailuresTest::failsOnDanglingMainFile()
{
    Sandbox::remove(limitsPath());
    link(QStringLiteral("nowhere"), limitsPath());
    LimitsParser limits;
    QCOMPARE(failure(limits), unableToOpen(limitsPath(), "No such file or directory"));
}

void LimitsReaderFailuresTest::namesLinkedMainFileAsItIs()
{
    Sandbox::remove(limitsPath());
    Sandbox::write(securityPath("target"), "* soft core 1\n");
    link(QStringLiteral("target"), limitsPath());
    LimitsParser limits = readLimits();
    QCOMPARE(values(limits), QStringLiteral("1"));
    QCOMPARE(::chmod(qPrintable(securityPath("target")), 0), 0);
    QCOMPARE(failure(limits), unableToOpen(limitsPath(), "Permission denied"));
}

void LimitsReaderFailuresTest::keepsRulesBeforeUnreadableDropIn()
{
    Sandbox::write(limitsPath(), "* soft core 1\n");
    writeDropIn("a.conf", "* soft core 2\n");
    writeDropIn("b.conf", "* soft core 3\n");
    writeDropIn("c.conf", "* soft core 4\n");
    const QString unreadable = dropInPath(QStringLiteral("b.conf"));
    QCOMPARE(::chmod(qPrintable(unreadable), 0), 0);

    LimitsParser limits;
    QCOMPARE(failure(limits), unableToOpen(unreadable, "Permission denied"));
    QCOMPARE(values(limits), QStringLiteral("1 2"));
}

void LimitsReaderFailuresTest::namesTargetOfUnreadableLink()
{
    Sandbox::write(securityPath("target"), QByteArray());
    QCOMPARE(::chmod(qPrintable(securityPath("target")), 0), 0);
    link(QStringLiteral("../limits.d/../target"), dropInPath(QStringLiteral("linked.conf")));
    LimitsParser limits;
    QCOMPARE(failure(limits), unableToOpen(securityPath("target"), "Permission denied"));
}

void LimitsReaderFailuresTest::takesPlaceholdersInPathsForText()
{
    const QString unreadable = dropInPath(QStringLiteral("%2 %1 <b>.conf"));
    Sandbox::write(unreadable, QByteArray());
    QCOMPARE(::chmod(qPrintable(unreadable), 0), 0);
    LimitsParser limits;
    QCOMPARE(failure(limits),
             QStringLiteral("Unable to open file \"/etc/security/limits.d/%2 %1 <b>.conf\": Permission denied."));
}

void LimitsReaderFailuresTest::recoversOnNextReading()
{
    Sandbox::remove(limitsPath());
    LimitsParser limits;
    failure(limits);
    Sandbox::write(limitsPath(), "* soft core 1\n");
    QString error = QLatin1String(untouched);
    QVERIFY(limits.readLimitsConf(error));
    QCOMPARE(values(limits), QStringLiteral("1"));
    QCOMPARE(error, QLatin1String(untouched));
}

void LimitsReaderFailuresTest::failsOnFileThatVanishedAfterListing()
{
    Sandbox::write(limitsPath(), "* soft core 1\n");
    writeDropIn("a", "* soft core 2\n");
    writeDropIn("b", "* soft core 3\n");
    s_beforeOpen = {"/etc/security/limits.d/b", "/etc/security/limits.conf"};
    LimitsParser limits;
    const QString message = failure(limits);
    QVERIFY(!s_beforeOpen.when);
    QCOMPARE(message, unableToOpen(dropInPath(QStringLiteral("b")), "No such file or directory"));
    QCOMPARE(values(limits), QStringLiteral("1 2"));
}

void LimitsReaderFailuresTest::failsWithoutPathForFileThatVanishedWhileListing()
{
    Sandbox::write(limitsPath(), "* soft core 1\n");
    writeDropIn("a", "* soft core 2\n");
    writeDropIn("b", "* soft core 3\n");
    s_beforeResolve = {"/etc/security/limits.d/a", "/etc/security/limits.d/a"};
    MessageRecorder recorder;
    QFile nameless;
    QVERIFY(!nameless.open(QIODevice::ReadOnly));
    LimitsParser limits;
    const QString message = failure(limits);
    QVERIFY(!s_beforeResolve.when);
    QCOMPARE(message, unableToOpen(QString(), qPrintable(nameless.errorString())));
    QCOMPARE(values(limits), QStringLiteral("1"));
}

QTEST_GUILESS_MAIN(LimitsReaderFailuresTest)

#include "readerfailurestest.moc"

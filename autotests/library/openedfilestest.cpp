/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "program.h"
#include "sandbox.h"
#include "systemcalls.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

// Checks which files the library opens, and that it makes no other change to the machine.

namespace
{
/** Files that Qt reads for windows: plugins, fonts, icons, file types, the type of the machine. */
const char *const foreign[] = {
    "/etc/fonts",
    "/etc/localtime",
    "/lib/",
    "/proc/",
    "/sys/",
    "/usr/lib/",
    "/usr/local/share/fonts",
    "/usr/share/fontconfig/",
    "/usr/share/fonts",
    "/usr/share/icons/",
    "/usr/share/mime/",
    "/var/cache/fontconfig",
    "/var/lib/dbus/machine-id",
};

/** Files that Qt keeps in the home directory: an index of the fonts and the state of the file dialog. */
bool isKeptByQt(const QString &path)
{
    const QString home = QDir::homePath();
    return path.startsWith(home + QLatin1String("/.cache")) || path.startsWith(home + QLatin1String("/.config"))
        || path.startsWith(home + QLatin1String("/.fontconfig"));
}

/** The C library loads name services on first use. The hash libraries read which algorithms are allowed. */
bool isOfOtherLibrary(const QString &path)
{
    static const QRegularExpression file(QStringLiteral("^(/usr)?/lib/([^/]+/)?lib[^/]+\\.so(\\.[0-9]+)*$"));
    return path == QLatin1String("/etc/ld.so.cache") || path.startsWith(QLatin1String("/etc/gcrypt/"))
        || path == QLatin1String("/proc/sys/crypto/fips_enabled") || file.match(path).hasMatch();
}

/** A thread of the file dialog lists folders as long as the dialog is open. */
bool isListedByQt(const QString &path)
{
    return path.startsWith(QLatin1String("/usr/share/kiv/faces")) && !path.endsWith(QLatin1String(".ppm"));
}

bool isForeign(const QString &path)
{
    const auto isBelow = [&path](const char *start) { return path.startsWith(QLatin1String(start)); };
    return isKeptByQt(path) || isListedByQt(path) || std::any_of(std::begin(foreign), std::end(foreign), isBelow);
}

/** Before each lookup the C library looks for its cache of accounts. */
bool isAboutNameServiceCache(const SystemCall &call)
{
    return call.name == QLatin1String("connect")
        ? call.path() == QLatin1String("/var/run/nscd/socket")
        : call.name == QLatin1String("socket") && call.arguments.startsWith(QLatin1String("AF_UNIX"));
}

QStringList familiesWithWindow()
{
    return {QStringLiteral("models"), QStringLiteral("select dialogs"), QStringLiteral("icon dialog")};
}

QStringList accountFiles()
{
    return {QStringLiteral("/etc/group"), QStringLiteral("/etc/nsswitch.conf"), QStringLiteral("/etc/passwd")};
}
}

class OpenedFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void readsFilesItNames_data();
    void readsFilesItNames();
};

void OpenedFilesTest::initTestCase()
{
    Sandbox::setAccounts("root:x:0:0::/:\nalice:x:1000:1000::/:\n", "root:x:0:\nalice:x:1000:\n");
    Sandbox::removeExtraAccounts();
    Sandbox::clear(QStringLiteral("/etc/security/limits.d"));
    Sandbox::write(QStringLiteral("/etc/security/limits.conf"), "* soft core 1\n");
    Sandbox::write(QStringLiteral("/etc/security/limits.d/a.conf"), "@1:2 hard cpu 1\n");
    Sandbox::clear(QStringLiteral("/usr/share/kiv/faces/birds"));
    Sandbox::write(QStringLiteral("/usr/share/kiv/faces/birds/robin.ppm"), "P3 1 1 255 0 0 0\n");
}

void OpenedFilesTest::readsFilesItNames_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("variables");
    QTest::addColumn<QStringList>("files");

    const auto row = [](const char *family, const QStringList &files) -> QTestData & {
        return QTest::newRow(family) << QStringList{QString::fromLatin1(family)} << QStringList() << files;
    };
    const QStringList limits{QStringLiteral("/etc/security/limits.conf"),
                             QStringLiteral("/etc/security/limits.d"),
                             QStringLiteral("/etc/security/limits.d/a.conf")};
    row("records", accountFiles());
    row("validators", {QStringLiteral("/etc/adduser.conf")});
    row("hashes", QStringList());
    const QStringList faces{QStringLiteral("/usr/share/kiv/faces"), QStringLiteral("/usr/share/kiv/faces/birds")};
    const QStringList pictures = QStringList{QStringLiteral("/usr/share/kiv")} + faces;
    row("pictures", pictures);
    row("limits", limits);
    row("models", accountFiles());
    row("select dialogs", accountFiles());
    const QString picture = QStringLiteral("/usr/share/kiv/faces/birds/robin.ppm");
    QTest::newRow("icon dialog") << QStringList{QStringLiteral("icon dialog"), picture} << QStringList()
                                 << QStringList{picture};

    const QString foreignDirectory = QStringLiteral("=/tmp/hostile");
    QStringList hostile;
    for (const char *name : {"GCONV_PATH",
                             "HOME",
                             "HOSTALIASES",
                             "LANGUAGE",
                             "LDAPCONF",
                             "LOCPATH",
                             "NLSPATH",
                             "QT_LOGGING_CONF",
                             "QT_PLUGIN_PATH",
                             "RES_OPTIONS",
                             "TMPDIR",
                             "XDG_CONFIG_HOME",
                             "XDG_DATA_DIRS",
                             "XDG_DATA_HOME"}) {
        hostile.append(QLatin1String(name) + foreignDirectory);
    }
    const auto hostileRow = [&hostile](const char *family, const QStringList &files) {
        QTest::addRow("%s, in a hostile environment", family)
            << QStringList{QString::fromLatin1(family)} << hostile << files;
    };
    hostileRow("records", accountFiles());
    hostileRow("validators", {QStringLiteral("/etc/adduser.conf")});
    hostileRow("hashes", QStringList());
    hostileRow("pictures", pictures);
    hostileRow("limits", limits);
    hostileRow("models", accountFiles());

    const QString catalogue = QStringLiteral(CATALOGUES "/locale/de/LC_MESSAGES/ormel_kcm_users.mo");
    QTest::newRow("limits, in German") << QStringList{QStringLiteral("limits")}
                                       << QStringList{QStringLiteral("LANGUAGE=de"),
                                                      QStringLiteral("XDG_DATA_DIRS=" CATALOGUES)}
                                       << (limits + QStringList{catalogue});
}

void OpenedFilesTest::readsFilesItNames()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, variables);
    QFETCH(QStringList, files);

    const bool hasWindow = familiesWithWindow().contains(arguments.first());
    QStringList opened;
    QStringList changed;
    QStringList others;
    const QVector<SystemCall> calls = systemCallsOf(QStringLiteral("tracedfamily"), arguments, variables);
    for (const SystemCall &call : calls) {
        if (call.opensForReading() && !isOfOtherLibrary(call.path()) && !(hasWindow && isForeign(call.path()))) {
            opened.append(call.path());
        }
        if (call.changesFiles() && !(hasWindow && isKeptByQt(call.path()))) {
            changed.append(call.name + QLatin1Char(' ') + call.arguments);
        }
        if (call.startsProcess() || (call.isAboutSockets() && !isAboutNameServiceCache(call))) {
            others.append(call.name + QLatin1Char(' ') + call.arguments);
        }
    }
    opened.sort();
    opened.removeDuplicates();
    files.sort();
    QCOMPARE(opened.join(QLatin1Char(' ')), files.join(QLatin1Char(' ')));
    QCOMPARE(changed.join(QLatin1Char('\n')), QString());
    QCOMPARE(others.join(QLatin1Char('\n')), QString());
}

QTEST_GUILESS_MAIN(OpenedFilesTest)

#include "openedfilestest.moc"

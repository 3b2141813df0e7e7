/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "directoryservice.h"

#include "program.h"
#include "sandbox.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <algorithm>
#include <csignal>

#include <dlfcn.h>

namespace
{
/** Whether all threads of a process are stopped. */
bool isStopped(qint64 process)
{
    const QDir threads(QStringLiteral("/proc/%1/task").arg(process));
    const QStringList numbers = threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return std::all_of(numbers.begin(), numbers.end(), [&threads](const QString &number) {
        QFile status(threads.filePath(number + QStringLiteral("/stat")));
        return status.open(QIODevice::ReadOnly) && status.readAll().contains(") T ");
    });
}

QString unpacked(const char *path)
{
    return QStringLiteral(DIRECTORY_SERVICE) + QLatin1String(path);
}

QString serverSettings()
{
    return QStringLiteral("/tmp/slapd.conf");
}

QByteArray serverSettingsText()
{
    const QByteArray include = "include " + unpacked("/etc/ldap/schema/").toUtf8();
    return include + "core.schema\n" + include + "cosine.schema\n" + include + "nis.schema\n" + //
        "modulepath " + unpacked("/usr/lib/ldap").toUtf8() + //
        "\nmoduleload back_mdb\n"
        "sizelimit unlimited\n"
        "database mdb\n"
        "suffix dc=example\n"
        "directory /tmp/directory\n"
        "dbnosync\n"
        "index objectClass,uid,cn,uidNumber,gidNumber,memberUid eq\n";
}

QByteArray lookupsSettingsText()
{
    return "uri ldap://127.0.0.1:3890\n"
           "base dc=example\n"
           "bind_timelimit 1\n"
           "timelimit 1\n"
           "reconnect_sleeptime 1\n"
           "reconnect_retrytime 1\n"
           "threads 1\n";
}

void load(const QByteArray &entries)
{
    Sandbox::clear(QStringLiteral("/tmp/directory"));
    const auto loaded = Program::run(unpacked("/usr/sbin/slapadd"),
                                     {QStringLiteral("-q"), QStringLiteral("-f"), serverSettings()},
                                     entries,
                                     DirectoryService::variables());
    if (loaded.status != 0) {
        qFatal("The directory takes no entries: %s", loaded.errors.constData());
    }
}

void start(QProcess &process, const char *program, const QStringList &arguments)
{
    process.setProcessEnvironment(Program::environment(DirectoryService::variables()));
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(unpacked(program), arguments);
    if (!process.waitForStarted()) {
        qFatal("Cannot start %s", program);
    }
}

void kill(QProcess &process)
{
    process.kill();
    process.waitForFinished();
}

void signal(const QProcess &process, int number)
{
    ::kill(static_cast<pid_t>(process.processId()), number);
}
}

DirectoryService::DirectoryService(const QByteArray &entries)
{
    Sandbox::write(serverSettings(), serverSettingsText());
    Sandbox::write(QStringLiteral("/etc/nslcd.conf"), lookupsSettingsText());
    Sandbox::clear(QStringLiteral("/run/nslcd"));
    load(entries);
    startServer();
    startLookups();
    // Once it is loaded, the C library takes it for the module of that name.
    // Debian 12 has it below /lib.
    QString module = unpacked("/usr/lib/" LIBRARY_ARCHITECTURE "/libnss_ldap.so.2");
    if (!QFile::exists(module)) {
        module = unpacked("/lib/" LIBRARY_ARCHITECTURE "/libnss_ldap.so.2");
    }
    if (!dlopen(qPrintable(module), RTLD_NOW)) {
        qFatal("%s", dlerror());
    }
    Sandbox::setNameService("files ldap");
}

DirectoryService::~DirectoryService()
{
    Sandbox::setNameService("files");
    thawServer();
    kill(m_lookups);
    kill(m_server);
}

void DirectoryService::startServer()
{
    start(m_server,
          "/usr/sbin/slapd",
          {QStringLiteral("-d"),
           QStringLiteral("0"),
           QStringLiteral("-f"),
           serverSettings(),
           QStringLiteral("-h"),
           QStringLiteral("ldap://127.0.0.1:3890")});
}

void DirectoryService::stopServer()
{
    kill(m_server);
}

void DirectoryService::freezeServer()
{
    signal(m_server, SIGSTOP);
    // A thread that is busy stops a moment later, and may still answer.
    if (!QTest::qWaitFor([this] { return isStopped(m_server.processId()); }, 20000)) {
        qFatal("The server does not stop");
    }
}

void DirectoryService::thawServer()
{
    signal(m_server, SIGCONT);
}

void DirectoryService::startLookups()
{
    start(m_lookups, "/usr/sbin/nslcd", {QStringLiteral("--nofork")});
}

void DirectoryService::stopLookups()
{
    kill(m_lookups);
}

void DirectoryService::waitFor(const QString &name)
{
    const auto isKnown = [&name] {
        return Program::run(QStringLiteral("getent"), {QStringLiteral("passwd"), name}, {}, variables()).status == 0;
    };
    if (!QTest::qWaitFor(isKnown, 20000)) {
        qFatal("The directory does not answer.");
    }
}

QStringList DirectoryService::variables()
{
    return {QStringLiteral("LD_LIBRARY_PATH=") + unpacked("/lib/" LIBRARY_ARCHITECTURE ":")
            + unpacked("/usr/lib/" LIBRARY_ARCHITECTURE)};
}

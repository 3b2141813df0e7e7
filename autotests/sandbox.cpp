/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "sandbox.h"

#include <QDir>
#include <QFile>

namespace
{
void requireSandbox()
{
    if (!QFile::exists(QStringLiteral("/etc/ormel-sandbox"))) {
        qFatal("This test writes to /etc: run it with scripts/sandbox.");
    }
}

void setNameService(const QByteArray &services)
{
    Sandbox::write(QStringLiteral("/etc/nsswitch.conf"), "passwd: " + services + "\ngroup: " + services + '\n');
}
}

void Sandbox::write(const QString &path, const QByteArray &content)
{
    requireSandbox();
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush()) {
        qFatal("Cannot write %s: %s", qPrintable(path), qPrintable(file.errorString()));
    }
}

void Sandbox::remove(const QString &path)
{
    requireSandbox();
    QFile::remove(path);
}

void Sandbox::clearDirectory(const QString &directory)
{
    requireSandbox();
    QDir dir(directory);
    if (!dir.removeRecursively() || !dir.mkpath(QStringLiteral("."))) {
        qFatal("Cannot clear %s", qPrintable(directory));
    }
}

void Sandbox::setAccounts(const QByteArray &passwd, const QByteArray &group)
{
    write(QStringLiteral("/etc/passwd"), passwd);
    write(QStringLiteral("/etc/group"), group);
}

void Sandbox::setExtraAccounts(const QByteArray &passwd, const QByteArray &group)
{
    write(QStringLiteral("/var/lib/extrausers/passwd"), passwd);
    write(QStringLiteral("/var/lib/extrausers/group"), group);
    setNameService("files extrausers");
}

void Sandbox::removeExtraAccounts()
{
    setNameService("files");
}

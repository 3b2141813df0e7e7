/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "sandbox.h"

#include <QDir>
#include <QFile>

#include <cstdio>

namespace
{
void requireSandbox()
{
    if (!QFile::exists(QStringLiteral("/etc/ormel-sandbox"))) {
        qFatal("This test writes to /etc: run it with scripts/sandbox.");
    }
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

void Sandbox::replace(const QString &path, const QByteArray &content)
{
    const QString other = path + QLatin1Char('+');
    write(other, content);
    if (rename(QFile::encodeName(other).constData(), QFile::encodeName(path).constData()) != 0) {
        qFatal("Cannot replace %s", qPrintable(path));
    }
}

void Sandbox::clear(const QString &directory)
{
    requireSandbox();
    QDir().mkpath(directory);
    const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    const QFileInfoList entries = QDir(directory).entryInfoList(all);
    for (const QFileInfo &entry : entries) {
        const QString path = entry.absoluteFilePath();
        const bool removed = entry.isDir() && !entry.isSymLink() ? QDir(path).removeRecursively() : QFile::remove(path);
        if (!removed) {
            qFatal("Cannot remove %s", qPrintable(path));
        }
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

void Sandbox::setNameService(const QByteArray &sources)
{
    write(QStringLiteral("/etc/nsswitch.conf"), "passwd: " + sources + "\ngroup: " + sources + '\n');
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "brokenaccounts.h"

#include "sandbox.h"

#include <QFile>

namespace
{
/** The files of a machine without problems. */
QMap<QString, QByteArray> goodFiles()
{
    return {
        {QStringLiteral("passwd"),
         "root:x:0:0:root:/nonexistent:/bin/sh\n"
         "daemon:x:1:1:daemon:/nonexistent:/usr/sbin/nologin\n"
         "alice:x:1000:1000:Alice:/nonexistent:/bin/sh\n"},
        {QStringLiteral("group"),
         "root:x:0:\n"
         "daemon:x:1:\n"
         "alice:x:1000:\n"
         "staff:x:50:alice\n"},
        {QStringLiteral("shadow"),
         "root:*:19000:0:99999:7:::\n"
         "daemon:*:19000:0:99999:7:::\n"
         "alice:$6$salt$hash:19000:0:99999:7:::\n"},
        {QStringLiteral("gshadow"),
         "root:*::\n"
         "daemon:*::\n"
         "alice:!::\n"
         "staff:!::alice\n"},
        {QStringLiteral("security/limits.conf"), QByteArray()},
        {QStringLiteral("security/limits.d/old.conf.bak"), QByteArray()},
    };
}

/** @p line with the bytes that its escapes stand for. */
QByteArray unescaped(QByteArray line)
{
    line.replace("\\0", QByteArray(1, '\0')).replace("\\e", "\x1b");
    for (int i = line.indexOf("\\x"); i >= 0; i = line.indexOf("\\x", i + 1)) {
        line.replace(i, 4, QByteArray::fromHex(line.mid(i + 2, 2)));
    }
    return line;
}

void addLine(BrokenAccounts &accounts, const QByteArray &line)
{
    const int blank = line.indexOf(' ');
    const QByteArray word = blank < 0 ? line : line.left(blank);
    const QByteArray rest = blank < 0 ? QByteArray() : unescaped(line.mid(blank + 1));
    if (word == ">") {
        accounts.problems.append(QString::fromUtf8(rest));
        return;
    }
    const QString file = QString::fromLatin1(word);
    if (!accounts.files.contains(file)) {
        qFatal("Not a line of a case: %s", line.constData());
    }
    accounts.files[file] += rest + '\n';
}
}

QVector<BrokenAccounts> BrokenAccounts::all()
{
    QFile file(QStringLiteral(BROKEN_ACCOUNTS));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("Cannot read %s", qPrintable(file.fileName()));
    }
    QVector<BrokenAccounts> cases;
    while (!file.atEnd()) {
        QByteArray line = file.readLine();
        line.chop(int(line.endsWith('\n')));
        if (line.startsWith("== ")) {
            cases.append({line.mid(3), goodFiles(), {}});
        } else if (!cases.isEmpty()) {
            addLine(cases.last(), line);
        }
    }
    return cases;
}

void BrokenAccounts::install() const
{
    for (auto file = files.begin(); file != files.end(); ++file) {
        Sandbox::write(QStringLiteral("/etc/") + file.key(), file.value());
    }
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "systemcalls.h"

#include "filecontent.h"
#include "program.h"

#include <QRegularExpression>

namespace
{
bool isOneOf(const QString &name, const char *names)
{
    return QString::fromLatin1(names).split(QLatin1Char(' ')).contains(name);
}

bool has(const QString &text, const char *pattern)
{
    return QRegularExpression(QString::fromLatin1(pattern)).match(text).hasMatch();
}

/** The calls in the output of strace, without the second halves of calls that another thread interrupted. */
QVector<SystemCall> parsed(const QByteArray &trace)
{
    static const QRegularExpression call(QStringLiteral("^[0-9]+ +([a-z0-9_]+)\\((.*)$"));
    QVector<SystemCall> calls;
    const QByteArrayList lines = trace.split('\n');
    for (const QByteArray &line : lines) {
        const QRegularExpressionMatch match = call.match(QString::fromUtf8(line));
        if (match.hasMatch()) {
            calls.append({match.captured(1), match.captured(2)});
        }
    }
    return calls;
}

int indexOfMark(const QVector<SystemCall> &calls, const char *mark)
{
    for (int i = 0; i < calls.size(); ++i) {
        if (calls.at(i).path() == QLatin1String(mark)) {
            return i;
        }
    }
    qFatal("The trace has no mark %s", mark);
}
}

QString SystemCall::path() const
{
    return arguments.section(QLatin1Char('"'), -2, -2);
}

QString SystemCall::openedPath() const
{
    static const QRegularExpression descriptor(QStringLiteral("\\) += [0-9]+<(.*)>$"));
    return isOneOf(name, "open openat openat2") ? descriptor.match(arguments).captured(1) : QString();
}

bool SystemCall::opensForReading() const
{
    return isOneOf(name, "open openat openat2") && !changesFiles();
}

bool SystemCall::changesFiles() const
{
    if (isOneOf(name, "open openat openat2")) {
        return has(arguments, "O_(WRONLY|RDWR|CREAT|TRUNC|APPEND|TMPFILE)");
    }
    return has(
        name,
        "^(creat|f?truncate|unlink|rename|link|symlink|mkdir|rmdir|mknod|utime|futime)|ch(mod|own)|setxattr|mount");
}

bool SystemCall::startsProcess() const
{
    const bool clones = name.startsWith(QLatin1String("clone")) && !arguments.contains(QLatin1String("CLONE_THREAD"));
    return clones || isOneOf(name, "fork vfork execve execveat");
}

bool SystemCall::isAboutSockets() const
{
    return isOneOf(name, "socket connect bind listen accept accept4 sendto sendmsg");
}

QVector<SystemCall> systemCallsOf(const QString &program, const QStringList &arguments, const QStringList &variables)
{
    const QString trace = QStringLiteral("/tmp/trace");
    const Program::Result result =
        Program::run(QStringLiteral("strace"),
                     QStringList{QStringLiteral("-f"),
                                 QStringLiteral("-qq"),
                                 QStringLiteral("-y"),
                                 QStringLiteral("-s4096"),
                                 QStringLiteral("-etrace=%file,%network,%process,ftruncate,fchmod,fchown"),
                                 QStringLiteral("-o"),
                                 trace,
                                 Program::builtFile(program)}
                         + arguments,
                     {},
                     // The search for leaks would need to trace the program itself.
                     QStringList{QStringLiteral("ASAN_OPTIONS=detect_leaks=0")} + variables);
    if (result.status != 0) {
        qFatal("%s", result.errors.constData());
    }
    const QVector<SystemCall> calls = parsed(contentOf(trace));
    const int begin = indexOfMark(calls, "/begin") + 1;
    return calls.mid(begin, indexOfMark(calls, "/end") - begin);
}

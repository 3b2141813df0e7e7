/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitfiles.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
using PamLimits::File;

/** Offsets in a file have 32 bits, like the sizes of Qt's containers. */
constexpr qint64 maxSize = 1 << 30;

QString systemError(int number)
{
    return QString::fromLocal8Bit(strerror(number));
}

File::State stateOfMissing(const PamLimits::Module &module)
{
    return module.needsFiles ? File::State::FailsSession : File::State::Missing;
}

void refuse(File &file, File::State state, const QString &error)
{
    file.state = state;
    file.error = error;
}

/** Whether @p status is that of /dev/null. A link to it switches a file off. */
bool isNull(const struct stat &status)
{
    struct stat null = {};
    return S_ISCHR(status.st_mode) && stat("/dev/null", &null) == 0 && status.st_rdev == null.st_rdev;
}

void readContent(int descriptor, const struct stat &status, File &file)
{
    if (S_ISDIR(status.st_mode)) {
        refuse(file, File::State::Directory, systemError(EISDIR));
        return;
    }
    if (isNull(status)) {
        return;
    }
    if (!S_ISREG(status.st_mode) || status.st_size > maxSize) {
        refuse(file, File::State::Unreadable, systemError(S_ISREG(status.st_mode) ? EFBIG : EINVAL));
        return;
    }
    QFile content;
    content.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered);
    file.content = content.readAll();
    if (content.error() != QFileDevice::NoError) {
        refuse(file, File::State::Unreadable, content.errorString());
    }
}

File readFile(const QString &path, const PamLimits::Module &module)
{
    File file;
    file.path = path;
    // Opening a pipe would wait for a writer.
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) {
        const int error = errno;
        const bool isPermission = error == EACCES || error == EPERM;
        const File::State refused = isPermission ? File::State::Unreadable : File::State::FailsSession;
        refuse(file, error == ENOENT ? stateOfMissing(module) : refused, systemError(error));
        return file;
    }
    struct stat status = {};
    fstat(descriptor, &status);
    readContent(descriptor, status, file);
    close(descriptor);
    return file;
}

/** A file that PAM does not read, with its contents if they can be read. */
File neighbour(const QString &path, File::State state, const PamLimits::Module &module)
{
    File file = readFile(path, module);
    file.state = state;
    return file;
}

/** Sorted by their bytes, as in the locale "C". */
QStringList namesIn(const QDir &directory)
{
    QStringList names = directory.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    std::sort(names.begin(), names.end(), [](const QString &left, const QString &right) {
        return QFile::encodeName(left) < QFile::encodeName(right);
    });
    return names;
}

void readDirectory(const QDir &directory, const PamLimits::Module &module, QVector<File> &files)
{
    const QStringList names = namesIn(directory);
    for (const QString &name : names) {
        const QString path = directory.filePath(name);
        const bool isConf = name.endsWith(QLatin1String(".conf"));
        if (isConf && !name.startsWith(QLatin1Char('.'))) {
            files.append(readFile(path, module));
        } else if (!QFileInfo(path).isDir()) {
            files.append(neighbour(path, isConf ? File::State::Hidden : File::State::OtherName, module));
        }
    }
}
}

PamLimits::Files PamLimits::Files::read(const Module &module)
{
    Files files;
    files.files.append(readFile(QStringLiteral("/etc/security/limits.conf"), module));
    const QDir directory(QStringLiteral("/etc/security/limits.d"));
    const QByteArray name = QFile::encodeName(directory.path());
    const int descriptor = open(name.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        close(descriptor);
        readDirectory(directory, module, files.files);
    } else if (errno == EACCES) {
        files.directoryError = systemError(errno);
    }
    return files;
}

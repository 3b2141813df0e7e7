/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "ownedfile.h"

#include "descriptor.h"

#include <QByteArrayList>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
/** Whether only root can change the entries of a directory. */
bool belongsToRoot(const Descriptor &directory)
{
    struct stat status = {};
    return fstat(directory.number(), &status) == 0 && status.st_uid == 0 && !(status.st_mode & (S_IWGRP | S_IWOTH));
}

Descriptor openBelow(const Descriptor &directory, const QByteArray &name)
{
    constexpr int flags = O_PATH | O_DIRECTORY | O_CLOEXEC;
    const int links = belongsToRoot(directory) ? 0 : O_NOFOLLOW;
    return Descriptor(openat(directory.number(), name.constData(), flags | links));
}

Descriptor openDirectory(const QByteArray &path)
{
    Descriptor directory(path.startsWith('/') ? open("/", O_PATH | O_DIRECTORY | O_CLOEXEC) : -1);
    const QByteArrayList names = path.split('/');
    for (const QByteArray &name : names) {
        if (!name.isEmpty() && directory.isOpen()) {
            directory = openBelow(directory, name);
        }
    }
    return directory;
}

bool isAcceptable(const Descriptor &file, uid_t owner)
{
    struct stat status = {};
    return fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode) && status.st_size <= OwnedFile::largest
        && (status.st_uid == owner || status.st_uid == 0);
}

/** The file may grow meanwhile, and files of the kernel have no size. */
QByteArray readUpTo(const Descriptor &file, qint64 longest)
{
    QByteArray content(int(longest), Qt::Uninitialized);
    qint64 size = 0;
    ssize_t count = 1;
    while (count > 0 && size < longest) {
        count = ::read(file.number(), content.data() + size, size_t(longest - size));
        size += qMax<ssize_t>(count, 0);
    }
    content.truncate(int(size));
    return content;
}
}

QByteArray OwnedFile::read(const QByteArray &directory, const QByteArray &name, uid_t owner)
{
    if (name.contains('/')) {
        return {};
    }
    const Descriptor place = openDirectory(directory);
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const Descriptor file(place.isOpen() ? openat(place.number(), name.constData(), flags) : -1);
    if (!file.isOpen() || !isAcceptable(file, owner)) {
        return {};
    }
    const QByteArray content = readUpTo(file, largest + 1);
    return content.size() > largest ? QByteArray() : content;
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "picturereader.h"

#include "rasterreader.h"
#include "svgreader.h"

#include <QFile>
#include <QImageReader>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace
{
using PictureReader::Problem;
using PictureReader::Result;

bool isRegular(int descriptor)
{
    struct stat status = {};
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

/** Opens @p file to read; None when that succeeded. Opening does not wait for the other end of a pipe. */
Result open(QFile &file)
{
    const int descriptor =
        ::open(QFile::encodeName(file.fileName()).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) {
        return {{}, Problem::Unreadable, qt_error_string(errno)};
    }
    file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    return {{}, isRegular(descriptor) ? Problem::None : Problem::NotAFile, {}};
}
}

Result PictureReader::read(const QString &fileName)
{
    QFile file(fileName);
    Result result = open(file);
    if (result.problem != Problem::None) {
        return result;
    }
    QImageReader reader(&file);
    return SvgReader::canRead(reader) ? SvgReader::read(file) : RasterReader::read(reader);
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "fuzzing.h"
#include "peakmemory.h"
#include "picturereader.h"
#include "processortime.h"
#include "smallpicture.h"
#include "standin.h"

#include <QDir>
#include <QFile>
#include <QImageReader>

#include <cstdarg>
#include <initializer_list>

#include <fcntl.h>
#include <sys/resource.h>

using Fuzzing::require;

// An input is a whole picture file of any format. It is read like a file that the operator chose, and
// like the picture of a user. Neither may open another file or take more time and memory than allowed.

namespace
{
/** Larger pictures, up to the limit of the reader, only take longer. */
constexpr qint64 mostPixels = 1 << 20;

/** The sanitizers slow decoders down and keep what is freed for a while. */
constexpr double mostSeconds = 10;
constexpr qint64 mostBytes = 400LL * 1024 * 1024;

bool s_isReading = false;

/** The files that a decoder opened besides the picture and files of the system. */
QString &foreignFile()
{
    static QString path;
    return path;
}

QString picturePath()
{
    return QDir::tempPath() + QLatin1String("/picture");
}

/** Whether a decoder may open this for its own purposes: fonts, for one, or itself. */
bool isOfSystem(const QString &path)
{
    for (const char *directory :
         {"/usr/", "/lib/", "/etc/fonts/", "/etc/ld.so", "/var/cache/fontconfig/", "/proc/self/"}) {
        if (path.startsWith(QLatin1String(directory))) {
            return true;
        }
    }
    return path.contains(QLatin1String("/fontconfig"));
}

qint64 claimedPixels(const QString &path)
{
    const QSize size = QImageReader(path).size();
    return qint64(size.width()) * size.height();
}

/** Calls @p read and checks the time and memory that it took. */
template<typename Read>
auto measured(Read read)
{
    PeakMemory::reset();
    const qint64 memoryBefore = PeakMemory::bytes();
    const double timeBefore = processorSeconds(RUSAGE_SELF);
    s_isReading = true;
    auto result = read();
    s_isReading = false;
    require(foreignFile().isNull(), QLatin1String("Nothing but the picture is opened: ") + foreignFile());
    const double seconds = processorSeconds(RUSAGE_SELF) - timeBefore;
    require(seconds < mostSeconds, QStringLiteral("It took %1 s").arg(seconds));
    const qint64 bytes = PeakMemory::bytes() - memoryBefore;
    require(bytes < mostBytes, QStringLiteral("It took %1 bytes").arg(bytes));
    return result;
}

void readChosen()
{
    const auto result = measured([] { return PictureReader::read(picturePath()); });
    require(result.image.isNull() == (result.problem != PictureReader::Problem::None),
            QStringLiteral("There is a picture or a problem"));
    require(qint64(result.image.width()) * result.image.height() <= PictureReader::mostPixels,
            QStringLiteral("A picture is within the limit"));
}

void readOfUser(const QByteArray &input, const QSize &place)
{
    const auto result = measured([&] { return SmallPicture::decode(input, place); });
    if (result.image.isNull()) {
        return;
    }
    require(!result.size.isEmpty() && result.size.boundedTo(place) == result.size,
            QStringLiteral("A picture fits into its place"));
    require(result.image.size().boundedTo(2 * place) == result.image.size(),
            QStringLiteral("A picture is not much larger than its place"));
}
}

/** What Qt and the decoders open files with. */
extern "C" Q_DECL_EXPORT int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    const QString name = QFile::decodeName(path);
    if (s_isReading && name != picturePath() && !isOfSystem(name)) {
        foreignFile() = name;
    }
    static const auto next = original(open64, "open64");
    return next(path, flags, mode);
}

void Target::prepare()
{
    SmallPicture::prepare();
}

void Target::run(const QByteArray &input)
{
    QFile file(picturePath());
    require(file.open(QIODevice::WriteOnly) && file.write(input) == input.size(), file.errorString());
    file.close();
    foreignFile().clear();
    const qint64 pixels = claimedPixels(picturePath());
    if (pixels <= mostPixels || pixels > PictureReader::mostPixels) {
        readChosen();
    }
    if (pixels <= mostPixels || pixels > SmallPicture::mostPixels) {
        for (const QSize &place : {QSize(96, 96), QSize(1, 7), QSize(300, 20)}) {
            readOfUser(input, place);
        }
    }
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "picturechild.h"

#include "confinement.h"
#include "ownedfile.h"
#include "smallpicture.h"

#include <QVector>

#include <algorithm>
#include <csignal>
#include <cstring>

#include <sys/prctl.h>
#include <unistd.h>

namespace
{
constexpr char command[] = "read-user-picture";
constexpr int argumentCount = 7;
constexpr char ready = '.';
constexpr int bytesPerPixel = 4;

/** Comes before the pixels. */
struct Header {
    qint32 width;
    qint32 height;
    /** How large the picture is to be shown. */
    qint32 shownWidth;
    qint32 shownHeight;
};

/** The pictures of a user by precedence. Names of users and homes are the bytes of the files. */
QVector<QByteArray> candidates(const QByteArray &home, const QByteArray &user, uid_t uid)
{
    return {
        OwnedFile::read(home, ".face", uid),
        OwnedFile::read(home, ".face.icon", uid),
        OwnedFile::read("/var/lib/AccountsService/icons", user, uid),
    };
}

bool writeAll(const void *data, size_t size)
{
    const auto *position = static_cast<const char *>(data);
    while (size > 0) {
        const ssize_t count = write(STDOUT_FILENO, position, size);
        if (count <= 0) {
            return false;
        }
        position += count;
        size -= size_t(count);
    }
    return true;
}

bool writePicture(const SmallPicture::Result &picture)
{
    const QImage &image = picture.image;
    const Header header = {image.width(), image.height(), picture.size.width(), picture.size.height()};
    bool written = writeAll(&header, sizeof header);
    for (int y = 0; y < image.height() && written; ++y) {
        written = writeAll(image.constScanLine(y), size_t(image.width()) * bytesPerPixel);
    }
    return written;
}

SmallPicture::Result firstPicture(const QVector<QByteArray> &files, const QSize &size)
{
    SmallPicture::Result picture;
    for (const QByteArray &file : files) {
        picture = SmallPicture::decode(file, size);
        if (!picture.image.isNull()) {
            break;
        }
    }
    return picture;
}

/** Of the images that are sent. */
QSize largestImage(const QSize &size)
{
    return 2 * size;
}

bool isWithin(const QSize &bounds, const QSize &inner)
{
    return !inner.isEmpty() && inner.boundedTo(bounds) == inner;
}
}

QStringList PictureChild::arguments(const PictureOwner &user, const QSize &size)
{
    return {
        QString::fromLatin1(command),
        QString::number(size.width()),
        QString::number(size.height()),
        QString::number(user.uid),
        QString::fromLatin1(user.home.toPercentEncoding("/")),
        QString::fromLatin1(user.name.toPercentEncoding()),
    };
}

bool PictureChild::isWanted(int argc, const char *const *argv)
{
    return argc == argumentCount && strcmp(argv[1], command) == 0;
}

int PictureChild::run(const char *const *argv)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const QSize size(atoi(argv[2]), atoi(argv[3]));
    const auto uid = uid_t(strtoul(argv[4], nullptr, 10));
    SmallPicture::prepare();
    if (size.isEmpty() || !writeAll(&ready, 1)) {
        return 1;
    }
    const QVector<QByteArray> files =
        candidates(QByteArray::fromPercentEncoding(argv[5]), QByteArray::fromPercentEncoding(argv[6]), uid);
    if (!Confinement::begin()) {
        return 1;
    }
    const SmallPicture::Result picture = firstPicture(files, size);
    // No more code may run, since destructors and exit handlers do not expect these limits.
    _exit(picture.image.isNull() || writePicture(picture) ? 0 : 1);
}

int PictureChild::longestOutput(const QSize &size)
{
    return int(1 + sizeof(Header)) + bytesPerPixel * largestImage(size).width() * largestImage(size).height();
}

QImage PictureChild::picture(const QByteArray &output, const QSize &size)
{
    Header header = {};
    const int start = 1 + int(sizeof header);
    if (output.size() <= start) {
        return {};
    }
    memcpy(&header, output.constData() + 1, sizeof header);
    const QSize sent(header.width, header.height);
    const QSize shown(header.shownWidth, header.shownHeight);
    const int lineSize = header.width * bytesPerPixel;
    if (!isWithin(largestImage(size), sent) || !isWithin(size, shown)
        || output.size() - start != lineSize * header.height) {
        return {};
    }
    QImage image(sent, QImage::Format_ARGB32_Premultiplied);
    const char *line = output.constData() + start;
    for (int y = 0; y < image.height(); ++y) {
        memcpy(image.scanLine(y), line, size_t(lineSize));
        line += lineSize;
    }
    return image.scaled(shown, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

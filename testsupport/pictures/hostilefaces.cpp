/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "hostilefaces.h"

#include "largeimages.h"
#include "picturefiles.h"
#include "sandbox.h"

#include <QFile>
#include <QImage>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace
{
constexpr int tooLarge = 1024 * 1024 + 1;

void require(bool done, const QString &path)
{
    if (!done) {
        qFatal("Cannot make %s: %s", qPrintable(path), qPrintable(qt_error_string(errno)));
    }
}

HostileFace file(const QString &name, const QByteArray &content)
{
    return {name, [content](const QString &path) { Sandbox::write(path, content); }};
}

HostileFace link(const QString &name, const QString &target)
{
    return {name, [target](const QString &path) { require(QFile::link(target, path), path); }};
}

QByteArray svgImage(const QString &reference)
{
    return PictureFiles::svg("<image xlink:href=\"" + reference.toUtf8() + R"(" width="20" height="20"/>)");
}

void addSpecialFiles(QVector<HostileFace> &faces)
{
    const QString target = hostileTarget();
    faces += {
        {QStringLiteral("pipe"), makePipe},
        {QStringLiteral("socket"), makeSocket},
        link(QStringLiteral("link to a pipe"), target + QLatin1String("/pipe")),
        link(QStringLiteral("link to a socket"), target + QLatin1String("/socket")),
        link(QStringLiteral("link to a device"), QStringLiteral("/dev/zero")),
        link(QStringLiteral("link to a file of the kernel"), QStringLiteral("/proc/self/environ")),
        link(QStringLiteral("link to itself"), QStringLiteral(".face")),
        link(QStringLiteral("link to a picture"), target + QLatin1String("/picture.png")),
        {QStringLiteral("directory"), [](const QString &path) { require(mkdir(qPrintable(path), 0700) == 0, path); }},
        {QStringLiteral("unreadable"),
         [](const QString &path) {
             Sandbox::write(path, PictureFiles::encoded(PictureFiles::plain({20, 20}, Qt::red), "png"));
             require(QFile::setPermissions(path, {}), path);
         }},
    };
}

void addVectors(QVector<HostileFace> &faces)
{
    const QByteArray pipe = svgImage(hostileTarget() + QLatin1String("/pipe"));
    faces += {
        file(QStringLiteral("SVG with a pipe"), pipe),
        file(QStringLiteral("SVG with a device"), svgImage(QStringLiteral("/dev/zero"))),
        file(QStringLiteral("SVG with a picture"), svgImage(hostileTarget() + QLatin1String("/picture.png"))),
        file(QStringLiteral("compressed SVG"), PictureFiles::gzipped(pipe)),
    };
}

void addRasters(QVector<HostileFace> &faces)
{
    const QByteArray png = PictureFiles::encoded(PictureFiles::noise({300, 300}), "png");
    faces += {
        file(QStringLiteral("empty"), QByteArray()),
        file(QStringLiteral("too large"), png + QByteArray(tooLarge - png.size(), '\0')),
        file(QStringLiteral("JPEG of many scans"), PictureFiles::jpegOfManyScans({3000, 3000}, 10000)),
        file(QStringLiteral("large JPEG of many scans"), PictureFiles::jpegOfManyScans({4500, 4000}, 2000)),
    };
    const QVector<LargeImage> images = largeImages({22000, 22000});
    for (const LargeImage &image : images) {
        faces += file(QLatin1String("claim of many pixels, ") + QLatin1String(image.format), image.content);
    }
    const QVector<PictureFiles::File> files = PictureFiles::ofEveryFormat({100, 100});
    for (const auto &[format, whole] : files) {
        faces += file(QLatin1String("only the start, ") + QLatin1String(format), whole.left(100));
    }
}

QVector<HostileFace> allFaces()
{
    QVector<HostileFace> faces;
    addSpecialFiles(faces);
    addVectors(faces);
    addRasters(faces);
    return faces;
}
}

QString hostileTarget()
{
    return QStringLiteral("/tmp/target");
}

QVector<HostileFace> hostileFaces()
{
    Sandbox::clear(hostileTarget());
    makePipe(hostileTarget() + QLatin1String("/pipe"));
    makeSocket(hostileTarget() + QLatin1String("/socket"));
    Sandbox::write(hostileTarget() + QLatin1String("/picture.png"),
                   PictureFiles::encoded(PictureFiles::plain({20, 20}, Qt::red), "png"));
    static const QVector<HostileFace> faces = allFaces(); // they take a while
    return faces;
}

void makePipe(const QString &path)
{
    require(mkfifo(qPrintable(path), 0600) == 0, path);
}

void makeSocket(const QString &path)
{
    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, qPrintable(path), sizeof address.sun_path);
    require(bind(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0, path);
    close(descriptor);
}

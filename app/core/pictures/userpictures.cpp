/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "userpictures.h"

#include <UserInfo>
#include <UserUtils>

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace
{
/** A home may hold anything under this name; what would take long to read is no picture. */
constexpr qint64 maxBytes = qint64(10) * 1024 * 1024;
constexpr int maxEdge = 8192;

QImage read(const QString &path, const QSize &size)
{
    const QFileInfo file(path);
    if (!file.isFile() || file.size() > maxBytes) {
        return {};
    }
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize original = reader.size();
    if (original.width() > maxEdge || original.height() > maxEdge) {
        return {};
    }
    if (!original.isValid()) {
        QImage image = reader.read();
        return image.isNull() ? image : image.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    // Some formats need not be read in full for a smaller picture. It is turned after it is scaled.
    const bool turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    const QSize scaled = original.scaled(turned ? size.transposed() : size, Qt::KeepAspectRatio);
    reader.setScaledSize(scaled.expandedTo({1, 1}));
    return reader.read();
}

QImage ownPicture(const UserInfo &user, const QSize &size)
{
    if (user.home().isEmpty()) {
        return {};
    }
    // One character of a record is one byte of the path.
    const QString home = QFile::decodeName(user.home().toLatin1());
    for (const auto &name : {QStringLiteral("/.face"), QStringLiteral("/.face.icon")}) {
        QImage image = read(home + name, size);
        if (!image.isNull()) {
            return image;
        }
    }
    return {};
}
}

QImage UserPictures::picture(const UserInfo &user, const QSize &size)
{
    QImage own = ownPicture(user, size);
    if (!own.isNull()) {
        return own;
    }
    QString &stock = m_stockPictures[user.name()];
    if (stock.isEmpty()) {
        stock = UserUtils::getRandomUserIcon(false);
    }
    return read(stock, size);
}

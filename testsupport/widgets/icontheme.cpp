/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "icontheme.h"

#include <QDir>
#include <QFile>
#include <QIcon>
#include <QImage>

namespace
{
const char indexFile[] = "[Icon Theme]\n"
                         "Name=Test\n"
                         "Comment=Icons of a test\n"
                         "Directories=icons\n"
                         "[icons]\n"
                         "Size=%1\n"
                         "Type=Fixed\n";

void writeTheme(const QString &path, const QStringList &names, int size)
{
    QFile index(path + QStringLiteral("/index.theme"));
    if (!QDir().mkpath(path + QStringLiteral("/icons")) || !index.open(QIODevice::WriteOnly)
        || index.write(QString::fromLatin1(indexFile).arg(size).toLatin1()) < 0) {
        qFatal("Cannot write %s", qPrintable(index.fileName()));
    }
    for (const QString &name : names) {
        QImage image(size, size, QImage::Format_RGB32);
        image.fill(Qt::blue);
        const QString file = path + QStringLiteral("/icons/%1.png").arg(name);
        if (!image.save(file)) {
            qFatal("Cannot write %s", qPrintable(file));
        }
    }
}
}

IconTheme::IconTheme(const QStringList &names, int size)
    : m_previousPaths(QIcon::themeSearchPaths())
    , m_previousName(QIcon::themeName())
{
    writeTheme(m_directory.filePath(QStringLiteral("test-icons")), names, size);
    QIcon::setThemeSearchPaths({m_directory.path()});
    QIcon::setThemeName(QStringLiteral("test-icons"));
}

IconTheme::~IconTheme()
{
    QIcon::setThemeSearchPaths(m_previousPaths);
    QIcon::setThemeName(m_previousName);
}

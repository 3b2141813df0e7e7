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
                         "Directories=16\n"
                         "[16]\n"
                         "Size=16\n"
                         "Type=Fixed\n";

void writeTheme(const QString &path, const QStringList &names)
{
    QFile index(path + QStringLiteral("/index.theme"));
    if (!QDir().mkpath(path + QStringLiteral("/16")) || !index.open(QIODevice::WriteOnly)
        || index.write(indexFile) < 0) {
        qFatal("Cannot write %s", qPrintable(index.fileName()));
    }
    for (const QString &name : names) {
        QImage image(16, 16, QImage::Format_RGB32);
        image.fill(Qt::blue);
        const QString file = path + QStringLiteral("/16/%1.png").arg(name);
        if (!image.save(file)) {
            qFatal("Cannot write %s", qPrintable(file));
        }
    }
}
}

IconTheme::IconTheme(const QStringList &names)
    : m_previousPaths(QIcon::themeSearchPaths())
    , m_previousName(QIcon::themeName())
{
    writeTheme(m_directory.filePath(QStringLiteral("test-icons")), names);
    QIcon::setThemeSearchPaths({m_directory.path()});
    QIcon::setThemeName(QStringLiteral("test-icons"));
}

IconTheme::~IconTheme()
{
    QIcon::setThemeSearchPaths(m_previousPaths);
    QIcon::setThemeName(m_previousName);
}

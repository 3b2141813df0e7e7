/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "fuzzing.h"
#include "sandbox.h"

#include <UserUtils>

#include <QDir>

#include <algorithm>

using Fuzzing::require;

// An input is a list of names, a line each: "NAME" or "DIRECTORY/NAME" below the folder of the stock
// pictures, "../NAME" beside it. These are the files that exist.

namespace
{
constexpr int mostFiles = 30;
constexpr int longestName = 200;
constexpr int draws = 10;

/** Whether @p name can be the name of a file here. */
bool isName(const QByteArray &name)
{
    return !name.isEmpty() && name.size() <= longestName && name != "." && name != ".." && !name.contains('\0')
        && !name.contains('/');
}

/** What comes before the name of a stock picture, as the first word of a line. */
bool isPlace(const QByteArray &place)
{
    return place.isEmpty() || place == ".." || isName(place);
}

void write(const QByteArray &line)
{
    const int slash = line.lastIndexOf('/');
    const QByteArray place = line.left(qMax(slash, 0));
    const QByteArray name = line.mid(slash + 1);
    if (!isPlace(place) || !isName(name)) {
        return;
    }
    const QString directory = UserUtils::userIconPath() + QLatin1Char('/') + QFile::decodeName(place);
    const QString path = directory + QLatin1Char('/') + QFile::decodeName(name);
    // A name may be that of a folder already, or the other way round.
    if (QDir().mkpath(directory) && !QFileInfo(path).isDir()) {
        Sandbox::write(path, "picture");
    }
}

bool isDefault(const QString &path)
{
    return QFileInfo(path).fileName().startsWith(QLatin1String("default-user-red."));
}

/** The files of @p directory that are not hidden. */
QStringList filesIn(const QString &directory)
{
    QStringList files;
    const QFileInfoList entries = QDir(directory).entryInfoList(QDir::Files);
    for (const QFileInfo &entry : entries) {
        files.append(entry.absoluteFilePath());
    }
    return files;
}
}

void Target::prepare()
{
}

void Target::run(const QByteArray &input)
{
    Sandbox::clear(QStringLiteral("/usr/share/kiv"));
    Sandbox::clear(UserUtils::userIconPath());
    const QList<QByteArray> lines = input.split('\n').mid(0, mostFiles);
    for (const QByteArray &line : lines) {
        write(line);
    }
    const QDir faces(UserUtils::userIconPath());
    QStringList files = filesIn(faces.path()) + filesIn(QStringLiteral("/usr/share/kiv"));
    const QStringList directories = faces.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &directory : directories) {
        files += filesIn(faces.path() + QLatin1Char('/') + directory); // a colon makes no resource
    }
    const bool hasDefault = std::any_of(files.begin(), files.end(), isDefault);
    for (int i = 0; i < draws; ++i) {
        const QString any = UserUtils::getRandomUserIcon(false);
        const QString preferred = UserUtils::getRandomUserIcon(true);
        require(any.isNull() == files.isEmpty() && preferred.isNull() == files.isEmpty(),
                QStringLiteral("There is a picture where there are files"));
        require(files.isEmpty() || (files.contains(any) && files.contains(preferred)),
                QStringLiteral("A picture is one of the files: ") + any);
        require(!hasDefault || isDefault(preferred), QStringLiteral("The default is preferred"));
    }
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "iconcommands.h"

#include <UserIconDialog>

#include <KLocalizedString>

#include <QCommandLineParser>
#include <QImageReader>
#include <QImageWriter>

namespace
{
constexpr int noPicture = 2;

QString outputOption()
{
    return QStringLiteral("output");
}

/** The picture in @p file; null, with a message, when it cannot be read. */
QPixmap readPicture(const QString &file)
{
    QImageReader reader(file);
    const QImage picture = reader.read();
    if (picture.isNull()) {
        printError(i18n("Cannot read '%1': %2", file, reader.errorString()));
    }
    return QPixmap::fromImage(picture);
}

int writeIcon(const QPixmap &icon, const QString &file)
{
    QImageWriter writer(file, "png");
    if (writer.write(icon.toImage())) {
        return Success;
    }
    return failure(i18n("Cannot write '%1': %2", file, writer.errorString()));
}
}

QList<QCommandLineOption> pickIconOptions()
{
    return {QCommandLineOption(outputOption(), i18n("Write the icon to this PNG file."), QStringLiteral("OUT.png"))};
}

int pickIcon(const QCommandLineParser &options, const QString &file)
{
    const QString output = options.value(outputOption());
    if (output.isEmpty()) {
        return usageError(i18n("The option --output is missing."));
    }
    UserIconDialog dialog;
    if (!file.isNull()) {
        dialog.setPixmap(readPicture(file));
    }
    if (dialog.exec() != QDialog::Accepted) {
        return Failure;
    }
    const QPixmap icon = dialog.selectedPixmap();
    if (icon.isNull()) {
        printError(i18n("There is no picture to cut an icon out of."));
        return noPicture;
    }
    return writeIcon(icon, output);
}

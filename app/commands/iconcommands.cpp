/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "iconcommands.h"

#include "accountdialogs.h"
#include "picturereader.h"
#include "waitcursor.h"

#include <UserIconDialog>

#include <KLocalizedString>

#include <QCommandLineParser>
#include <QImageWriter>

namespace
{
QString reason(const PictureReader::Result &result)
{
    switch (result.problem) {
    case PictureReader::Problem::NotAFile:
        return i18n("not a regular file");
    case PictureReader::Problem::TooLarge:
        return i18n("the picture is too large");
    default:
        return result.details;
    }
}

/** The picture in @p file; null, with a message, when it cannot be read. */
QPixmap readPicture(const QString &file)
{
    const PictureReader::Result result = PictureReader::read(file);
    if (result.problem != PictureReader::Problem::None) {
        printError(i18n("Cannot read '%1': %2", file, reason(result)));
    }
    return QPixmap::fromImage(result.image);
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

QString iconOutputOption()
{
    return QStringLiteral("output");
}

QList<QCommandLineOption> pickIconOptions()
{
    return {
        QCommandLineOption(iconOutputOption(), i18n("Write the icon to this PNG file."), QStringLiteral("OUT.png"))};
}

int pickIcon(const QCommandLineParser &options, const QString &file)
{
    UserIconDialog dialog;
    AccountDialogs::prepareIcon(dialog);
    if (!file.isNull()) {
        dialog.show(); // the cursor shows that it is busy
        const WaitCursor wait;
        dialog.setPixmap(readPicture(file));
    }
    if (dialog.exec() != QDialog::Accepted) {
        return Failure;
    }
    const QPixmap icon = dialog.selectedPixmap();
    if (icon.isNull()) {
        return failure(i18n("No picture was chosen."));
    }
    return writeIcon(icon, options.value(iconOutputOption()));
}

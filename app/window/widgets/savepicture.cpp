/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "savepicture.h"

#include "messages.h"
#include "visibletext.h"

#include <KLocalizedString>

#include <QFileDialog>
#include <QImageWriter>
#include <QPixmap>
#include <QSaveFile>

namespace
{
/** A name from the account files may contain anything, but must not lead to another folder. */
QString suggestedFile(const QString &user)
{
    return VisibleText::fromText(user).replace(QLatin1Char('/'), QLatin1Char('_')) + QLatin1String(".png");
}

/** @return why the file cannot be written; empty on success */
QString write(const QPixmap &picture, const QString &path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return file.errorString();
    }
    QImageWriter writer(&file, "png");
    if (!writer.write(picture.toImage())) {
        return writer.errorString();
    }
    return file.commit() ? QString() : file.errorString();
}
}

void savePicture(const QPixmap &picture, const QString &user, QWidget *parent)
{
    const QString title = i18nc("@title:window", "Save Picture");
    const QString path = QFileDialog::getSaveFileName(
        parent, title, suggestedFile(user), i18nc("@item:inlistbox types of files", "PNG pictures (*.png)"));
    const QString error = path.isEmpty() ? QString() : write(picture, path);
    if (!error.isEmpty()) {
        Messages::reportUnwritten(parent, title, path, error);
    }
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ICONDIALOGPARTS_H
#define ICONDIALOGPARTS_H

#include "dialogparts.h"
#include "patience.h"
#include "picturefiles.h"
#include "sandbox.h"

#include <UserIconDialog>

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFrame>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

/** A picture with another colour in each pixel. */
inline QImage gradient(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixel(x, y, qRgb(x % 256, y % 256, x / 256 * 16 + y / 256));
        }
    }
    return image;
}

inline QPushButton *okButton(const UserIconDialog &dialog)
{
    return part<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Ok);
}

/** The widget in the preview frame. */
inline QWidget *preview(const UserIconDialog &dialog)
{
    const QLayout *layout = part<QFrame>(dialog, "previewFrame")->layout();
    return layout && layout->count() == 1 ? layout->itemAt(0)->widget() : nullptr;
}

/** Shows a dialog with a preview that is 400 pixels wide and high. */
inline bool showWithPreview(UserIconDialog &dialog)
{
    preview(dialog)->setFixedSize(400, 400);
    dialog.resize(500, 600); // its own size leaves too little room, and the buttons would cover the preview
    dialog.show();
    return QTest::qWaitForWindowExposed(&dialog, patience);
}

/** Drags with the mouse in that preview. */
inline void drag(const UserIconDialog &dialog, const QPoint &from, const QPoint &to)
{
    const auto inWindow = [&dialog](const QPoint &point) { return preview(dialog)->mapTo(&dialog, point); };
    QTest::mousePress(dialog.windowHandle(), Qt::LeftButton, {}, inWindow(from));
    QTest::mouseMove(dialog.windowHandle(), inWindow(to));
    QTest::mouseRelease(dialog.windowHandle(), Qt::LeftButton, {}, inWindow(to));
}

/** The path of a new file with this content. */
inline QString writePicture(const char *name, const QByteArray &content)
{
    QString path = QStringLiteral("/tmp/") + QLatin1String(name);
    Sandbox::write(path, content);
    return path;
}

inline void chooseFile(const UserIconDialog &dialog, const QString &path)
{
    withFileDialog(dialog, [&path](QFileDialog *fileDialog) {
        fileDialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(path);
        fileDialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Open)->click();
    });
}

#endif

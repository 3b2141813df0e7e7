/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "icondialogparts.h"

#include <UserIconDialog>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <QToolButton>

class UserIconDialogColoursTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void staysWithinColourTable();
    void addsMissingColours_data();
    void addsMissingColours();
    void fillsBeyondEdgesWithFirstColour_data();
    void fillsBeyondEdgesWithFirstColour();
};

void UserIconDialogColoursTest::staysWithinColourTable()
{
    // At its original size, Qt draws such a picture without checking the size of the table.
    QImage image(400, 400, QImage::Format_Indexed8);
    image.setColorTable(QVector<QRgb>(20, qRgb(255, 0, 0)));
    image.fill(240);
    const QColor converted = image.convertToFormat(QImage::Format_RGB32).pixelColor(200, 200);

    UserIconDialog dialog;
    QVERIFY(showWithPreview(dialog));
    chooseFile(dialog, writePicture("indexed.bmp", PictureFiles::encoded(image, "bmp")));
    QCOMPARE(preview(dialog)->grab().toImage().pixelColor(200, 200), converted);
    QCOMPARE(dialog.selectedPixmap().toImage().pixelColor(200, 200), converted);
}

void UserIconDialogColoursTest::addsMissingColours_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<QColor>("missing");

    QTest::newRow("opaque") << int(QImage::Format_Indexed8) << QColor(Qt::red) << QColor(Qt::black);
    QTest::newRow("with alpha") << int(QImage::Format_Indexed8) << QColor(255, 0, 0, 100) << QColor(Qt::transparent);
    QTest::newRow("one bit") << int(QImage::Format_Mono) << QColor(Qt::red) << QColor(Qt::black);
    QTest::newRow("one bit, other order") << int(QImage::Format_MonoLSB) << QColor(Qt::red) << QColor(Qt::black);
}

void UserIconDialogColoursTest::addsMissingColours()
{
    QFETCH(int, format);
    QFETCH(QColor, colour);
    QFETCH(QColor, missing);

    QImage image(20, 20, static_cast<QImage::Format>(format));
    image.setColorTable({colour.rgba()});
    image.fill(1);
    image.setPixel(5, 5, 0);
    QGuiApplication::clipboard()->setImage(image);
    const UserIconDialog dialog;
    part<QToolButton>(dialog, "clipboardButton")->click();

    const QImage result = dialog.selectedPixmap().toImage();
    QCOMPARE(result.pixelColor(5, 5), colour);
    QCOMPARE(result.pixelColor(10, 10), missing);
}

void UserIconDialogColoursTest::fillsBeyondEdgesWithFirstColour_data()
{
    QTest::addColumn<QColor>("first");

    QTest::newRow("opaque") << QColor(Qt::red);
    QTest::newRow("transparent") << QColor(Qt::transparent);
}

void UserIconDialogColoursTest::fillsBeyondEdgesWithFirstColour()
{
    QFETCH(QColor, first);

    QImage image(800, 101, QImage::Format_Indexed8);
    image.setColorTable({first.rgba(), qRgb(0, 0, 255)});
    image.fill(1);
    UserIconDialog dialog;
    QVERIFY(showWithPreview(dialog));
    chooseFile(dialog, writePicture("indexed.png", PictureFiles::encoded(image, "png")));
    QCOMPARE(dialog.selectedPixmap().toImage().pixelColor(100, 50), QColor(Qt::blue));

    // Shown 50 pixels high instead of 50.5: at the right edge the square reaches beyond the picture.
    drag(dialog, QPoint(200, 200), QPoint(399, 200));
    QCOMPARE(dialog.selectedPixmap().toImage().pixelColor(50, 50), QColor(Qt::blue));
    QCOMPARE(dialog.selectedPixmap().toImage().pixelColor(100, 50), first);
}

QTEST_MAIN(UserIconDialogColoursTest)

#include "usericondialogcolourstest.moc"

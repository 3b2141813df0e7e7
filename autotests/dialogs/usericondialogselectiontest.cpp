/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "icondialogparts.h"

#include <UserIconDialog>

#include <QTest>
#include <QToolButton>

class UserIconDialogSelectionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void selectsLargestCentredSquareAtOwnResolution_data();
    void selectsLargestCentredSquareAtOwnResolution();
    void returnsSquareMarkedWithMouse();
    void returnsWholePictureForLessThanAPixel();
    void returnsNullForSelectionTurnedInsideOut();
    void returnsNullForPictureTooThinToBeShown();
};

void UserIconDialogSelectionTest::selectsLargestCentredSquareAtOwnResolution_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("square");

    // Sizes that scale to the preview of 400 by 400 pixels without a remainder.
    QTest::newRow("wide") << QSize(1600, 800) << QRect(400, 0, 800, 800);
    QTest::newRow("tall") << QSize(800, 1600) << QRect(0, 400, 800, 800);
    QTest::newRow("square") << QSize(1600, 1600) << QRect(0, 0, 1600, 1600);
    QTest::newRow("small") << QSize(4, 2) << QRect(1, 0, 2, 2);
    QTest::newRow("one pixel") << QSize(1, 1) << QRect(0, 0, 1, 1);
}

void UserIconDialogSelectionTest::selectsLargestCentredSquareAtOwnResolution()
{
    QFETCH(QSize, size);
    QFETCH(QRect, square);

    UserIconDialog dialog;
    QVERIFY(showWithPreview(dialog));
    const QImage image = gradient(size);
    dialog.setPixmap(QPixmap::fromImage(image));

    QVERIFY(okButton(dialog)->isEnabled());
    QCOMPARE(dialog.selectedPixmap().toImage(), image.copy(square));
}

void UserIconDialogSelectionTest::returnsSquareMarkedWithMouse()
{
    UserIconDialog dialog;
    QVERIFY(showWithPreview(dialog));
    const QImage image = gradient(QSize(1600, 800));
    dialog.setPixmap(QPixmap::fromImage(image));

    // The selection is (100, 100) to (299, 299), at a quarter of the picture's size.
    drag(dialog, QPoint(299, 299), QPoint(199, 199));
    QCOMPARE(dialog.selectedPixmap().toImage(), image.copy(400, 0, 400, 400));
    drag(dialog, QPoint(150, 150), QPoint(60, 155));
    QCOMPARE(dialog.selectedPixmap().toImage(), image.copy(40, 20, 400, 400));
    part<QToolButton>(dialog, "selectAllButton")->click();
    QCOMPARE(dialog.selectedPixmap().toImage(), image.copy(400, 0, 800, 800));
}

void UserIconDialogSelectionTest::returnsWholePictureForLessThanAPixel()
{
    UserIconDialog dialog;
    QVERIFY(showWithPreview(dialog));
    const QImage image = gradient(QSize(4, 2));
    dialog.setPixmap(QPixmap::fromImage(image));
    QCOMPARE(dialog.selectedPixmap().size(), QSize(2, 2));

    drag(dialog, QPoint(299, 299), QPoint(150, 150));
    QCOMPARE(dialog.selectedPixmap().toImage(), image);
}

void UserIconDialogSelectionTest::returnsNullForSelectionTurnedInsideOut()
{
    UserIconDialog dialog;
    QVERIFY(showWithPreview(dialog));
    dialog.setPixmap(QPixmap::fromImage(gradient(QSize(400, 400))));

    drag(dialog, QPoint(399, 399), QPoint(99, 99));
    QCOMPARE(dialog.selectedPixmap().size(), QSize(100, 100));
    drag(dialog, QPoint(50, 5), QPoint(50, 200)); // drags the upper edge below the lower one
    QVERIFY(okButton(dialog)->isEnabled());
    QVERIFY(dialog.selectedPixmap().isNull());
}

void UserIconDialogSelectionTest::returnsNullForPictureTooThinToBeShown()
{
    UserIconDialog dialog;
    QVERIFY(showWithPreview(dialog));
    dialog.setPixmap(QPixmap::fromImage(gradient(QSize(1, 1000))));
    QVERIFY(okButton(dialog)->isEnabled());
    QVERIFY(dialog.selectedPixmap().isNull());
}

QTEST_MAIN(UserIconDialogSelectionTest)

#include "usericondialogselectiontest.moc"

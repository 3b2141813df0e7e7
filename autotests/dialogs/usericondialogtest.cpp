/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "icondialogparts.h"

#include <UserIconDialog>

#include <QBoxLayout>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFrame>
#include <QGuiApplication>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

class UserIconDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void buildsForm();
    void stacksFrameButtonsAndButtonBox();
    void offersToolButtons_data();
    void offersToolButtons();
    void takesIconsFromTheme();
    void leavesIconsEmptyWithoutTheme();
    void putsWidgetIntoPreviewFrame();
    void startsWithoutPicture();
    void acceptsAndRejects();
    void takesNullPixmap();
    void turnsMirrorsAndResets();
    void pastesImage();
    void ignoresClipboardWithoutImage();
    void pastesImageThatCannotBeConverted();
    void replacesPictureAndSelection();
};

void UserIconDialogTest::init()
{
    QGuiApplication::clipboard()->clear();
    QIcon::setThemeName(QString());
}

void UserIconDialogTest::buildsForm()
{
    const UserIconDialog dialog;

    QCOMPARE(dialog.objectName(), QStringLiteral("UserIconDialog"));
    QCOMPARE(dialog.size(), QSize(460, 483));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Select User Icon"));
    QVERIFY(!dialog.isModal());

    const auto *frame = part<QFrame>(dialog, "previewFrame");
    QCOMPARE(frame->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QCOMPARE(frame->minimumSize(), QSize(250, 250));
    QCOMPARE(frame->frameShape(), QFrame::StyledPanel);
    QCOMPARE(frame->frameShadow(), QFrame::Sunken);

    const auto *buttonBox = part<QDialogButtonBox>(dialog, "buttonBox");
    QCOMPARE(buttonBox->orientation(), Qt::Horizontal);
    QCOMPARE(buttonBox->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
}

void UserIconDialogTest::stacksFrameButtonsAndButtonBox()
{
    const UserIconDialog dialog;

    const auto *rows = qobject_cast<QVBoxLayout *>(dialog.layout());
    QVERIFY(rows);
    QCOMPARE(rows->objectName(), QStringLiteral("verticalLayout"));
    QCOMPARE(rows->count(), 3);
    QCOMPARE(rows->itemAt(0)->widget(), part<QFrame>(dialog, "previewFrame"));
    const auto *buttons = qobject_cast<QHBoxLayout *>(rows->itemAt(1)->layout());
    QVERIFY(buttons);
    QCOMPARE(rows->itemAt(2)->widget(), part<QDialogButtonBox>(dialog, "buttonBox"));

    QCOMPARE(buttons->objectName(), QStringLiteral("horizontalLayout"));
    QCOMPARE(buttons->count(), 9);
    for (const int end : {0, 8}) {
        const QSpacerItem *spacer = buttons->itemAt(end)->spacerItem();
        QVERIFY(spacer);
        QCOMPARE(spacer->sizeHint(), QSize(40, 20));
        QCOMPARE(spacer->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum));
    }
}

void UserIconDialogTest::offersToolButtons_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("text");

    QTest::newRow("fileButton") << 1 << QStringLiteral("Open file");
    QTest::newRow("clipboardButton") << 2 << QStringLiteral("Paste from clipboard");
    QTest::newRow("selectAllButton") << 3 << QStringLiteral("Reset selection");
    QTest::newRow("rotateClockwiseButton") << 4 << QStringLiteral("Rotate clockwise");
    QTest::newRow("rotateCounterClockwiseButton") << 5 << QStringLiteral("Rotate counterclockwise");
    QTest::newRow("horizontalMirrorButton") << 6 << QStringLiteral("Mirror horizontally");
    QTest::newRow("verticalMirrorButton") << 7 << QStringLiteral("Mirror vertically");
}

void UserIconDialogTest::offersToolButtons()
{
    QFETCH(int, place);
    QFETCH(QString, text);

    const UserIconDialog dialog;
    const auto *button = part<QToolButton>(dialog, QTest::currentDataTag());
    QCOMPARE(dialog.layout()->itemAt(1)->layout()->itemAt(place)->widget(), button);
    QCOMPARE(button->text(), text);
    QCOMPARE(button->toolTip(), text);
    QVERIFY(button->isEnabled());
}

void UserIconDialogTest::takesIconsFromTheme()
{
    const QMap<QString, QString> expected{
        {QStringLiteral("fileButton"), QStringLiteral("document-open")},
        {QStringLiteral("clipboardButton"), QStringLiteral("edit-paste")},
        {QStringLiteral("selectAllButton"), QStringLiteral("edit-select-all")},
        {QStringLiteral("rotateClockwiseButton"), QStringLiteral("object-rotate-right")},
        {QStringLiteral("rotateCounterClockwiseButton"), QStringLiteral("object-rotate-left")},
        {QStringLiteral("horizontalMirrorButton"), QStringLiteral("object-flip-horizontal")},
        {QStringLiteral("verticalMirrorButton"), QStringLiteral("object-flip-vertical")},
    };
    QIcon::setThemeSearchPaths({QStringLiteral("/usr/share/icons")});
    QIcon::setThemeName(QStringLiteral("breeze"));

    const UserIconDialog dialog;
    QMap<QString, QString> actual;
    const auto buttons = dialog.findChildren<QToolButton *>();
    for (const QToolButton *button : buttons) {
        actual.insert(button->objectName(), button->icon().name());
        QVERIFY(!button->icon().pixmap(16).isNull());
    }
    QCOMPARE(actual, expected);
}

void UserIconDialogTest::leavesIconsEmptyWithoutTheme()
{
    QIcon::setThemeSearchPaths({QStringLiteral("/nowhere")});

    const UserIconDialog dialog;
    const auto buttons = dialog.findChildren<QToolButton *>();
    QCOMPARE(buttons.size(), 7);
    for (const QToolButton *button : buttons) {
        QVERIFY(button->icon().pixmap(16).isNull());
    }
    QVERIFY(part<QToolButton>(dialog, "selectAllButton")->icon().isNull());
}

void UserIconDialogTest::putsWidgetIntoPreviewFrame()
{
    const UserIconDialog dialog;

    QVERIFY(qobject_cast<QHBoxLayout *>(part<QFrame>(dialog, "previewFrame")->layout()));
    QVERIFY(preview(dialog));
    QCOMPARE(preview(dialog)->metaObject()->className(), "IconSelectWidget");
}

void UserIconDialogTest::startsWithoutPicture()
{
    const UserIconDialog dialog;

    QVERIFY(!okButton(dialog)->isEnabled());
    QVERIFY(dialog.selectedPixmap().isNull());
}

void UserIconDialogTest::acceptsAndRejects()
{
    UserIconDialog dialog;
    const QSignalSpy accepted(&dialog, &QDialog::accepted);
    const QSignalSpy rejected(&dialog, &QDialog::rejected);
    QVERIFY(accepted.isValid());
    QVERIFY(rejected.isValid());

    dialog.setPixmap(QPixmap(10, 10));
    okButton(dialog)->click();
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));

    part<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Cancel)->click();
    QCOMPARE(rejected.count(), 1);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void UserIconDialogTest::takesNullPixmap()
{
    UserIconDialog dialog;
    dialog.setPixmap(QPixmap());
    QVERIFY(okButton(dialog)->isEnabled());
    QVERIFY(dialog.selectedPixmap().isNull());

    dialog.setPixmap(QPixmap::fromImage(gradient(QSize(10, 10))));
    dialog.setPixmap(QPixmap());
    QVERIFY(okButton(dialog)->isEnabled());
    QVERIFY(dialog.selectedPixmap().isNull());
}

void UserIconDialogTest::turnsMirrorsAndResets()
{
    UserIconDialog dialog;
    QVERIFY(showWithPreview(dialog));
    const QImage image = gradient(QSize(200, 200));
    dialog.setPixmap(QPixmap::fromImage(image));
    const auto afterPressing = [&dialog](const char *button) {
        part<QToolButton>(dialog, button)->click();
        return dialog.selectedPixmap().toImage();
    };

    const QImage mirrored = image.mirrored(true, false);
    QCOMPARE(afterPressing("horizontalMirrorButton"), mirrored);
    QCOMPARE(afterPressing("verticalMirrorButton"), mirrored.mirrored(false, true));
    QCOMPARE(afterPressing("horizontalMirrorButton"), image.mirrored(false, true));
    QCOMPARE(afterPressing("verticalMirrorButton"), image);

    const QImage clockwise = afterPressing("rotateClockwiseButton");
    QCOMPARE(clockwise.pixel(199, 0), image.pixel(0, 0));
    QCOMPARE(clockwise.pixel(199, 50), image.pixel(50, 0));
    QCOMPARE(afterPressing("rotateCounterClockwiseButton"), image);
    const QImage counterClockwise = afterPressing("rotateCounterClockwiseButton");
    QCOMPARE(counterClockwise.pixel(0, 199), image.pixel(0, 0));
    QCOMPARE(counterClockwise.pixel(0, 149), image.pixel(50, 0));
    QCOMPARE(afterPressing("selectAllButton"), counterClockwise);
}

void UserIconDialogTest::pastesImage()
{
    const UserIconDialog dialog;
    const QImage image = gradient(QSize(20, 20));
    QGuiApplication::clipboard()->setImage(image);
    part<QToolButton>(dialog, "clipboardButton")->click();
    QVERIFY(okButton(dialog)->isEnabled());
    QCOMPARE(dialog.selectedPixmap().toImage(), image);
}

void UserIconDialogTest::ignoresClipboardWithoutImage()
{
    UserIconDialog dialog;
    QClipboard *clipboard = QGuiApplication::clipboard();
    if (clipboard->supportsSelection()) {
        clipboard->setImage(gradient(QSize(5, 5)), QClipboard::Selection);
    }
    part<QToolButton>(dialog, "clipboardButton")->click();
    QVERIFY(!okButton(dialog)->isEnabled());

    clipboard->setText(QStringLiteral("text"));
    part<QToolButton>(dialog, "clipboardButton")->click();
    QVERIFY(!okButton(dialog)->isEnabled());
    QVERIFY(dialog.selectedPixmap().isNull());
    QVERIFY(part<QToolButton>(dialog, "clipboardButton")->isEnabled());

    const QImage image = gradient(QSize(20, 20));
    dialog.setPixmap(QPixmap::fromImage(image));
    part<QToolButton>(dialog, "clipboardButton")->click();
    QCOMPARE(dialog.selectedPixmap().toImage(), image);
}

void UserIconDialogTest::pastesImageThatCannotBeConverted()
{
    const UserIconDialog dialog;
    auto *data = new QMimeData;
    data->setImageData(QStringLiteral("no image"));
    QGuiApplication::clipboard()->setMimeData(data);
    part<QToolButton>(dialog, "clipboardButton")->click();
    QVERIFY(okButton(dialog)->isEnabled());
    QVERIFY(dialog.selectedPixmap().isNull());
}

void UserIconDialogTest::replacesPictureAndSelection()
{
    UserIconDialog dialog;
    const QImage first = gradient(QSize(20, 20));
    const QImage second = gradient(QSize(30, 30));
    dialog.setPixmap(QPixmap::fromImage(first));
    chooseFile(dialog, writePicture("second.png", PictureFiles::encoded(second, "png")));
    QCOMPARE(dialog.selectedPixmap().toImage(), second);
    QGuiApplication::clipboard()->setImage(first);
    part<QToolButton>(dialog, "clipboardButton")->click();
    QCOMPARE(dialog.selectedPixmap().toImage(), first);
    dialog.setPixmap(QPixmap::fromImage(second));
    QCOMPARE(dialog.selectedPixmap().toImage(), second);
}

QTEST_MAIN(UserIconDialogTest)

#include "usericondialogtest.moc"

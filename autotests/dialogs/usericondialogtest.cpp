/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "dialogparts.h"
#include "messagerecorder.h"
#include "sandbox.h"

#include <UserIconDialog>
#include <UserUtils>

#include <QBoxLayout>
#include <QBuffer>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFrame>
#include <QGuiApplication>
#include <QImageWriter>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <random>

#include <malloc.h>

namespace
{
/** A picture with another colour in each pixel. */
QImage gradient(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixel(x, y, qRgb(x % 256, y % 256, x / 256 * 16 + y / 256));
        }
    }
    return image;
}

QByteArray encoded(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    if (!writer.write(image)) {
        qFatal("Cannot write %s", format);
    }
    return bytes;
}

/** A picture that cannot be compressed to next to nothing. */
QImage noise(const QSize &size)
{
    std::mt19937 random(1);
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixel(x, y, 0xff000000 | random());
        }
    }
    return image;
}

QByteArray svg(const char *size)
{
    return QByteArray(
               R"(<svg xmlns="http://www.w3.org/2000/svg" width="%" height="%"><rect width="9" height="9"/></svg>)")
        .replace('%', size);
}

/** A file of each format that can be chosen, and of some that can only be named. */
void addFormats()
{
    QTest::addColumn<QByteArray>("whole");

    const QImage image = noise(QSize(100, 100));
    for (const char *format : {"png", "xpm", "jpg", "bmp", "ico", "ppm"}) {
        QTest::newRow(format) << encoded(image, format);
    }
    QTest::newRow("svg") << svg("100");
}

QPushButton *okButton(const UserIconDialog &dialog)
{
    return part<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Ok);
}

/** The widget in the preview frame. */
QWidget *preview(const UserIconDialog &dialog)
{
    const QLayout *layout = part<QFrame>(dialog, "previewFrame")->layout();
    return layout && layout->count() == 1 ? layout->itemAt(0)->widget() : nullptr;
}

/** Shows a dialog with a preview that is 400 pixels wide and high. */
bool showWithPreview(UserIconDialog &dialog)
{
    preview(dialog)->setFixedSize(400, 400);
    dialog.resize(500, 600); // of itself it leaves too little room, and the buttons stand over the preview
    dialog.show();
    return QTest::qWaitForWindowExposed(&dialog);
}

/** Drags with the mouse in that preview. */
void drag(const UserIconDialog &dialog, const QPoint &from, const QPoint &to)
{
    const auto inWindow = [&dialog](const QPoint &point) { return preview(dialog)->mapTo(&dialog, point); };
    QTest::mousePress(dialog.windowHandle(), Qt::LeftButton, {}, inWindow(from));
    QTest::mouseMove(dialog.windowHandle(), inWindow(to));
    QTest::mouseRelease(dialog.windowHandle(), Qt::LeftButton, {}, inWindow(to));
}

void chooseFile(const UserIconDialog &dialog, const QString &path)
{
    withFileDialog(dialog, [&path](QFileDialog *fileDialog) {
        fileDialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(path);
        fileDialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Open)->click();
    });
}
}

class UserIconDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void buildsForm();
    void stacksFrameButtonsAndButtonBox();
    void offersToolButtons_data();
    void offersToolButtons();
    void takesIconsFromTheme();
    void leavesIconsEmptyWithoutTheme();
    void putsWidgetIntoPreviewFrame();
    void startsWithoutPicture();
    void acceptsAndReject();
    void selectsLargestCentredSquareAtOwnResolution_data();
    void selectsLargestCentredSquareAtOwnResolution();
    void returnsSquareMarkedWithMouse();
    void returnsWholePictureForLessThanAPixel();
    void returnsNullForSelectionTurnedInsideOut();
    void returnsNullForPictureTooThinToBeShown();
    void takesNullPixmap();
    void turnsMirrorAndReset();
    void asksForImageFile();
    void opensFileDialogInIconDirectoryEachTime();
    void loadsChosenFile();
    void changesNothingWhenFileDialogIsCancelled();
    void takesAnyFile_data();
    void takesAnyFile();
    void takesTruncatedFile_data();
    void takesTruncatedFile();
    void leavesEmptyWhatFileIsTooShortFor_data();
    void leavesEmptyWhatFileIsTooShortFor();
    void staysWithinColourTable();
    void addsMissingColours_data();
    void addsMissingColours();
    void fillsBeyondEdgesWithFirstColour_data();
    void fillsBeyondEdgesWithFirstColour();
    void takesDamagedFile_data();
    void takesDamagedFile();
    void takesUnreadableFile();
    void pastesImage();
    void ignoresClipboardWithoutImage();
    void pastesImageThatCannotBeConverted();
    void replacesPictureAndSelection();

private:
    QString write(const char *name, const QByteArray &content) const
    {
        QString path = m_directory.filePath(QLatin1String(name));
        Sandbox::write(path, content);
        return path;
    }

    QTemporaryDir m_directory;
};

void UserIconDialogTest::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QVERIFY(m_directory.isValid());
    QVERIFY(QDir().mkpath(UserUtils::userIconPath()));
}

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
    QIcon::setThemeSearchPaths({m_directory.path()});

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

void UserIconDialogTest::acceptsAndReject()
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

void UserIconDialogTest::selectsLargestCentredSquareAtOwnResolution_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("square");

    // Sizes at which the scale to the preview, which is 400 pixels wide and high, leaves no rest.
    QTest::newRow("wide") << QSize(1600, 800) << QRect(400, 0, 800, 800);
    QTest::newRow("tall") << QSize(800, 1600) << QRect(0, 400, 800, 800);
    QTest::newRow("square") << QSize(1600, 1600) << QRect(0, 0, 1600, 1600);
    QTest::newRow("small") << QSize(4, 2) << QRect(1, 0, 2, 2);
    QTest::newRow("one pixel") << QSize(1, 1) << QRect(0, 0, 1, 1);
}

void UserIconDialogTest::selectsLargestCentredSquareAtOwnResolution()
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

void UserIconDialogTest::returnsSquareMarkedWithMouse()
{
    UserIconDialog dialog;
    QVERIFY(showWithPreview(dialog));
    const QImage image = gradient(QSize(1600, 800));
    dialog.setPixmap(QPixmap::fromImage(image));

    // The selection goes from (100, 100) to (299, 299), a quarter of the picture's size.
    drag(dialog, QPoint(299, 299), QPoint(199, 199));
    QCOMPARE(dialog.selectedPixmap().toImage(), image.copy(400, 0, 400, 400));
    drag(dialog, QPoint(150, 150), QPoint(60, 155));
    QCOMPARE(dialog.selectedPixmap().toImage(), image.copy(40, 20, 400, 400));
    part<QToolButton>(dialog, "selectAllButton")->click();
    QCOMPARE(dialog.selectedPixmap().toImage(), image.copy(400, 0, 800, 800));
}

void UserIconDialogTest::returnsWholePictureForLessThanAPixel()
{
    UserIconDialog dialog;
    QVERIFY(showWithPreview(dialog));
    const QImage image = gradient(QSize(4, 2));
    dialog.setPixmap(QPixmap::fromImage(image));
    QCOMPARE(dialog.selectedPixmap().size(), QSize(2, 2));

    drag(dialog, QPoint(299, 299), QPoint(150, 150));
    QCOMPARE(dialog.selectedPixmap().toImage(), image);
}

void UserIconDialogTest::returnsNullForSelectionTurnedInsideOut()
{
    UserIconDialog dialog;
    QVERIFY(showWithPreview(dialog));
    dialog.setPixmap(QPixmap::fromImage(gradient(QSize(400, 400))));

    drag(dialog, QPoint(399, 399), QPoint(99, 99));
    QCOMPARE(dialog.selectedPixmap().size(), QSize(100, 100));
    drag(dialog, QPoint(50, 5), QPoint(50, 200)); // the upper edge, below the lower one
    QVERIFY(okButton(dialog)->isEnabled());
    QVERIFY(dialog.selectedPixmap().isNull());
}

void UserIconDialogTest::returnsNullForPictureTooThinToBeShown()
{
    UserIconDialog dialog;
    QVERIFY(showWithPreview(dialog));
    dialog.setPixmap(QPixmap::fromImage(gradient(QSize(1, 1000))));
    QVERIFY(okButton(dialog)->isEnabled());
    QVERIFY(dialog.selectedPixmap().isNull());
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

void UserIconDialogTest::turnsMirrorAndReset()
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

void UserIconDialogTest::asksForImageFile()
{
    const UserIconDialog dialog;
    withFileDialog(dialog, [&dialog](QFileDialog *fileDialog) {
        QCOMPARE(fileDialog->parentWidget(), &dialog);
        QCOMPARE(fileDialog->windowTitle(), QStringLiteral("Select Image"));
        QCOMPARE(fileDialog->directory().path(), QStringLiteral("/usr/share/kiv/faces"));
        QCOMPARE(fileDialog->nameFilters(),
                 QStringList(QStringLiteral("Images (*.png *.xpm *.jpg *.jpeg *.icon *.svg)")));
        QCOMPARE(fileDialog->acceptMode(), QFileDialog::AcceptOpen);
        QCOMPARE(fileDialog->fileMode(), QFileDialog::ExistingFile);
        fileDialog->reject();
    });
}

void UserIconDialogTest::opensFileDialogInIconDirectoryEachTime()
{
    const UserIconDialog dialog;
    chooseFile(dialog, write("elsewhere.png", encoded(gradient(QSize(10, 10)), "png")));
    for (int i = 0; i < 2; ++i) {
        withFileDialog(dialog, [](QFileDialog *fileDialog) {
            QCOMPARE(fileDialog->directory().path(), QStringLiteral("/usr/share/kiv/faces"));
            fileDialog->setDirectory(QStringLiteral("/"));
            fileDialog->reject();
        });
    }
}

void UserIconDialogTest::loadsChosenFile()
{
    const UserIconDialog dialog;
    const QImage image = gradient(QSize(20, 20));
    chooseFile(dialog, write("picture.png", encoded(image, "png")));
    QVERIFY(okButton(dialog)->isEnabled());
    QCOMPARE(dialog.selectedPixmap().toImage(), image);
}

void UserIconDialogTest::changesNothingWhenFileDialogIsCancelled()
{
    UserIconDialog dialog;
    withFileDialog(dialog, [](QFileDialog *fileDialog) { fileDialog->reject(); });
    QVERIFY(!okButton(dialog)->isEnabled());
    QVERIFY(dialog.selectedPixmap().isNull());

    const QImage image = gradient(QSize(20, 20));
    dialog.setPixmap(QPixmap::fromImage(image));
    withFileDialog(dialog, [](QFileDialog *fileDialog) { fileDialog->reject(); });
    QVERIFY(okButton(dialog)->isEnabled());
    QCOMPARE(dialog.selectedPixmap().toImage(), image);
}

void UserIconDialogTest::takesAnyFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isPicture");

    const QImage image = noise(QSize(100, 100));
    const char *const suffixes[] = {"png", "xpm", "jpg", "jpeg", "svg", "icon", "bmp", "gif"};
    for (const char *suffix : suffixes) {
        QTest::addRow("empty.%s", suffix) << QByteArray() << false;
        QTest::addRow("text.%s", suffix) << QByteArray("This is no picture.\n") << false;
        QTest::addRow("zeros.%s", suffix) << QByteArray(10000, '\0') << false;
        QTest::addRow("png.%s", suffix) << encoded(image, "png") << true; // what counts is the content
    }
    for (const char *format : {"png", "xpm", "jpg", "bmp", "ico"}) {
        const QByteArray whole = encoded(image, format);
        QTest::addRow("whole.%s", format) << whole << true;
        QTest::addRow("start.%s", format) << whole.left(20) << false;
    }
    QTest::newRow("whole.svg") << svg("100") << true;
    QTest::newRow("start.svg") << svg("100").left(20) << false;
    QTest::newRow("zero.xpm") << QByteArray("/* XPM */\nstatic char *x[] = {\n\"0 0 1 1\",\n\"a c #000000\"};\n")
                              << false;
    QTest::newRow("missingplugin.tiff") << QByteArray("II*\0\x08\0\0\0", 8) + QByteArray(100, '\0') << false;

    // More pixels than are taken
    QTest::newRow("toolarge.svg") << svg("16385") << false;
    const QByteArray hugePng = QByteArray::fromHex("89504e470d0a1a0a0000000d4948445200030d4000030d40080200000076591f5d"
                                                   "0000000c49444154789c6360a00c000000400001b7347cef"
                                                   "0000000049454e44ae426082");
    QTest::newRow("huge.png") << hugePng << false;
    QTest::newRow("huge.svg") << svg("200000") << false;
    QTest::newRow("huge.xpm") << QByteArray(
        "/* XPM */\nstatic char *x[] = {\n\"200000 200000 1 1\",\n\"a c #000000\",\n\"aaaa\"};\n")
                              << false;
    QByteArray hugeJpeg = encoded(image, "jpg");
    const int frameHeader = hugeJpeg.indexOf("\xff\xc0");
    hugeJpeg.replace(frameHeader + 5, 4, QByteArray("\xff\xdc\xff\xdc"));
    QTest::newRow("huge.jpg") << hugeJpeg << false;
}

void UserIconDialogTest::takesAnyFile()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, isPicture);

    const MessageRecorder decoderMessages;
    const UserIconDialog dialog;
    chooseFile(dialog, write(QTest::currentDataTag(), content));
    QVERIFY(okButton(dialog)->isEnabled());
    QCOMPARE(!dialog.selectedPixmap().isNull(), isPicture);
}

void UserIconDialogTest::takesTruncatedFile_data()
{
    addFormats();
}

/** How much of a truncated picture is shown is up to its format. */
void UserIconDialogTest::takesTruncatedFile()
{
    QFETCH(QByteArray, whole);

    const MessageRecorder decoderMessages;
    const UserIconDialog dialog;
    for (int eighth = 1; eighth < 8; ++eighth) {
        const QString path = write(QTest::currentDataTag(), whole.left(whole.size() * eighth / 8));
        chooseFile(dialog, path);
        QVERIFY(okButton(dialog)->isEnabled());
        QCOMPARE(dialog.selectedPixmap().isNull(), QImage(path).isNull());
    }
}

void UserIconDialogTest::leavesEmptyWhatFileIsTooShortFor_data()
{
    addFormats();
}

/** The picture is part of the file, and not of what else the memory held. */
void UserIconDialogTest::leavesEmptyWhatFileIsTooShortFor()
{
    QFETCH(QByteArray, whole);

    const MessageRecorder decoderMessages;
    const UserIconDialog dialog;
    const auto shownWithMemoryFilledBy = [&dialog](int byte, const QString &path) {
        mallopt(M_PERTURB, byte);
        chooseFile(dialog, path);
        mallopt(M_PERTURB, 0);
        return dialog.selectedPixmap().toImage();
    };
    for (int eighth = 1; eighth < 8; ++eighth) {
        const QString path = write(QTest::currentDataTag(), whole.left(whole.size() * eighth / 8));
        QCOMPARE(shownWithMemoryFilledBy(0xaa, path), shownWithMemoryFilledBy(0x55, path));
    }
}

void UserIconDialogTest::staysWithinColourTable()
{
    // In its own size Qt draws such a picture without looking where the table ends.
    QImage image(400, 400, QImage::Format_Indexed8);
    image.setColorTable(QVector<QRgb>(20, qRgb(255, 0, 0)));
    image.fill(240);
    const QColor converted = image.convertToFormat(QImage::Format_RGB32).pixelColor(200, 200);

    UserIconDialog dialog;
    QVERIFY(showWithPreview(dialog));
    chooseFile(dialog, write("indexed.bmp", encoded(image, "bmp")));
    QCOMPARE(preview(dialog)->grab().toImage().pixelColor(200, 200), converted);
    QCOMPARE(dialog.selectedPixmap().toImage().pixelColor(200, 200), converted);
}

void UserIconDialogTest::addsMissingColours_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<QColor>("missing");

    QTest::newRow("opaque") << int(QImage::Format_Indexed8) << QColor(Qt::red) << QColor(Qt::black);
    QTest::newRow("with alpha") << int(QImage::Format_Indexed8) << QColor(255, 0, 0, 100) << QColor(Qt::transparent);
    QTest::newRow("one bit") << int(QImage::Format_Mono) << QColor(Qt::red) << QColor(Qt::black);
    QTest::newRow("one bit, other order") << int(QImage::Format_MonoLSB) << QColor(Qt::red) << QColor(Qt::black);
}

void UserIconDialogTest::addsMissingColours()
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

void UserIconDialogTest::fillsBeyondEdgesWithFirstColour_data()
{
    QTest::addColumn<QColor>("first");

    QTest::newRow("opaque") << QColor(Qt::red);
    QTest::newRow("transparent") << QColor(Qt::transparent);
}

void UserIconDialogTest::fillsBeyondEdgesWithFirstColour()
{
    QFETCH(QColor, first);

    QImage image(800, 101, QImage::Format_Indexed8);
    image.setColorTable({first.rgba(), qRgb(0, 0, 255)});
    image.fill(1);
    UserIconDialog dialog;
    QVERIFY(showWithPreview(dialog));
    chooseFile(dialog, write("indexed.png", encoded(image, "png")));
    QCOMPARE(dialog.selectedPixmap().toImage().pixelColor(100, 50), QColor(Qt::blue));

    // Shown 50 pixels high instead of 50.5: at the right edge the square reaches beyond the picture.
    drag(dialog, QPoint(200, 200), QPoint(399, 200));
    QCOMPARE(dialog.selectedPixmap().toImage().pixelColor(50, 50), QColor(Qt::blue));
    QCOMPARE(dialog.selectedPixmap().toImage().pixelColor(100, 50), first);
}

void UserIconDialogTest::takesDamagedFile_data()
{
    addFormats();
}

void UserIconDialogTest::takesDamagedFile()
{
    QFETCH(QByteArray, whole);

    std::mt19937 random(1);
    const MessageRecorder decoderMessages;
    const UserIconDialog dialog;
    for (int i = 0; i < 7; ++i) {
        QByteArray damaged = whole;
        for (int j = 0; j < 20; ++j) {
            // The head, which tells the size, is damaged above.
            const int place = 64 + static_cast<int>(random() % static_cast<unsigned>(damaged.size() - 64));
            damaged[place] = static_cast<char>(random());
        }
        const QString path = write(QTest::currentDataTag(), damaged);
        chooseFile(dialog, path);
        QVERIFY(okButton(dialog)->isEnabled());
        QCOMPARE(dialog.selectedPixmap().isNull(), QImage(path).isNull());
    }
}

void UserIconDialogTest::takesUnreadableFile()
{
    UserIconDialog dialog;
    dialog.setPixmap(QPixmap::fromImage(gradient(QSize(20, 20))));
    const QString path = write("secret.png", encoded(gradient(QSize(20, 20)), "png"));
    QVERIFY(QFile::setPermissions(path, {}));
    chooseFile(dialog, path);
    QVERIFY(okButton(dialog)->isEnabled());
    QVERIFY(dialog.selectedPixmap().isNull());
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
    chooseFile(dialog, write("second.png", encoded(second, "png")));
    QCOMPARE(dialog.selectedPixmap().toImage(), second);
    QGuiApplication::clipboard()->setImage(first);
    part<QToolButton>(dialog, "clipboardButton")->click();
    QCOMPARE(dialog.selectedPixmap().toImage(), first);
    dialog.setPixmap(QPixmap::fromImage(second));
    QCOMPARE(dialog.selectedPixmap().toImage(), second);
}

QTEST_MAIN(UserIconDialogTest)

#include "usericondialogtest.moc"

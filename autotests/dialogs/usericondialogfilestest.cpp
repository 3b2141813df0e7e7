/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "icondialogparts.h"
#include "messagerecorder.h"

#include <UserIconDialog>
#include <UserUtils>

#include <QDir>
#include <QFileDialog>
#include <QTest>

#include <random>

#include <malloc.h>

namespace
{
QByteArray svg(const char *size)
{
    return QByteArray(
               R"(<svg xmlns="http://www.w3.org/2000/svg" width="%" height="%"><rect width="9" height="9"/></svg>)")
        .replace('%', size);
}

/** Files of the formats in the name filter, and of some others. */
void addFormats()
{
    QTest::addColumn<QByteArray>("whole");

    const QImage image = PictureFiles::noise(QSize(100, 100));
    for (const char *format : {"png", "xpm", "jpg", "bmp", "ico", "ppm"}) {
        QTest::newRow(format) << PictureFiles::encoded(image, format);
    }
    QTest::newRow("svg") << svg("100");
}
}

class UserIconDialogFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void asksForImageFile();
    void opensFileDialogInIconDirectoryEachTime();
    void loadsChosenFile();
    void changesNothingWhenFileDialogIsCancelled();
    void takesAnyFile_data();
    void takesAnyFile();
    void takesTruncatedFile_data();
    void takesTruncatedFile();
    void showsNoStrayMemoryForMissingData_data();
    void showsNoStrayMemoryForMissingData();
    void takesDamagedFile_data();
    void takesDamagedFile();
    void takesUnreadableFile();
};

void UserIconDialogFilesTest::initTestCase()
{
    QVERIFY(QDir().mkpath(UserUtils::userIconPath()));
}

void UserIconDialogFilesTest::asksForImageFile()
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

void UserIconDialogFilesTest::opensFileDialogInIconDirectoryEachTime()
{
    const UserIconDialog dialog;
    chooseFile(dialog, writePicture("elsewhere.png", PictureFiles::encoded(gradient(QSize(10, 10)), "png")));
    for (int i = 0; i < 2; ++i) {
        withFileDialog(dialog, [](QFileDialog *fileDialog) {
            QCOMPARE(fileDialog->directory().path(), QStringLiteral("/usr/share/kiv/faces"));
            fileDialog->setDirectory(QStringLiteral("/"));
            fileDialog->reject();
        });
    }
}

void UserIconDialogFilesTest::loadsChosenFile()
{
    const UserIconDialog dialog;
    const QImage image = gradient(QSize(20, 20));
    chooseFile(dialog, writePicture("picture.png", PictureFiles::encoded(image, "png")));
    QVERIFY(okButton(dialog)->isEnabled());
    QCOMPARE(dialog.selectedPixmap().toImage(), image);
}

void UserIconDialogFilesTest::changesNothingWhenFileDialogIsCancelled()
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

void UserIconDialogFilesTest::takesAnyFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isPicture");

    const QImage image = PictureFiles::noise(QSize(100, 100));
    const char *const suffixes[] = {"png", "xpm", "jpg", "jpeg", "svg", "icon", "bmp", "gif"};
    for (const char *suffix : suffixes) {
        QTest::addRow("empty.%s", suffix) << QByteArray() << false;
        QTest::addRow("text.%s", suffix) << QByteArray("This is no picture.\n") << false;
        QTest::addRow("zeros.%s", suffix) << QByteArray(10000, '\0') << false;
        QTest::addRow("png.%s", suffix) << PictureFiles::encoded(image, "png") << true; // the content counts
    }
    for (const char *format : {"png", "xpm", "jpg", "bmp", "ico"}) {
        const QByteArray whole = PictureFiles::encoded(image, format);
        QTest::addRow("whole.%s", format) << whole << true;
        QTest::addRow("start.%s", format) << whole.left(20) << false;
    }
    QTest::newRow("whole.svg") << svg("100") << true;
    QTest::newRow("start.svg") << svg("100").left(20) << false;
    QTest::newRow("zero.xpm") << QByteArray("/* XPM */\nstatic char *x[] = {\n\"0 0 1 1\",\n\"a c #000000\"};\n")
                              << false;
    QTest::newRow("missingplugin.tiff") << QByteArray("II*\0\x08\0\0\0", 8) + QByteArray(100, '\0') << false;

    // More pixels than the limit
    QTest::newRow("toolarge.svg") << svg("16385") << false;
    const QByteArray hugePng = QByteArray::fromHex("89504e470d0a1a0a0000000d4948445200030d4000030d40080200000076591f5d"
                                                   "0000000c49444154789c6360a00c000000400001b7347cef"
                                                   "0000000049454e44ae426082");
    QTest::newRow("huge.png") << hugePng << false;
    QTest::newRow("huge.svg") << svg("200000") << false;
    QTest::newRow("huge.xpm") << QByteArray(
        "/* XPM */\nstatic char *x[] = {\n\"200000 200000 1 1\",\n\"a c #000000\",\n\"aaaa\"};\n")
                              << false;
    QByteArray hugeJpeg = PictureFiles::encoded(image, "jpg");
    const int frameHeader = hugeJpeg.indexOf("\xff\xc0");
    hugeJpeg.replace(frameHeader + 5, 4, QByteArray("\xff\xdc\xff\xdc"));
    QTest::newRow("huge.jpg") << hugeJpeg << false;
}

void UserIconDialogFilesTest::takesAnyFile()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, isPicture);

    const MessageRecorder decoderMessages;
    const UserIconDialog dialog;
    chooseFile(dialog, writePicture(QTest::currentDataTag(), content));
    QVERIFY(okButton(dialog)->isEnabled());
    QCOMPARE(!dialog.selectedPixmap().isNull(), isPicture);
}

void UserIconDialogFilesTest::takesTruncatedFile_data()
{
    addFormats();
}

/** The format decides how much of a truncated picture is shown. */
void UserIconDialogFilesTest::takesTruncatedFile()
{
    QFETCH(QByteArray, whole);

    const MessageRecorder decoderMessages;
    const UserIconDialog dialog;
    for (int eighth = 1; eighth < 8; ++eighth) {
        const QString path = writePicture(QTest::currentDataTag(), whole.left(whole.size() * eighth / 8));
        chooseFile(dialog, path);
        QVERIFY(okButton(dialog)->isEnabled());
        QCOMPARE(dialog.selectedPixmap().isNull(), QImage(path).isNull());
    }
}

void UserIconDialogFilesTest::showsNoStrayMemoryForMissingData_data()
{
    addFormats();
}

/** The pixels that a truncated file lacks must not show previous contents of the memory. */
void UserIconDialogFilesTest::showsNoStrayMemoryForMissingData()
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
        const QString path = writePicture(QTest::currentDataTag(), whole.left(whole.size() * eighth / 8));
        QCOMPARE(shownWithMemoryFilledBy(0xaa, path), shownWithMemoryFilledBy(0x55, path));
    }
}

void UserIconDialogFilesTest::takesDamagedFile_data()
{
    addFormats();
}

void UserIconDialogFilesTest::takesDamagedFile()
{
    QFETCH(QByteArray, whole);

    std::mt19937 random(1);
    const MessageRecorder decoderMessages;
    const UserIconDialog dialog;
    for (int i = 0; i < 7; ++i) {
        QByteArray damaged = whole;
        for (int j = 0; j < 20; ++j) {
            // The header, which has the size, is covered above.
            const int place = 64 + static_cast<int>(random() % static_cast<unsigned>(damaged.size() - 64));
            damaged[place] = static_cast<char>(random());
        }
        const QString path = writePicture(QTest::currentDataTag(), damaged);
        chooseFile(dialog, path);
        QVERIFY(okButton(dialog)->isEnabled());
        QCOMPARE(dialog.selectedPixmap().isNull(), QImage(path).isNull());
    }
}

void UserIconDialogFilesTest::takesUnreadableFile()
{
    UserIconDialog dialog;
    dialog.setPixmap(QPixmap::fromImage(gradient(QSize(20, 20))));
    const QString path = writePicture("secret.png", PictureFiles::encoded(gradient(QSize(20, 20)), "png"));
    QVERIFY(QFile::setPermissions(path, {}));
    chooseFile(dialog, path);
    QVERIFY(okButton(dialog)->isEnabled());
    QVERIFY(dialog.selectedPixmap().isNull());
}

QTEST_MAIN(UserIconDialogFilesTest)

#include "usericondialogfilestest.moc"

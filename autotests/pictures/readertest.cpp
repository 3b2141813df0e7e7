/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "hostilefaces.h"
#include "largeimages.h"
#include "peakmemory.h"
#include "picturefiles.h"
#include "picturereader.h"
#include "sandbox.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>
#include <QTest>

#include <malloc.h>
#include <unistd.h>

Q_DECLARE_METATYPE(PictureReader::Problem)

using PictureReader::Problem;

class PictureReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEveryFormat_data();
    void readsEveryFormat();
    void guessesFormatFromContent();
    void readsWithoutStandardInput();
    void refusesWhatIsNoFile_data();
    void refusesWhatIsNoFile();
    void tellsWhyFileIsNoPicture_data();
    void tellsWhyFileIsNoPicture();
    void refusesClaimsOfManyPixels_data();
    void refusesClaimsOfManyPixels();
    void acceptsMostPixels();
    void leavesMissingPixelsEmpty_data();
    void leavesMissingPixelsEmpty();

private:
    QString write(const char *name, const QByteArray &content) const
    {
        QString path = m_directory.filePath(QString::fromLatin1(name));
        Sandbox::write(path, content);
        return path;
    }

    QTemporaryDir m_directory;
};

void PictureReaderTest::readsEveryFormat_data()
{
    QTest::addColumn<QByteArray>("content");

    const QVector<PictureFiles::File> files = PictureFiles::ofEveryFormat({100, 80});
    for (const auto &[format, content] : files) {
        QTest::newRow(format) << content;
    }
    const QByteArray svg = PictureFiles::svg(R"(<rect width="9" height="9"/>)");
    QTest::newRow("svg with an end too many") << svg + "</x>";
    QTest::newRow("svg with another one") << svg + PictureFiles::svg(R"(<rect width="5" height="5"/>)");
    QTest::newRow("svg with other text") << svg + "junk & <";
    QTest::newRow("svgz") << PictureFiles::gzipped(svg);
    QTest::newRow("svgz without its checksum") << PictureFiles::gzipped(svg).chopped(8);
}

void PictureReaderTest::readsEveryFormat()
{
    QFETCH(QByteArray, content);

    const QString path = write(QTest::currentDataTag(), content);
    const PictureReader::Result result = PictureReader::read(path);
    QCOMPARE(result.problem, Problem::None);
    QVERIFY(!result.image.isNull());
    QCOMPARE(result.image, QImage(path));
}

void PictureReaderTest::guessesFormatFromContent()
{
    const QString path = write("picture.jpg", PictureFiles::encoded(PictureFiles::plain({5, 5}, Qt::red), "png"));
    QCOMPARE(PictureReader::read(path).image.pixelColor(0, 0), QColor(Qt::red));
}

/** The file gets the number of the standard input. */
void PictureReaderTest::readsWithoutStandardInput()
{
    const QString path = write("picture.png", PictureFiles::encoded(PictureFiles::plain({5, 5}, Qt::red), "png"));
    const int input = dup(STDIN_FILENO);
    close(STDIN_FILENO);
    const Problem problem = PictureReader::read(path).problem;
    dup2(input, STDIN_FILENO);
    close(input);
    QCOMPARE(problem, Problem::None);
}

void PictureReaderTest::refusesWhatIsNoFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<Problem>("problem");

    const QString directory = m_directory.path();
    const auto inside = [&directory](const char *name) -> QString {
        return directory + QLatin1Char('/') + QLatin1String(name);
    };
    makePipe(inside("pipe"));
    makeSocket(inside("socket"));
    QFile::link(inside("pipe"), inside("link"));
    QFile::link(inside("loop"), inside("loop"));
    QFile::setPermissions(write("unreadable", "x"), {});
    QTest::newRow("pipe") << inside("pipe") << Problem::NotAFile;
    QTest::newRow("link to a pipe") << inside("link") << Problem::NotAFile;
    QTest::newRow("device") << QStringLiteral("/dev/zero") << Problem::NotAFile;
    QTest::newRow("directory") << directory << Problem::NotAFile;
    QTest::newRow("socket") << inside("socket") << Problem::Unreadable;
    QTest::newRow("link to itself") << inside("loop") << Problem::Unreadable;
    QTest::newRow("missing") << inside("missing") << Problem::Unreadable;
    QTest::newRow("unreadable") << inside("unreadable") << Problem::Unreadable;
}

void PictureReaderTest::refusesWhatIsNoFile()
{
    QFETCH(QString, path);
    QFETCH(Problem, problem);

    const PictureReader::Result result = PictureReader::read(path);
    QCOMPARE(result.problem, problem);
    QVERIFY(result.image.isNull());
    QCOMPARE(result.details.isEmpty(), problem == Problem::NotAFile);
}

void PictureReaderTest::tellsWhyFileIsNoPicture_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("text") << QByteArray("This is no picture.");
    QTest::newRow("large numbers where GIF has the size") << QByteArray(20, 'z');
}

void PictureReaderTest::tellsWhyFileIsNoPicture()
{
    QFETCH(QByteArray, content);

    const PictureReader::Result result = PictureReader::read(write("text", content));
    QCOMPARE(result.problem, Problem::NotAPicture);
    QVERIFY(result.image.isNull());
    QCOMPARE(result.details, QStringLiteral("Unsupported image format"));
}

void PictureReaderTest::refusesClaimsOfManyPixels_data()
{
    QTest::addColumn<QByteArray>("content");

    // Qt itself refuses some of them.
    const QVector<LargeImage> images = largeImages({22000, 22000});
    for (const LargeImage &image : images) {
        QTest::newRow(image.format) << image.content;
    }
    QTest::newRow("only the header of a GIF picture") << QByteArray("GIF89a\xf0\x55\xf0\x55\x80\0", 12);
    QTest::newRow("a row too many") << QByteArray("P4 16384 16385 ");
}

void PictureReaderTest::refusesClaimsOfManyPixels()
{
    QFETCH(QByteArray, content);

    PeakMemory::reset();
    const qint64 before = PeakMemory::bytes();
    const PictureReader::Result result = PictureReader::read(write("large", content));
    const QStringList refusedByQt{QStringLiteral("bmp"), QStringLiteral("ico")};
    const bool byQt = refusedByQt.contains(QLatin1String(QTest::currentDataTag()));
    QCOMPARE(result.problem, byQt ? Problem::NotAPicture : Problem::TooLarge);
    QVERIFY(result.image.isNull());
#ifndef __SANITIZE_ADDRESS__ // which takes memory of its own
    QVERIFY(PeakMemory::bytes() - before < 100LL * 1024 * 1024);
#else
    Q_UNUSED(before)
#endif
}

void PictureReaderTest::acceptsMostPixels()
{
    const QByteArray pixels(16384 / 8 * 16384, '\0'); // of one bit
    const PictureReader::Result result = PictureReader::read(write("large", "P4 16384 16384 " + pixels));
    QCOMPARE(result.problem, Problem::None);
    QCOMPARE(result.image.size(), QSize(16384, 16384));
}

void PictureReaderTest::leavesMissingPixelsEmpty_data()
{
    QTest::addColumn<QByteArray>("content");

    const QVector<PictureFiles::File> files = PictureFiles::ofEveryFormat({100, 100});
    for (const auto &[format, whole] : files) {
        for (const int eighths : {1, 4, 7}) {
            QTest::addRow("%d eighths of %s", eighths, format) << whole.left(whole.size() / 8 * eighths);
        }
    }
}

void PictureReaderTest::leavesMissingPixelsEmpty()
{
    QFETCH(QByteArray, content);

    const QString path = write("short", content);
    QVector<QImage> images;
    for (const int fill : {0x55, 0xaa}) {
        mallopt(M_PERTURB, fill); // new memory holds this
        images.append(PictureReader::read(path).image);
    }
    mallopt(M_PERTURB, 0);
    QCOMPARE(images.first(), images.last());
}

QTEST_GUILESS_MAIN(PictureReaderTest)

#include "readertest.moc"

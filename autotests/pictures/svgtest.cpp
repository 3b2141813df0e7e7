/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "hostilefaces.h"
#include "peakmemory.h"
#include "picturefiles.h"
#include "picturereader.h"
#include "processortime.h"
#include "sandbox.h"

#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <array>

#include <malloc.h>
#include <sys/inotify.h>
#include <unistd.h>
#include <zlib.h>

using PictureReader::Problem;

namespace
{
constexpr int mebibyte = 1024 * 1024;

QByteArray image(const QByteArray &reference)
{
    return R"(<image width="20" height="20" xlink:href=")" + reference + R"("/>)";
}

QByteArray dataOf(const QByteArray &content)
{
    return "data:image/png;base64," + content.toBase64();
}

/** Zeros in the format of gzip, which compresses them to about a thousandth. */
QByteArray gzippedZeros(int mebibytes)
{
    constexpr int headerSize = 10;
    QByteArray zeros(mebibyte, '\0');
    std::array<Bytef, 4096> compressed{};
    z_stream stream = {};
    deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, MAX_WBITS + 16, MAX_MEM_LEVEL, Z_DEFAULT_STRATEGY);
    stream.next_in = reinterpret_cast<Bytef *>(zeros.data());
    stream.avail_in = mebibyte;
    stream.next_out = compressed.data();
    stream.avail_out = uint(compressed.size());
    deflate(&stream, Z_FULL_FLUSH);
    deflateEnd(&stream);
    const QByteArray first(reinterpret_cast<char *>(compressed.data()), int(compressed.size() - stream.avail_out));
    return first + first.mid(headerSize).repeated(mebibytes - 1); // after a full flush, everything starts over
}

/** Notices whether a file was opened during its lifetime. */
class Watch
{
public:
    explicit Watch(const QString &path)
        : m_descriptor(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        if (inotify_add_watch(m_descriptor, qPrintable(path), IN_OPEN) < 0) {
            qFatal("Cannot watch %s", qPrintable(path));
        }
    }

    ~Watch()
    {
        close(m_descriptor);
    }

    bool wasOpened() const
    {
        char event[4096];
        return read(m_descriptor, event, sizeof event) > 0;
    }

private:
    Q_DISABLE_COPY(Watch)

    const int m_descriptor;
};
}

class SvgTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void drawsIconsAsQtDoes();
    void doesNotOpenWhatPictureRefersTo_data();
    void doesNotOpenWhatPictureRefersTo();
    void keepsReferencesWithin();
    void showsImagesWithin_data();
    void showsImagesWithin();
    void doesNotShowMemoryInImagesWithin();
    void refusesLongText_data();
    void refusesLongText();
    void stopsUnpackingTextThatIsTooLong();
    void refusesDeepNesting();
    void refusesPictureWithoutSize();
    void refusesDamagedText_data();
    void refusesDamagedText();

private:
    PictureReader::Result read(const QByteArray &content) const
    {
        const QString path = m_directory.filePath(QStringLiteral("picture.svg"));
        Sandbox::write(path, content);
        return PictureReader::read(path);
    }

    QTemporaryDir m_directory;
    QString m_target = m_directory.filePath(QStringLiteral("target.png"));
};

void SvgTest::initTestCase()
{
    Sandbox::write(m_target, PictureFiles::encoded(PictureFiles::plain({20, 20}, Qt::red), "png"));
}

void SvgTest::drawsIconsAsQtDoes()
{
    constexpr int each = 89; // of many
    QDirIterator files(QStringLiteral("/usr/share/icons/breeze"),
                       {QStringLiteral("*.svg")},
                       QDir::Files,
                       QDirIterator::Subdirectories);
    int count = 0;
    for (int i = 0; files.hasNext(); ++i) {
        const QString path = files.next();
        if (i % each == 0) {
            const QImage expected(path);
            const PictureReader::Result result = PictureReader::read(path);
            QCOMPARE(result.image, expected);
            count += int(!expected.isNull());
        }
    }
    QVERIFY(count > 30);
}

void SvgTest::doesNotOpenWhatPictureRefersTo_data()
{
    QTest::addColumn<QByteArray>("content");

    const QByteArray path = QFile::encodeName(m_target);
    const QByteArray reference = PictureFiles::svg(image(path));
    QTest::newRow("image") << reference;
    QTest::newRow("compressed") << PictureFiles::gzipped(reference);
    QTest::newRow("relative") << PictureFiles::svg(image("target.png"));
    QTest::newRow("URL") << PictureFiles::svg(image("file://" + path));
    QTest::newRow("space before") << PictureFiles::svg(image("  " + path));
    QTest::newRow("entity") << "<!DOCTYPE svg [<!ENTITY target \"" + path + "\">]>"
            + PictureFiles::svg(image("&target;"));
    QTest::newRow("SVG within") << PictureFiles::svg(image(dataOf(reference)));
    QTest::newRow("compressed SVG within") << PictureFiles::svg(image(dataOf(PictureFiles::gzipped(reference))));
    QTest::newRow("style sheet") << R"(<?xml version="1.0"?><?xml-stylesheet type="text/css" href=")" + path + R"("?>)"
            + PictureFiles::svg({});
    QTest::newRow("external entity") << "<!DOCTYPE svg [<!ENTITY target SYSTEM \"" + path + "\">]>"
            + PictureFiles::svg("<text>&target;</text>");
    QTest::newRow("import") << PictureFiles::svg("<style>@import url(" + path + ");</style>");
    QTest::newRow("font") << PictureFiles::svg("<font-face><font-face-src><font-face-uri xlink:href=\"" + path
                                               + "\"/></font-face-src></font-face>");
    QTest::newRow("use") << PictureFiles::svg("<use xlink:href=\"" + path + "#x\"/>");
}

void SvgTest::doesNotOpenWhatPictureRefersTo()
{
    QFETCH(QByteArray, content);

    const QDir previous = QDir::current();
    QVERIFY(QDir::setCurrent(m_directory.path()));
    const Watch watch(m_target);
    const PictureReader::Result result = read(content);
    QVERIFY(!watch.wasOpened());
    QVERIFY(QDir::setCurrent(previous.path()));
    if (result.problem == Problem::None) {
        QVERIFY(result.image.pixelColor(10, 10) != QColor(Qt::red));
    }
}

void SvgTest::keepsReferencesWithin()
{
    const QByteArray content = PictureFiles::svg(R"(<defs><rect id="r" width="20" height="20" fill="#0000ff"/></defs>)"
                                                 R"(<use xlink:href="#r"/>)");
    QCOMPARE(read(content).image.pixelColor(10, 10), QColor(Qt::blue));
}

void SvgTest::showsImagesWithin_data()
{
    QTest::addColumn<QByteArray>("reference");

    const QImage blue = PictureFiles::plain({20, 20}, Qt::blue);
    QTest::newRow("PNG") << dataOf(PictureFiles::encoded(blue, "png"));
    QTest::newRow("BMP") << dataOf(PictureFiles::encoded(blue, "bmp"));
    QTest::newRow("line ends") << dataOf(PictureFiles::encoded(blue, "png")).replace("base64,", "base64,\n ");
}

void SvgTest::showsImagesWithin()
{
    QFETCH(QByteArray, reference);

    QCOMPARE(read(PictureFiles::svg(image(reference))).image.pixelColor(10, 10), QColor(Qt::blue));
}

void SvgTest::doesNotShowMemoryInImagesWithin()
{
    const QByteArray file = PictureFiles::encoded(PictureFiles::noise({100, 100}), "bmp");
    const QByteArray content = PictureFiles::svg(image(dataOf(file.left(file.size() / 2))));
    QVector<QImage> images;
    for (const int fill : {0x55, 0xaa}) {
        mallopt(M_PERTURB, fill);
        images.append(read(content).image);
    }
    mallopt(M_PERTURB, 0);
    QVERIFY(!images.first().isNull());
    QCOMPARE(images.first(), images.last());
}

void SvgTest::refusesLongText_data()
{
    QTest::addColumn<QByteArray>("content");

    const QByteArray spaces = PictureFiles::svg(QByteArray(64 * mebibyte, ' '));
    QTest::newRow("plain") << spaces;
    QTest::newRow("compressed") << PictureFiles::gzipped(spaces);
}

void SvgTest::refusesLongText()
{
    QFETCH(QByteArray, content);

    PeakMemory::reset();
    const qint64 before = PeakMemory::bytes();
    QCOMPARE(read(content).problem, Problem::TooLarge);
    QVERIFY(PeakMemory::bytes() - before < 150LL * mebibyte);
}

void SvgTest::stopsUnpackingTextThatIsTooLong()
{
    const auto secondsFor = [this](int mebibytes) {
        const QByteArray content = gzippedZeros(mebibytes);
        const double before = processorSeconds(RUSAGE_SELF);
        const Problem problem = read(content).problem;
        return problem == Problem::TooLarge ? processorSeconds(RUSAGE_SELF) - before : 0;
    };
    const double least = secondsFor(65);
    const double most = secondsFor(65 * 40);
    QVERIFY2(least > 0 && most > 0 && most < 5 * least, qPrintable(QStringLiteral("%1 %2").arg(least).arg(most)));
}

void SvgTest::refusesPictureWithoutSize()
{
    const PictureReader::Result result = read("<svg xmlns=\"http://www.w3.org/2000/svg\"/>");
    QVERIFY(result.image.isNull());
    QCOMPARE(result.problem, Problem::NotAPicture);
    QCOMPARE(result.details, QStringLiteral("Unable to read image data"));
}

void SvgTest::refusesDeepNesting()
{
    const QByteArray open("<g>");
    const QByteArray close("</g>");
    QVERIFY(!read(PictureFiles::svg(open.repeated(900) + close.repeated(900))).image.isNull());
    QCOMPARE(read(PictureFiles::svg(open.repeated(100000) + close.repeated(100000))).problem, Problem::NotAPicture);
}

void SvgTest::refusesDamagedText_data()
{
    QTest::addColumn<QByteArray>("content");

    const QByteArray whole = PictureFiles::svg("<g><rect/></g>");
    QTest::newRow("only the start") << whole.left(whole.size() / 2);
    QTest::newRow("without the end") << whole.chopped(6);
    QTest::newRow("mixed up") << PictureFiles::svg("<g></svg>");
    const QByteArray compressed = PictureFiles::gzipped(whole);
    QTest::newRow("compressed, only the start") << compressed.left(20);
    QTest::newRow("compressed, another checksum") << compressed.chopped(8) + QByteArray(8, '\0');
    QTest::newRow("compressed, more behind the end") << compressed + "text";
    QTest::newRow("compressed, more behind the end of the text") << PictureFiles::gzipped(whole + "text");
    QTest::newRow("compressed twice") << compressed + compressed;
}

void SvgTest::refusesDamagedText()
{
    QFETCH(QByteArray, content);

    const PictureReader::Result result = read(content);
    QCOMPARE(result.problem, Problem::NotAPicture);
    QVERIFY(result.image.isNull());
}

QTEST_MAIN(SvgTest)

#include "svgtest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "hostilefaces.h"
#include "picturefiles.h"
#include "program.h"
#include "sandbox.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace
{
constexpr int timeout = 30000;

/** Runs xdotool, which acts as the user. Returns its output. */
QByteArray operate(const QStringList &arguments)
{
    const Program::Result result = Program::run(QStringLiteral("xdotool"), arguments);
    if (result.status != 0) {
        qFatal("xdotool %s: %s", qPrintable(arguments.join(QLatin1Char(' '))), result.errors.constData());
    }
    return result.output.trimmed();
}

/** ormel-users pick-icon with a visible dialog. */
class PickIcon
{
public:
    explicit PickIcon(const QStringList &arguments)
    {
        m_process.start(Program::path(), QStringList(QStringLiteral("pick-icon")) + arguments);
        m_window = QString::fromLatin1(operate({QStringLiteral("search"),
                                                QStringLiteral("--sync"),
                                                QStringLiteral("--onlyvisible"),
                                                QStringLiteral("--name"),
                                                QStringLiteral("^Select User Icon$")}));
        operate({QStringLiteral("windowactivate"), QStringLiteral("--sync"), m_window});
    }

    ~PickIcon()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    void pressKey(const char *key)
    {
        operate({QStringLiteral("key"), QString::fromLatin1(key)});
    }

    /** Drags the mouse between two positions in the window. */
    void drag(const QPoint &from, const QPoint &to)
    {
        move(from);
        operate({QStringLiteral("mousedown"), QStringLiteral("1")});
        move((from + to) / 2);
        move(to);
        operate({QStringLiteral("mouseup"), QStringLiteral("1")});
    }

    bool isRunning()
    {
        return !m_process.waitForFinished(500);
    }

    int exitStatus()
    {
        const bool finished = m_process.waitForFinished(timeout) || m_process.state() == QProcess::NotRunning;
        return finished && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

    QString errors()
    {
        return QString::fromLocal8Bit(m_process.readAllStandardError());
    }

private:
    void move(const QPoint &position)
    {
        operate({QStringLiteral("mousemove"),
                 QStringLiteral("--window"),
                 m_window,
                 QString::number(position.x()),
                 QString::number(position.y())});
    }

    QProcess m_process;
    QString m_window;
};

/** A picture in which each pixel of the first row encodes its column. */
QImage columns(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixel(x, y, qRgb(x / 256, x % 256, y % 256));
        }
    }
    return image;
}

int columnOf(QRgb pixel)
{
    return qRed(pixel) * 256 + qGreen(pixel);
}
}

class IconCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void writesLargestSquare();
    void writesSquareMovedWithMouse();
    void failsWhenCancelled();
    void waitsForPictureBeforeOk();
    void tellsWhenThereIsNoPicture();
    void refusesPictures_data();
    void refusesPictures();
    void doesNotShowMemoryInShortPicture();
    void tellsWhenIconCannotBeWritten();
    void refusesWrongArguments_data();
    void refusesWrongArguments();

private:
    QStringList arguments() const
    {
        return {m_picture, QStringLiteral("--output"), m_icon};
    }

    QTemporaryDir m_directory;
    QString m_picture = m_directory.filePath(QStringLiteral("picture.png"));
    QString m_icon = m_directory.filePath(QStringLiteral("icon.png"));
};

void IconCommandsTest::init()
{
    QVERIFY(columns(QSize(1200, 600)).save(m_picture));
    QFile::remove(m_icon);
}

void IconCommandsTest::writesLargestSquare()
{
    PickIcon program(arguments());
    program.pressKey("Return");
    QCOMPARE(program.exitStatus(), 0);

    // The preview is less than half as wide as the picture, so positions are rounded.
    const QImage icon(m_icon);
    QVERIFY(qAbs(icon.width() - 600) < 6);
    QCOMPARE(icon.height(), icon.width());
    QVERIFY(qAbs(columnOf(icon.pixel(0, 0)) - 300) < 6);
}

void IconCommandsTest::writesSquareMovedWithMouse()
{
    PickIcon program(arguments());
    program.drag(QPoint(230, 200), QPoint(5, 200));
    program.pressKey("Return");
    QCOMPARE(program.exitStatus(), 0);

    const QImage icon(m_icon);
    QVERIFY(qAbs(icon.width() - 600) < 6);
    QCOMPARE(columnOf(icon.pixel(0, 0)), 0);
    QCOMPARE(columnOf(icon.pixel(400, 0)), 400);
}

void IconCommandsTest::failsWhenCancelled()
{
    PickIcon program(arguments());
    program.pressKey("Escape");
    QCOMPARE(program.exitStatus(), 1);
    QCOMPARE(program.errors(), QString());
    QVERIFY(!QFile::exists(m_icon));
}

void IconCommandsTest::waitsForPictureBeforeOk()
{
    PickIcon program({QStringLiteral("--output"), m_icon});
    program.pressKey("Return");
    QVERIFY(program.isRunning());
    program.pressKey("Escape");
    QCOMPARE(program.exitStatus(), 1);
}

void IconCommandsTest::tellsWhenThereIsNoPicture()
{
    QFile file(m_picture);
    QVERIFY(file.resize(20));
    PickIcon program(arguments());
    program.pressKey("Return");
    QCOMPARE(program.exitStatus(), 1);
    const QString errors = program.errors();
    QVERIFY(errors.contains(QStringLiteral("ormel-users: Cannot read '%1': ").arg(m_picture)));
    QVERIFY(errors.endsWith(QLatin1String("ormel-users: No picture was chosen.\n")));
    QVERIFY(!QFile::exists(m_icon));
}

void IconCommandsTest::refusesPictures_data()
{
    QTest::addColumn<QString>("picture");
    QTest::addColumn<QString>("reason");

    makePipe(m_directory.filePath(QStringLiteral("pipe")));
    Sandbox::write(m_directory.filePath(QStringLiteral("large")), "P4 22000 22000 ");
    QTest::newRow("pipe") << QStringLiteral("pipe") << QStringLiteral("not a regular file");
    QTest::newRow("missing") << QStringLiteral("missing") << QStringLiteral("No such file or directory");
    QTest::newRow("large") << QStringLiteral("large") << QStringLiteral("the picture is too large");
}

void IconCommandsTest::refusesPictures()
{
    QFETCH(QString, picture);
    QFETCH(QString, reason);

    const QString path = m_directory.filePath(picture);
    PickIcon program({path, QStringLiteral("--output"), m_icon});
    program.pressKey("Return");
    QCOMPARE(program.exitStatus(), 1);
    const QString message = QStringLiteral("ormel-users: Cannot read '%1': %2\n").arg(path, reason);
    QVERIFY2(program.errors().startsWith(message), qPrintable(message));
}

void IconCommandsTest::doesNotShowMemoryInShortPicture()
{
    const QByteArray whole = PictureFiles::encoded(columns(QSize(600, 600)), "bmp");
    Sandbox::write(m_picture, whole.left(whole.size() / 2)); // the lower half
    qputenv("MALLOC_PERTURB_", "85");
    PickIcon program(arguments());
    program.pressKey("Return");
    QCOMPARE(program.exitStatus(), 0);
    qunsetenv("MALLOC_PERTURB_");
    const QImage icon(m_icon);
    QVERIFY(!icon.isNull());
    QCOMPARE(icon.pixel(icon.width() / 2, 1) & RGB_MASK, 0U);
}

void IconCommandsTest::tellsWhenIconCannotBeWritten()
{
    PickIcon program({m_picture, QStringLiteral("--output"), QStringLiteral("/nowhere/icon.png")});
    program.pressKey("Return");
    QCOMPARE(program.exitStatus(), 1);
    QVERIFY(program.errors().startsWith(QLatin1String("ormel-users: Cannot write '/nowhere/icon.png': ")));
}

void IconCommandsTest::refusesWrongArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");

    QTest::newRow("no output") << QStringList() << QByteArray("The option --output is missing.");
    QTest::newRow("empty output") << QStringList({QStringLiteral("--output"), QString()})
                                  << QByteArray("The option --output is missing.");
    QTest::newRow("two files") << QStringList({QStringLiteral("a"), QStringLiteral("b")})
                               << QByteArray("Unexpected argument 'b'.");
}

void IconCommandsTest::refusesWrongArguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);

    const Program::Result result = Program::run(QStringList(QStringLiteral("pick-icon")) + arguments);
    QCOMPARE(result.status, 2);
    QVERIFY2(result.errors.startsWith("ormel-users pick-icon: " + message), result.errors.constData());
}

QTEST_GUILESS_MAIN(IconCommandsTest)

#include "iconcommandstest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "limitsfixtures.h"
#include "program.h"
#include "sandbox.h"
#include "texts.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

namespace
{
/** Runs without a display and without QT_QPA_PLATFORM, like scripts/demo on a server. */
Program::Result takeScreenshots(const QString &directory, const QStringList &variables = {})
{
    const QStringList noDisplay{text("QT_QPA_PLATFORM="), text("DISPLAY="), text("WAYLAND_DISPLAY=")};
    return Program::run(Program::path(), {text("--screenshots"), directory}, {}, noDisplay + variables);
}

QStringList pictureNames()
{
    return {
        text("dialog-about.png"),
        text("dialog-commands.png"),
        text("dialog-help.png"),
        text("dialog-select-groups.png"),
        text("dialog-select-icon.png"),
        text("dialog-select-one-group.png"),
        text("dialog-select-one-user.png"),
        text("dialog-select-users.png"),
        text("page-groups.png"),
        text("page-limits.png"),
        text("page-new-account.png"),
        text("page-problems.png"),
        text("page-users.png"),
    };
}

/** A page without the time at which the accounts were read. */
QImage withoutStatusBar(const QString &file)
{
    const QImage picture(file);
    return picture.copy(picture.rect().adjusted(0, 0, 0, -32));
}

/** The number of colours in a picture. A low number means that nothing was drawn. */
int colours(const QImage &picture)
{
    QSet<QRgb> found;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            found.insert(picture.pixel(x, y));
        }
    }
    return found.size();
}

/** How many pixels of a picture have a colour. */
int pixels(const QImage &picture, const QColor &colour)
{
    int found = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            found += int(picture.pixelColor(x, y) == colour);
        }
    }
    return found;
}
}

/** ormel-users --screenshots. */
class ScreenshotsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void drawsAllPagesAndDialogs();
    void printsWhatItWrites();
    void drawsAtOtherScale_data();
    void drawsAtOtherScale();
    void mirrorsForLanguagesReadFromTheRight();
    void drawsOnOtherPlatforms_data();
    void drawsOnOtherPlatforms();
    void showsWhatIsThere();
    void waitsForPictureOfUser();
    void drawsLandscapeWithoutStockPictures();
    void leavesWindowStateAlone();
    void reportsDirectoryThatCannotBeMade();
    void reportsFileThatCannotBeWritten();
    void needsDirectory();
};

void ScreenshotsTest::init()
{
    Sandbox::setAccounts("root:x:0:0:root:/root:/bin/bash\nada:x:1000:50:Ada:/home/ada:/bin/sh\n",
                         "root:x:0:\normel-admin:x:27:ada\nstaff:x:50:\n");
    clearLimits();
}

void ScreenshotsTest::drawsAllPagesAndDialogs()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(text("new/pictures"));
    const Program::Result result = takeScreenshots(path);
    QCOMPARE(result.status, 0);
    QCOMPARE(QDir(path).entryList(QDir::Files, QDir::Name), pictureNames());
    const QStringList names = pictureNames();
    for (const QString &name : names) {
        const QImage picture(QDir(path).filePath(name));
        QVERIFY2(picture.width() >= 200 && picture.height() >= 100, qPrintable(name));
        QVERIFY2(colours(picture) > 10, qPrintable(name));
    }
}

void ScreenshotsTest::printsWhatItWrites()
{
    const QTemporaryDir directory;
    QStringList printed = Program::lines(takeScreenshots(directory.path()).output);
    printed.sort();
    QStringList expected;
    const QStringList names = pictureNames();
    for (const QString &name : names) {
        expected.append(directory.filePath(name));
    }
    QCOMPARE(printed, expected);
}

void ScreenshotsTest::drawsAtOtherScale_data()
{
    QTest::addColumn<QString>("variable");

    QTest::newRow("chosen by the user") << text("QT_SCALE_FACTOR=2");
    QTest::newRow("for the resolution") << text("QT_FONT_DPI=192");
}

void ScreenshotsTest::drawsAtOtherScale()
{
    QFETCH(QString, variable);

    const QTemporaryDir plain;
    const QTemporaryDir scaled;
    QCOMPARE(takeScreenshots(plain.path()).status, 0);
    QCOMPARE(takeScreenshots(scaled.path(), {variable}).status, 0);
    const QString name = text("page-users.png");
    QCOMPARE(QImage(scaled.filePath(name)).size(), 2 * QImage(plain.filePath(name)).size());
}

void ScreenshotsTest::mirrorsForLanguagesReadFromTheRight()
{
    // The menu bar takes about a third of the uppermost lines.
    const auto emptySides = [](const char *language) {
        const QTemporaryDir directory;
        const QString variable = text("LANGUAGE=") + text(language);
        if (takeScreenshots(directory.path(), {variable}).status != 0) {
            return QStringLiteral("no pictures");
        }
        const QImage picture(directory.filePath(text("page-users.png")));
        const QSize half(picture.width() / 2, 16);
        const bool left = colours(picture.copy(QRect(QPoint(0, 0), half))) <= 1;
        const bool right = colours(picture.copy(QRect(QPoint(half.width(), 0), half))) <= 1;
        return QStringLiteral("left %1, right %2").arg(left).arg(right);
    };
    QCOMPARE(emptySides("de"), text("left 0, right 1"));
    QCOMPARE(emptySides("ar"), text("left 1, right 0"));
}

void ScreenshotsTest::drawsOnOtherPlatforms_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("variable");

    QTest::newRow("not there") << QStringList() << text("QT_QPA_PLATFORM=nonsense");
    QTest::newRow("chosen by an option") << QStringList({text("-platform"), text("minimal")}) << QString();
}

void ScreenshotsTest::drawsOnOtherPlatforms()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, variable);

    const QTemporaryDir directory;
    const Program::Result result =
        Program::run(Program::path(), arguments + QStringList{text("--screenshots"), directory.path()}, {}, {variable});
    QCOMPARE(result.status, 0);
    QCOMPARE(QDir(directory.path()).entryList(QDir::Files, QDir::Name), pictureNames());
}

void ScreenshotsTest::showsWhatIsThere()
{
    const QTemporaryDir before;
    const QTemporaryDir after;
    QCOMPARE(takeScreenshots(before.path()).status, 0);
    Sandbox::write(limitsPath(), "* soft core 0\n");
    QCOMPARE(takeScreenshots(after.path()).status, 0);
    for (const auto &name : {text("page-users.png"), text("page-groups.png"), text("page-limits.png")}) {
        QVERIFY2(withoutStatusBar(before.filePath(name)) != withoutStatusBar(after.filePath(name)), qPrintable(name));
    }
    const QString dialog = text("dialog-select-users.png");
    QCOMPARE(QImage(before.filePath(dialog)), QImage(after.filePath(dialog)));
}

void ScreenshotsTest::waitsForPictureOfUser()
{
    const QColor colour(0x12, 0xab, 0x34);
    QImage face(96, 96, QImage::Format_RGB32);
    face.fill(colour);
    const QTemporaryDir home;
    QVERIFY(face.save(home.filePath(text(".face")), "PNG"));
    Sandbox::setAccounts("ada:x:" + QByteArray::number(getuid()) + ":50::" + QFile::encodeName(home.path())
                             + ":/bin/sh\n",
                         "staff:x:50:\n");
    const QTemporaryDir directory;
    QCOMPARE(takeScreenshots(directory.path()).status, 0);
    QCOMPARE(pixels(QImage(directory.filePath(text("page-users.png"))), colour), 96 * 96);
}

void ScreenshotsTest::drawsLandscapeWithoutStockPictures()
{
    const QTemporaryDir directory;
    QCOMPARE(takeScreenshots(directory.path()).status, 0);
    const QImage dialog(directory.filePath(text("dialog-select-icon.png")));
    const QColor sun(0xff, 0xf4, 0xd0);
    const QColor hill(0x2f, 0x5d, 0x50);
    const QColor nearHill(0x24, 0x47, 0x3e);
    for (const QColor &colour : {sun, hill, nearHill}) {
        QVERIFY2(pixels(dialog, colour) > 1000, qPrintable(colour.name()));
    }
}

void ScreenshotsTest::leavesWindowStateAlone()
{
    const QTemporaryDir directory;
    const QTemporaryDir settings;
    QCOMPARE(takeScreenshots(directory.path(), {text("XDG_CONFIG_HOME=") + settings.path()}).status, 0);
    QVERIFY(QDir(settings.path()).isEmpty());
}

void ScreenshotsTest::reportsDirectoryThatCannotBeMade()
{
    const Program::Result result = takeScreenshots(text("/proc/pictures"));
    QCOMPARE(result.errors, QByteArray("ormel-users: Cannot create the directory '/proc/pictures'.\n"));
    QCOMPARE(result.status, 1);
}

void ScreenshotsTest::reportsFileThatCannotBeWritten()
{
    const QTemporaryDir directory;
    QVERIFY(QDir(directory.path()).mkdir(text("page-users.png")));
    const Program::Result result = takeScreenshots(directory.path());
    const QString file = directory.filePath(text("page-users.png"));
    QVERIFY(result.errors.contains(text("Cannot write '%1'").arg(file).toLocal8Bit()));
    QCOMPARE(result.status, 1);
}

void ScreenshotsTest::needsDirectory()
{
    const Program::Result result = Program::run({text("--screenshots")});
    QVERIFY(result.errors.contains("screenshots"));
    QCOMPARE(result.status, 2);
}

QTEST_GUILESS_MAIN(ScreenshotsTest)

#include "screenshotstest.moc"

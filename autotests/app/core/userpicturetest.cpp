/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "userpicture.h"

#include "eventloopdelay.h"
#include "hostilefaces.h"
#include "patience.h"
#include "peakmemory.h"
#include "picturechild.h"
#include "picturefiles.h"
#include "processortime.h"
#include "sandbox.h"

#include <UserInfo>

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
// Sanitizers take memory and time of their own.
#ifdef __SANITIZE_ADDRESS__
constexpr bool isSanitized = true;
constexpr qint64 mostMemory = 1024LL * 1024 * 1024;
#else
constexpr bool isSanitized = false;
constexpr qint64 mostMemory = 100LL * 1024 * 1024;
#endif

QString icons()
{
    return QStringLiteral("/var/lib/AccountsService/icons/");
}

QByteArray png(Qt::GlobalColor color)
{
    return PictureFiles::encoded(PictureFiles::plain({300, 200}, color), "png");
}

/** The peak memory of the child processes that have ended. */
qint64 memoryOfChildren()
{
    rusage usage = {};
    getrusage(RUSAGE_CHILDREN, &usage);
    return qint64(usage.ru_maxrss) * 1024;
}
}

class UserPictureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void findsFirstOfFiles();
    void findsPictureOfNameInUtf8();
    void findsPictureInHomeOfAnyBytes();
    void fitsPictureIntoSize_data();
    void fitsPictureIntoSize();
    void fitsPictureIntoPlace_data();
    void fitsPictureIntoPlace();
    void tellsThatThereIsNone();
    void tellsOnlyOfLastUser();
    void tellsNothingOnceCancelled();
    void withstandsHostileFaces_data();
    void withstandsHostileFaces();

private:
    QString inHome(const char *name) const
    {
        return m_home->filePath(QString::fromLatin1(name));
    }

    /** The account that runs this program, so that the files belong to the user. */
    PictureOwner user(const QByteArray &name = "ada") const
    {
        Sandbox::setAccounts(name + ":x:" + QByteArray::number(getuid()) + ":50::" + QFile::encodeName(m_home->path())
                                 + ":/bin/sh\n",
                             "staff:x:50:\n");
        const UserInfo user = UserInfo::getUser(QString::fromLatin1(name));
        return {user.name().toLatin1(), user.home().toLatin1(), user.uid()};
    }

    /** The picture that is found; also null when nothing is reported. */
    QImage find(const QSize &size = {96, 96})
    {
        UserPicture picture;
        QSignalSpy found(&picture, &UserPicture::found);
        picture.find(user(), size);
        return found.isValid() && found.wait(patience) ? found.first().first().value<QImage>() : QImage();
    }

    /** Writes a picture of 300x200 pixels in place; its path. */
    QString writtenPicture() const
    {
        Sandbox::write(inHome(".face"), png(Qt::red));
        return inHome(".face");
    }

    QScopedPointer<QTemporaryDir> m_home;
    QVector<HostileFace> m_faces = hostileFaces();
};

void UserPictureTest::init()
{
    Sandbox::clear(icons());
    m_home.reset(new QTemporaryDir);
}

void UserPictureTest::findsFirstOfFiles()
{
    const auto color = [this] { return find().pixelColor(40, 30); };
    QVERIFY(find().isNull());
    Sandbox::write(icons() + QLatin1String("ada"), png(Qt::blue));
    QCOMPARE(color(), QColor(Qt::blue));
    Sandbox::write(inHome(".face.icon"), png(Qt::green));
    QCOMPARE(color(), QColor(Qt::green));
    Sandbox::write(inHome(".face"), png(Qt::red));
    QCOMPARE(color(), QColor(Qt::red));
    Sandbox::write(inHome(".face"), "no picture");
    QCOMPARE(color(), QColor(Qt::green));
}

void UserPictureTest::findsPictureOfNameInUtf8()
{
    const QByteArray name = "j\xc3\xbcrg %41";
    Sandbox::write(icons() + QString::fromUtf8(name), png(Qt::blue));
    UserPicture picture;
    QSignalSpy found(&picture, &UserPicture::found);
    picture.find(user(name), {96, 96});
    QVERIFY(found.wait(patience));
    QVERIFY(!found.first().first().value<QImage>().isNull());
}

void UserPictureTest::findsPictureInHomeOfAnyBytes()
{
    const QByteArray home = QFile::encodeName(m_home->path()) + "/j\xfc %41\xc3\xbc";
    QCOMPARE(mkdir(home.constData(), 0700), 0);
    const QByteArray face = home + "/.face";
    QCOMPARE(rename(QFile::encodeName(writtenPicture()).constData(), face.constData()), 0);
    UserPicture picture;
    QSignalSpy found(&picture, &UserPicture::found);
    picture.find({"ada", home, getuid()}, {96, 96});
    QVERIFY(found.wait(patience));
    QVERIFY(!found.first().first().value<QImage>().isNull());
}

void UserPictureTest::fitsPictureIntoSize_data()
{
    QTest::addColumn<QSize>("original");
    QTest::addColumn<QSize>("expected");

    QTest::newRow("wide") << QSize(300, 200) << QSize(96, 64);
    QTest::newRow("high") << QSize(200, 300) << QSize(64, 96);
    QTest::newRow("small") << QSize(10, 10) << QSize(96, 96);
    if (!isSanitized) { // which may need more time than the process has
        QTest::newRow("large") << QSize(4096, 4096) << QSize(96, 96);
    }
}

void UserPictureTest::fitsPictureIntoSize()
{
    QFETCH(QSize, original);
    QFETCH(QSize, expected);

    for (const char *format : {"png", "jpg"}) {
        Sandbox::write(inHome(".face"), PictureFiles::encoded(PictureFiles::plain(original, Qt::white), format));
        const QImage picture = find();
        QCOMPARE(picture.size(), expected);
        QCOMPARE(picture.pixelColor(picture.rect().center()), QColor(Qt::white));
    }
}

void UserPictureTest::fitsPictureIntoPlace_data()
{
    QTest::addColumn<QSize>("place");
    QTest::addColumn<QSize>("expected");

    QTest::newRow("wide") << QSize(200, 40) << QSize(60, 40);
    QTest::newRow("high") << QSize(60, 200) << QSize(60, 40);
}

void UserPictureTest::fitsPictureIntoPlace()
{
    QFETCH(QSize, place);
    QFETCH(QSize, expected);

    writtenPicture();
    QCOMPARE(find(place).size(), expected);
}

void UserPictureTest::tellsThatThereIsNone()
{
    UserPicture picture;
    const QSignalSpy found(&picture, &UserPicture::found);
    picture.find(user(), {96, 96});
    QTRY_COMPARE_WITH_TIMEOUT(found.count(), 1, patience);
    QVERIFY(found.first().first().value<QImage>().isNull());
}

void UserPictureTest::tellsOnlyOfLastUser()
{
    Sandbox::write(inHome(".face"), png(Qt::red));
    UserPicture picture;
    const QSignalSpy found(&picture, &UserPicture::found);
    picture.find(user(), {20, 20});
    picture.find(user(), {30, 30});
    QTRY_COMPARE_WITH_TIMEOUT(found.count(), 1, patience);
    QCOMPARE(found.first().first().value<QImage>().width(), 30);
    picture.find(user(), {40, 40});
    QTRY_COMPARE_WITH_TIMEOUT(found.count(), 2, patience);
    QCOMPARE(found.last().first().value<QImage>().width(), 40);
}

void UserPictureTest::tellsNothingOnceCancelled()
{
    Sandbox::write(inHome(".face"), png(Qt::red));
    UserPicture cancelled;
    const QSignalSpy found(&cancelled, &UserPicture::found);
    cancelled.find(user(), {96, 96});
    cancelled.cancel();
    QVERIFY(!find().isNull()); // which takes just as long
    QCOMPARE(found.count(), 0);
}

void UserPictureTest::withstandsHostileFaces_data()
{
    QTest::addColumn<int>("index");

    for (int i = 0; i < m_faces.size(); ++i) {
        QTest::newRow(qPrintable(m_faces.at(i).name)) << i;
    }
}

void UserPictureTest::withstandsHostileFaces()
{
    QFETCH(int, index);

    m_faces.at(index).make(inHome(".face"));
    // A process that had to be ended would take the other picture with it.
    Sandbox::write(inHome(".face.icon"), png(Qt::blue));
    const bool isEnded = m_faces.at(index).name == QLatin1String("JPEG of many scans");

    EventLoopDelay delay;
    PeakMemory::reset();
    const double before = processorSeconds(RUSAGE_CHILDREN);
    const QImage picture = find();
    QCOMPARE(picture.isNull(), isEnded);
    QVERIFY(isEnded || picture.pixelColor(40, 30) == QColor(Qt::blue) || picture.size() == QSize(96, 96));
    QVERIFY2(delay.longest() <= 300, qPrintable(QString::number(delay.longest())));
    QVERIFY(PeakMemory::bytes() < mostMemory);
    QVERIFY2(memoryOfChildren() < mostMemory, qPrintable(QString::number(memoryOfChildren())));
    QVERIFY(processorSeconds(RUSAGE_CHILDREN) - before < 3);
}

QTEST_GUILESS_MAIN(UserPictureTest)

#include "userpicturetest.moc"

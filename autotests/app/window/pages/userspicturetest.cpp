/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountstore.h"
#include "dialogparts.h"
#include "eventloopdelay.h"
#include "hostilefaces.h"
#include "icontheme.h"
#include "limitsfixtures.h"
#include "patience.h"
#include "peakmemory.h"
#include "picturefiles.h"
#include "recordview.h"
#include "sandbox.h"
#include "systemcalls.h"
#include "userspage.h"
#include "windowparts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <unistd.h>

// The picture of a user in the users page.

namespace
{
// The address sanitizer reads its options from the environment in each process.
#ifdef __SANITIZE_ADDRESS__
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif

void writePicture(const QString &path, Qt::GlobalColor color)
{
    Sandbox::write(path, PictureFiles::encoded(PictureFiles::plain({300, 200}, color), "png"));
}

/** A line of /etc/passwd for a user with the uid of this program. */
QByteArray user(const QByteArray &name, const QString &home)
{
    return name + ":x:" + QByteArray::number(getuid()) + ":50::" + QFile::encodeName(home) + ":/bin/sh\n";
}

/** The page and its first user, after everything was read. */
struct Page {
    Page()
    {
        page.resize(900, 600);
        page.show();
        read();
    }

    void read()
    {
        if (!readAccounts(store)) {
            qFatal("The accounts were not read");
        }
    }

    void select(const char *name) const
    {
        clickText(*view, QString::fromLatin1(name));
    }

    QPixmap shown() const
    {
        return label->pixmap(Qt::ReturnByValue);
    }

    /** The picture of the current user, which is shown after the details. */
    QPixmap picture() const
    {
        return QTest::qWaitFor([this] { return !shown().isNull(); }, patience) ? shown() : QPixmap();
    }

    QColor color() const
    {
        const QPixmap picture = this->picture();
        return picture.toImage().pixelColor(picture.rect().center());
    }

    AccountStore store;
    UsersPage page{&store};
    RecordView *view = page.list()->view();
    QLabel *label = part<QLabel>(page, "picture");
};
}

class UsersPictureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void showsOwnPicture();
    void showsPictureOfNameAndHomeInUtf8();
    void showsDetailsBeforePicture();
    void showsNoPictureOfNobody();
    void removesPictureWhenNobodyIsSelected();
    void showsIconInsteadOfStockPicture();
    void tellsSystemAccountsByIcon();
    void showsTextWithoutPictureAndIcon();
    void staysResponsive();
    void opensFacesOnly();

private:
    QString home(const char *name) const
    {
        QString home = m_homes->filePath(QString::fromUtf8(name));
        QDir().mkpath(home);
        return home;
    }

    /** Accounts with one of @p faces each, and one with a picture, the first of all. */
    void makeAccounts(const QVector<HostileFace> &faces) const;

    std::unique_ptr<QTemporaryDir> m_homes;
};

void UsersPictureTest::init()
{
    m_homes = std::make_unique<QTemporaryDir>();
    clearLimits();
    Sandbox::setAccounts(user("ada", home("ada")) + user("bob", home("bob"))
                             + "carl:x:1000:50::/nonexistent:/bin/sh\nnobody:x:65534:50::/nonexistent:/bin/sh\n",
                         "ormel-admin:x:27:\nstaff:x:50:\n");
}

void UsersPictureTest::makeAccounts(const QVector<HostileFace> &faces) const
{
    QByteArray passwd = user("ada", home("ada"));
    writePicture(home("ada") + QLatin1String("/.face"), Qt::blue);
    for (int i = 0; i < faces.size(); ++i) {
        const QByteArray name = "hostile" + QByteArray::number(i);
        const QString path = home(name.constData());
        faces.at(i).make(path + QLatin1String("/.face"));
        passwd += user(name, path);
    }
    Sandbox::setAccounts(passwd, "ormel-admin:x:27:\nstaff:x:50:\n");
}

void UsersPictureTest::showsOwnPicture()
{
    writePicture(home("ada") + QLatin1String("/.face.icon"), Qt::green);
    writePicture(home("bob") + QLatin1String("/.face"), Qt::red);
    Page page;
    page.select("ada");
    QCOMPARE(page.color(), QColor(Qt::green));
    QCOMPARE(page.picture().size() / page.picture().devicePixelRatio(), QSize(96, 64));
    page.select("bob");
    QCOMPARE(page.color(), QColor(Qt::red));

    writePicture(home("bob") + QLatin1String("/.face"), Qt::blue);
    page.read();
    QTRY_COMPARE_WITH_TIMEOUT(page.color(), QColor(Qt::blue), patience);
}

void UsersPictureTest::showsPictureOfNameAndHomeInUtf8()
{
    const QString inUtf8 = home("j\u00fcrg");
    Sandbox::clear(QStringLiteral("/var/lib/AccountsService/icons/"));
    Sandbox::setAccounts(user("j\xc3\xbcrg", inUtf8), "staff:x:50:\n");
    writePicture(QStringLiteral(u"/var/lib/AccountsService/icons/j\u00fcrg"), Qt::green);
    QCOMPARE(Page().color(), QColor(Qt::green));
    writePicture(inUtf8 + QLatin1String("/.face"), Qt::red);
    QCOMPARE(Page().color(), QColor(Qt::red));
}

void UsersPictureTest::showsDetailsBeforePicture()
{
    writePicture(home("ada") + QLatin1String("/.face"), Qt::red);
    writePicture(home("bob") + QLatin1String("/.face"), Qt::blue);
    Page page;
    page.select("ada");
    QCOMPARE(page.color(), QColor(Qt::red));
    page.select("bob");
    QCOMPARE(part<QLabel>(page.page, "title")->text(), QStringLiteral("bob"));
    QVERIFY(page.shown().isNull());
    QCOMPARE(page.color(), QColor(Qt::blue));
    page.select("ada");
    page.select("bob");
    page.select("ada");
    QVERIFY(page.shown().isNull());
    QCOMPARE(page.color(), QColor(Qt::red));
}

void UsersPictureTest::showsNoPictureOfNobody()
{
    writePicture(home("ada") + QLatin1String("/.face"), Qt::red);
    Page page;
    page.select("ada");
    QCOMPARE(page.color(), QColor(Qt::red));
    page.select("bob");
    page.select("ada");
    QTest::keyClicks(part<QLineEdit>(page.page, "searchField"), QStringLiteral("no such user"));
    QCOMPARE(part<QLabel>(page.page, "title")->text(), QStringLiteral("No user is selected"));
    QTest::qWait(200);
    QVERIFY(page.shown().isNull());
    QCOMPARE(page.label->text(), QString());
}

void UsersPictureTest::removesPictureWhenNobodyIsSelected()
{
    writePicture(home("ada") + QLatin1String("/.face"), Qt::red);
    Page page;
    page.select("ada");
    QCOMPARE(page.color(), QColor(Qt::red));
    // All at once: after the first letter, another user would be selected.
    part<QLineEdit>(page.page, "searchField")->setText(QStringLiteral("no such user"));
    QVERIFY(page.shown().isNull());
}

void UsersPictureTest::showsIconInsteadOfStockPicture()
{
    const IconTheme theme({QStringLiteral("user"), QStringLiteral("user-system")});
    Sandbox::clear(QStringLiteral("/usr/share/kiv/faces"));
    writePicture(QStringLiteral("/usr/share/kiv/faces/stock.png"), Qt::red);
    Page page;
    page.select("carl");
    QVERIFY(!page.picture().isNull());
    QVERIFY(page.color() != QColor(Qt::red));
    QCOMPARE(page.label->accessibleName(), QStringLiteral("No picture"));
}

void UsersPictureTest::tellsSystemAccountsByIcon()
{
    const IconTheme theme({QStringLiteral("user-system")});
    Page page;
    page.select("nobody");
    QVERIFY(!page.picture().isNull());
    page.select("carl");
    QTRY_COMPARE_WITH_TIMEOUT(page.label->text(), QStringLiteral("No picture"), patience);
    QVERIFY(page.shown().isNull());
}

void UsersPictureTest::showsTextWithoutPictureAndIcon()
{
    const IconTheme theme({});
    Page page;
    page.select("carl");
    QTRY_COMPARE_WITH_TIMEOUT(page.label->text(), QStringLiteral("No picture"), patience);
}

void UsersPictureTest::staysResponsive()
{
    const IconTheme theme({QStringLiteral("user"), QStringLiteral("user-system")});
    const QVector<HostileFace> faces = hostileFaces();
    makeAccounts(faces);
    Page page;
    page.select("ada");
    QCOMPARE(page.color(), QColor(Qt::blue));
    PeakMemory::reset();
    const qint64 before = PeakMemory::bytes(); // a display takes much of its own
    EventLoopDelay delay;
    page.view->setFocus();
    for (int i = 0; i < faces.size(); ++i) {
        QTest::keyClick(page.view, Qt::Key_Down);
        QVERIFY(page.shown().isNull());
        QVERIFY2(!page.picture().isNull(), qPrintable(part<QLabel>(page.page, "title")->text()));
        QCOMPARE(page.label->accessibleName(), QStringLiteral("No picture"));
    }
    QVERIFY2(delay.longest() <= 300, qPrintable(QString::number(delay.longest())));
    const qint64 taken = PeakMemory::bytes() - before;
    QVERIFY2(taken < 20LL * 1024 * 1024, qPrintable(QString::number(taken)));
}

void UsersPictureTest::opensFacesOnly()
{
    constexpr int count = 14; // those that refer to something else
    makeAccounts(hostileFaces().mid(0, count));
    int looks = 0;
    QStringList opened;
    const QVector<SystemCall> calls = systemCallsOf(QStringLiteral("tracedfaces"), {});
    for (const SystemCall &call : calls) {
        looks += int(call.opensForReading() && call.path() == QLatin1String(".face"));
        const QString path = call.openedPath();
        const bool isOfSomebody = path.startsWith(m_homes->path()) || path.startsWith(hostileTarget());
        const bool isFace = path.endsWith(QLatin1String("/.face")) || path.endsWith(QLatin1String("/.face.icon"));
        const bool isEnvironment = !isSanitized && path.endsWith(QLatin1String("/environ"));
        if ((isOfSomebody && !isFace && !QFileInfo(path).isDir()) || path == QLatin1String("/dev/zero")
            || isEnvironment) {
            opened.append(path);
        }
    }
    QCOMPARE(looks, count + 1);
    QCOMPARE(opened.join(QLatin1Char(' ')), QString());
}

QTEST_MAIN(UsersPictureTest)

#include "userspicturetest.moc"

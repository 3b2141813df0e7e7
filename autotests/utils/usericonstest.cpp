/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "messagerecorder.h"
#include "randomscript.h"
#include "sandbox.h"
#include "texts.h"
#include "usericonfixtures.h"

#include <UserUtils>

#include <QDir>
#include <QFile>
#include <QTest>

class UserIconsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isInFixedDirectory();

    void isNullWithoutDirectory();
    void isNullWithoutPictures();
    void isNullWhenPathIsFile();
    void countsOwnFilesTwiceAndThoseOfParent();
    void countsFilesOfParentAlone();
    void listsOwnFilesFirst();
    void listsSubdirectoriesInTheirOrder();
    void listsWithoutRegardToCase();
    void looksOneLevelDeep();
    void takesAnyFileThatIsNotHidden();
    void followsLinks();
    void passesOverUnreadableDirectory();
    void listsAgainOnEachCall();

    void picksWithWeights();
    void drawsOnceFromGlobalGenerator();
    void returnsAbsolutePathInAnyDirectory();
};

void UserIconsTest::init()
{
    Sandbox::clear(inKiv(""));
}

void UserIconsTest::isInFixedDirectory()
{
    qputenv("XDG_DATA_DIRS", "/tmp");
    QCOMPARE(UserUtils::userIconPath(), QStringLiteral("/usr/share/kiv/faces"));
}

void UserIconsTest::isNullWithoutDirectory()
{
    make({inKiv("other.png"), inKiv("sub/other.png")});
    MessageRecorder recorder;
    QVERIFY(UserUtils::getRandomUserIcon(false).isNull());
    QVERIFY(UserUtils::getRandomUserIcon(true).isNull());
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserIconsTest::isNullWithoutPictures()
{
    QVERIFY(QDir().mkpath(inFaces("sub/deep")));
    QVERIFY(UserUtils::getRandomUserIcon(false).isNull());
    QVERIFY(UserUtils::getRandomUserIcon(true).isNull());
}

void UserIconsTest::isNullWhenPathIsFile()
{
    make({inKiv("faces")});
    QVERIFY(UserUtils::getRandomUserIcon(false).isNull());
    QVERIFY(UserUtils::getRandomUserIcon(true).isNull());
}

void UserIconsTest::countsOwnFilesTwiceAndThoseOfParent()
{
    makeFaces({"a.png", "one/b.png", "two/c.png"});
    make({inKiv("d.png"), inKiv("icons/e.png")});
    QCOMPARE(sorted(picks(5)),
             QStringList({
                 inKiv("d.png"),
                 inFaces("a.png"),
                 inFaces("a.png"),
                 inFaces("one/b.png"),
                 inFaces("two/c.png"),
             }));
}

void UserIconsTest::countsFilesOfParentAlone()
{
    makeFaces({});
    make({inKiv("a.png"), inKiv("b.png")});
    QCOMPARE(sorted(picks(2)), QStringList({inKiv("a.png"), inKiv("b.png")}));
    QCOMPARE(sorted(picks(2, true)), QStringList({inKiv("a.png"), inKiv("b.png")}));
}

void UserIconsTest::listsOwnFilesFirst()
{
    makeFaces({"a.png", "b.png", "sub/c.png"});
    const QStringList own = listed("");
    QCOMPARE(own.size(), 2);
    const QStringList icons = picks(5);
    QCOMPARE(icons.at(0), inFaces("") + own.at(0));
    QCOMPARE(icons.at(1), inFaces("") + own.at(1));
    QCOMPARE(icons.count(inFaces("") + own.at(0)), 2);
    QCOMPARE(icons.count(inFaces("") + own.at(1)), 2);
}

void UserIconsTest::listsSubdirectoriesInTheirOrder()
{
    makeFaces({"two/a.png", "three/a.png", "one/a.png"});
    QStringList expected;
    const QStringList subdirectories = listed("", QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &subdirectory : subdirectories) {
        expected.append(inFaces("") + subdirectory + QLatin1String("/a.png"));
    }
    QCOMPARE(picks(3), expected);
}

void UserIconsTest::listsWithoutRegardToCase()
{
    makeFaces({"B/D.png", "B/c.png", "a/F.png", "a/e.png"});
    QCOMPARE(picks(4), QStringList({inFaces("a/e.png"), inFaces("a/F.png"), inFaces("B/c.png"), inFaces("B/D.png")}));
}

void UserIconsTest::looksOneLevelDeep()
{
    makeFaces({"sub/a.png", "sub/deep/b.png"});
    QCOMPARE(picks(1), QStringList(inFaces("sub/a.png")));
}

void UserIconsTest::takesAnyFileThatIsNotHidden()
{
    makeFaces({"sub/a", "sub/b.txt", "sub/c d.PNG", "sub/.hidden.png", ".hidden/d.png"});
    QCOMPARE(sorted(picks(3)),
             QStringList({
                 inFaces("sub/a"),
                 inFaces("sub/b.txt"),
                 inFaces("sub/c d.PNG"),
             }));
}

void UserIconsTest::followsLinks()
{
    makeFaces({});
    make({inKiv("icons/a.png")});
    QVERIFY(QFile::link(inKiv("icons"), inFaces("linked")));
    QVERIFY(QFile::link(QStringLiteral("nowhere"), inFaces("broken.png")));
    QCOMPARE(picks(1), QStringList(inFaces("linked/a.png")));
}

void UserIconsTest::passesOverUnreadableDirectory()
{
    makeFaces({"open/a.png", "closed/b.png"});
    const QString closed = inFaces("closed");
    QVERIFY(QFile::setPermissions(closed, {}));
    MessageRecorder recorder;
    const QStringList icons = picks(1);
    QVERIFY(QFile::setPermissions(closed, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QCOMPARE(icons, QStringList(inFaces("open/a.png")));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserIconsTest::listsAgainOnEachCall()
{
    makeFaces({"sub/a.png"});
    QCOMPARE(UserUtils::getRandomUserIcon(false), inFaces("sub/a.png"));
    Sandbox::clear(inFaces(""));
    makeFaces({"sub/b.png"});
    QCOMPARE(UserUtils::getRandomUserIcon(false), inFaces("sub/b.png"));
}

void UserIconsTest::picksWithWeights()
{
    makeFaces({"a.png", "sub/b.png"});
    make({inKiv("c.png")});
    constexpr int draws = 20000;
    QHash<QString, int> counts;
    for (int i = 0; i < draws; ++i) {
        ++counts[UserUtils::getRandomUserIcon(false)];
    }

    const QHash<QString, int> weights{
        {inFaces("a.png"), 2},
        {inFaces("sub/b.png"), 1},
        {inKiv("c.png"), 1},
    };
    QCOMPARE(counts.size(), weights.size());
    double chiSquare = 0;
    for (auto weight = weights.begin(); weight != weights.end(); ++weight) {
        const double expected = draws * weight.value() / 4.0;
        const double difference = counts.value(weight.key()) - expected;
        chiSquare += difference * difference / expected;
    }
    // With two degrees of freedom these weights exceed this once in 10^9 runs.
    QVERIFY2(chiSquare < 41.5, QByteArray::number(chiSquare).constData());
}

void UserIconsTest::drawsOnceFromGlobalGenerator()
{
    makeFaces({"sub/a.png"});
    const RandomScript random;
    UserUtils::getRandomUserIcon(false);
    QCOMPARE(random.globalDraws(), 1);
    UserUtils::getRandomUserIcon(true);
    QCOMPARE(random.globalDraws(), 2);
    QCOMPARE(random.systemDraws(), 0);
    QCOMPARE(random.otherDraws(), 0);

    makeFaces({"default-user-red.png"});
    UserUtils::getRandomUserIcon(true);
    QCOMPARE(random.globalDraws(), 2);
}

void UserIconsTest::returnsAbsolutePathInAnyDirectory()
{
    makeFaces({"sub/a.png"});
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(inFaces("")));
    const QString icon = UserUtils::getRandomUserIcon(false);
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(icon, inFaces("sub/a.png"));
}

QTEST_GUILESS_MAIN(UserIconsTest)

#include "usericonstest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "messagerecorder.h"
#include "randomscript.h"
#include "sandbox.h"

#include <UserUtils>

#include <QDir>
#include <QFile>
#include <QTest>

#include <initializer_list>

namespace
{
QString inKiv(const char *name)
{
    return QStringLiteral("/usr/share/kiv/%1").arg(QLatin1String(name));
}

QString inFaces(const char *name)
{
    return QStringLiteral("/usr/share/kiv/faces/%1").arg(QLatin1String(name));
}

/** Makes empty files, and the directories they are in. */
void make(const QStringList &paths)
{
    for (const QString &path : paths) {
        QDir().mkpath(QFileInfo(path).path());
        Sandbox::write(path, "");
    }
}

void makeFaces(std::initializer_list<const char *> names)
{
    QDir().mkpath(UserUtils::userIconPath());
    for (const char *name : names) {
        make({inFaces(name)});
    }
}

/** The lowest and the highest draw for which the pick is @p index of @p count. */
quint32 lowestDraw(int index, int count)
{
    return quint32(((quint64(index) << 32) + quint64(count) - 1) / quint64(count));
}

quint32 highestDraw(int index, int count)
{
    return quint32(((quint64(index + 1) << 32) - 1) / quint64(count));
}

/** The pictures picked for each index of @p count candidates. */
QStringList picks(int count, bool preferDefault = false)
{
    QStringList names;
    for (int i = 0; i < count; ++i) {
        const RandomScript random({lowestDraw(i, count), highestDraw(i, count)});
        const QString icon = UserUtils::getRandomUserIcon(preferDefault);
        if (UserUtils::getRandomUserIcon(preferDefault) != icon) {
            return {QStringLiteral("not %1 candidates").arg(count)};
        }
        names.append(icon);
    }
    return names;
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

/** The names in @p directory in the order in which the toolkit lists them. */
QStringList listed(const char *directory, QDir::Filters filters = QDir::Files)
{
    return QDir(inFaces(directory)).entryList(filters, QDir::NoSort);
}
}

class UserIconsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void isInFixedDirectory();

    void isNullWithoutDirectory();
    void isNullWithoutPictures();
    void isNullWhenPathIsFile();
    void countsOwnFilesTwiceAndThoseOfParent();
    void countsFilesOfParentAlone();
    void listsOwnFilesFirst();
    void listsSubdirectoriesInTheirOrder();
    void looksOneLevelDeep();
    void takesAnyFileThatIsNotHidden();
    void followsLinks();
    void passesOverUnreadableDirectory();
    void listsAgainOnEachCall();

    void picksWithWeights();
    void drawsOnceFromGlobalGenerator();
    void returnsAbsolutePathInAnyDirectory();

    void prefersDefaultInSubdirectory();
    void prefersFirstDefault();
    void prefersOwnDefaultToThatOfParent();
    void prefersFilesThatBeginWithDefaultNameOnly_data();
    void prefersFilesThatBeginWithDefaultNameOnly();

    void looksAtNamesOfFilesOnly();
    void returnsPathOfLink();

    void avoidsDefault();
    void avoidsNameAnywhere_data();
    void avoidsNameAnywhere();
    void movesFromLastToFirst();
    void movesOnceOnly();
    void returnsDefaultWhenItIsTheOnlyOne();
    void returnsOtherDefaultWhenThereAreOnlySuch();
    void avoidsOtherNamesThatContainItWhenPreferring();
};

void UserIconsTest::init()
{
    Sandbox::clear(inKiv(""));
}

void UserIconsTest::cleanup()
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

void UserIconsTest::prefersDefaultInSubdirectory()
{
    makeFaces({"a.png", "b.png", "sub/default-user-red.png"});
    const QString icon = inFaces("sub/default-user-red.png");
    for (int i = 0; i < 50; ++i) {
        QCOMPARE(UserUtils::getRandomUserIcon(true), icon);
    }
}

void UserIconsTest::prefersFirstDefault()
{
    makeFaces({"default-user-red.svg", "default-user-red.png", "sub/default-user-red."});
    QCOMPARE(UserUtils::getRandomUserIcon(true), inFaces("") + listed("").at(0));
}

void UserIconsTest::prefersOwnDefaultToThatOfParent()
{
    makeFaces({"default-user-red.png"});
    make({inKiv("default-user-red.jpg")});
    QCOMPARE(UserUtils::getRandomUserIcon(true), inFaces("default-user-red.png"));

    Sandbox::clear(inFaces(""));
    QCOMPARE(UserUtils::getRandomUserIcon(true), inKiv("default-user-red.jpg"));
}

void UserIconsTest::prefersFilesThatBeginWithDefaultNameOnly_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("preferred");

    QTest::newRow("default-user-red.png") << QStringLiteral("default-user-red.png") << true;
    QTest::newRow("default-user-red.") << QStringLiteral("default-user-red.") << true;
    QTest::newRow("default-user-red.old.png") << QStringLiteral("default-user-red.old.png") << true;
    QTest::newRow("default-user-red") << QStringLiteral("default-user-red") << false;
    QTest::newRow("default-user-red-png") << QStringLiteral("default-user-red-png") << false;
    QTest::newRow("Default-user-red.png") << QStringLiteral("Default-user-red.png") << false;
    QTest::newRow("default-user-RED.png") << QStringLiteral("default-user-RED.png") << false;
    QTest::newRow("my-default-user-red.png") << QStringLiteral("my-default-user-red.png") << false;
}

void UserIconsTest::prefersFilesThatBeginWithDefaultNameOnly()
{
    QFETCH(QString, name);
    QFETCH(bool, preferred);

    makeFaces({"sub/other.png"});
    make({inFaces("sub/") + name});
    const RandomScript random;
    const QString icon = UserUtils::getRandomUserIcon(true);
    QCOMPARE(random.globalDraws(), preferred ? 0 : 1);
    QVERIFY(!preferred || icon == inFaces("sub/") + name);
}

void UserIconsTest::looksAtNamesOfFilesOnly()
{
    makeFaces({"default-user-red.d/one.png", "default-user-red.d/two.png"});
    QStringList expected;
    const QStringList names = listed("default-user-red.d");
    for (const QString &name : names) {
        expected.append(inFaces("default-user-red.d/") + name);
    }
    QCOMPARE(picks(2), expected);
    QCOMPARE(picks(2, true), expected);
}

void UserIconsTest::returnsPathOfLink()
{
    makeFaces({});
    make({inKiv("icons/red.png")});
    const QString link = inFaces("default-user-red.png");
    QVERIFY(QFile::link(inKiv("icons/red.png"), link));
    QCOMPARE(UserUtils::getRandomUserIcon(true), link);
    QCOMPARE(picks(2), QStringList({link, link}));
}

void UserIconsTest::avoidsDefault()
{
    makeFaces({"sub/default-user-red.png", "sub/other.png"});
    const QString other = inFaces("sub/other.png");
    QCOMPARE(picks(2), QStringList({other, other}));
}

void UserIconsTest::avoidsNameAnywhere_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("avoided");

    QTest::newRow("default-user-red.png") << QStringLiteral("default-user-red.png") << true;
    QTest::newRow("my-default-user-red.png") << QStringLiteral("my-default-user-red.png") << true;
    QTest::newRow("my-default-user-red.") << QStringLiteral("my-default-user-red.") << true;
    QTest::newRow("default-user-red") << QStringLiteral("default-user-red") << false;
    QTest::newRow("Default-user-red.png") << QStringLiteral("Default-user-red.png") << false;
}

void UserIconsTest::avoidsNameAnywhere()
{
    QFETCH(QString, name);
    QFETCH(bool, avoided);

    makeFaces({"sub/other.png"});
    make({inFaces("sub/") + name});
    QCOMPARE(picks(2).count(inFaces("sub/") + name), avoided ? 0 : 1);
}

void UserIconsTest::movesFromLastToFirst()
{
    makeFaces({"sub/a.png", "sub/b.png", "sub/x-default-user-red.png"});
    const QStringList names = listed("sub");
    const int at = names.indexOf(QStringLiteral("x-default-user-red.png"));
    QCOMPARE(picks(3).at(at), inFaces("sub/") + names.at((at + 1) % 3));
}

void UserIconsTest::movesOnceOnly()
{
    makeFaces({"sub/default-user-red.1", "sub/default-user-red.2", "sub/other.png"});
    const QStringList names = listed("sub");
    QStringList expected;
    for (int i = 0; i < 3; ++i) {
        const bool isDefault = names.at(i).startsWith(QLatin1String("default"));
        expected.append(inFaces("sub/") + names.at(isDefault ? (i + 1) % 3 : i));
    }
    QCOMPARE(picks(3), expected);
    QCOMPARE(expected.count(inFaces("sub/other.png")), 2);
}

void UserIconsTest::returnsDefaultWhenItIsTheOnlyOne()
{
    makeFaces({"sub/default-user-red.png"});
    QCOMPARE(picks(1), QStringList(inFaces("sub/default-user-red.png")));
}

void UserIconsTest::returnsOtherDefaultWhenThereAreOnlySuch()
{
    makeFaces({"sub/default-user-red.1", "sub/default-user-red.2"});
    const QStringList names = listed("sub");
    QCOMPARE(picks(2),
             QStringList({
                 inFaces("sub/") + names.at(1),
                 inFaces("sub/") + names.at(0),
             }));
}

void UserIconsTest::avoidsOtherNamesThatContainItWhenPreferring()
{
    // Not preferred, since its name does not begin so, and then avoided.
    makeFaces({"sub/my-default-user-red.png", "sub/other.png"});
    const QString other = inFaces("sub/other.png");
    QCOMPARE(picks(2, true), QStringList({other, other}));
}

QTEST_GUILESS_MAIN(UserIconsTest)

#include "usericonstest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "idrange_p.h"

#include <QTest>

namespace
{
QString shown(const IdRange &ids)
{
    return ids.first + QLatin1Char(' ') + ids.last;
}

IdRange range(const char *first, const char *last)
{
    return {QString::fromLatin1(first), QString::fromLatin1(last)};
}

QByteArray rowName(const char *domain)
{
    return QByteArray(domain).replace('\n', "\\n");
}

constexpr uint highest = 4294967295U;
}

class IdRangeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsEnds_data();
    void findsEnds();
    void holdsIds_data();
    void holdsIds();
    void explainsIds_data();
    void explainsIds();
};

void IdRangeTest::findsEnds_data()
{
    QTest::addColumn<QString>("domain");
    QTest::addColumn<QString>("ends");

    const auto addDomain = [](const char *domain, const char *ends) {
        QTest::newRow(rowName(domain).constData()) << QString::fromLatin1(domain) << QString::fromLatin1(ends);
    };
    addDomain("//://", "// //");
    addDomain("//d://", "//d //");
    addDomain("//://ddd", "// //ddd");
    addDomain("//dd://d", "//dd //d");
    addDomain("//://x", "// //");
    addDomain("//:///", "// //");
    addDomain("//://dx:", "// //d");
    addDomain("//://\n", "// //");

    const char *const others[] = {
        "",      "*",    "alice",  "@",      ":",      ":0",      "1000:",    "1000:2000", "@1:2",    "d:d",  "//",
        "//:",   "://",  "/:/",    "//:/",   "/://",   "//d",     "//d:d",    "//5:6",     "//x://",  "///:", "///:/",
        "//D:/", "//d:", " //://", "@//://", "%//://", "\n//://", "//x//://", "//\n://",   "\\d:\\d",
    };
    for (const char *other : others) {
        QTest::addRow("other: '%s'", rowName(other).constData()) << QString::fromLatin1(other) << QStringLiteral(" ");
    }
}

void IdRangeTest::findsEnds()
{
    QFETCH(QString, domain);
    QFETCH(QString, ends);

    QCOMPARE(shown(userIds(domain)), ends);
    QCOMPARE(shown(groupIds(QLatin1Char('@') + domain)), ends);
    QCOMPARE(shown(userIds(QLatin1Char('@') + domain)), QStringLiteral(" "));
}

void IdRangeTest::holdsIds_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("last");
    QTest::addColumn<uint>("id");
    QTest::addColumn<bool>("isId");
    QTest::addColumn<bool>("contains");

    const auto addCase = [](const char *first, const char *last, uint id, bool isId, bool contains) {
        QTest::addRow("%u in '%s:%s'", id, first, last)
            << QString::fromLatin1(first) << QString::fromLatin1(last) << id << isId << contains;
    };
    addCase("", "", 0, false, false);
    addCase("", "", 5, false, false);
    addCase("", "5", 5, true, false);
    addCase("", "5", 4, false, false);
    addCase("", "4294967295", highest, true, false);
    addCase("", "//", 0, true, false);
    addCase("", "//", 1, false, false);
    addCase("5", "", 5, false, true);
    addCase("5", "", highest, false, true);
    addCase("5", "", 4, false, false);
    addCase("//", "", 0, false, true);
    addCase("//", "", 5, false, true);
    addCase("5", "7", 4, false, false);
    addCase("5", "7", 5, false, true);
    addCase("5", "7", 7, false, true);
    addCase("5", "7", 8, false, false);
    addCase("7", "5", 6, false, false);
    addCase("5", "5", 5, false, true);
    addCase("//", "//", 0, false, true);
    addCase("//d", "//dd", 0, false, true);
    addCase("//", "//", 1, false, false);
    addCase("//", "7", 7, false, true);
    addCase("0", "4294967296", 1, false, false);
}

void IdRangeTest::holdsIds()
{
    QFETCH(QString, first);
    QFETCH(QString, last);
    QFETCH(uint, id);
    QFETCH(bool, isId);
    QFETCH(bool, contains);

    const IdRange ids{first, last};
    QCOMPARE(ids.isId(id), isId);
    QCOMPARE(ids.contains(id), contains);
}

void IdRangeTest::explainsIds_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("users");
    QTest::addColumn<QString>("groups");

    const QString none;
    const QString five = QStringLiteral("5");
    const QString thousand = QStringLiteral("1000");
    QTest::newRow("one id") << none << five << QStringLiteral("User with UID equal to 5")
                            << QStringLiteral("Group with GID equal to 5");
    QTest::newRow("no upper end") << thousand << none << QStringLiteral("Users with UID greater than or equal to 1000")
                                  << QStringLiteral("Groups with GID greater than or equal to 1000");
    QTest::newRow("range") << five << thousand << QStringLiteral("User UID range from 5 to 1000")
                           << QStringLiteral("Group GID range from 5 to 1000");
    QTest::newRow("placeholders") << QStringLiteral("%2") << QStringLiteral("%1")
                                  << QStringLiteral("User UID range from %2 to %1")
                                  << QStringLiteral("Group GID range from %2 to %1");
}

void IdRangeTest::explainsIds()
{
    QFETCH(QString, first);
    QFETCH(QString, last);
    QFETCH(QString, users);
    QFETCH(QString, groups);

    QCOMPARE(userIdsToolTip({first, last}), users);
    QCOMPARE(groupIdsToolTip({first, last}), groups);
    QVERIFY(userIdsToolTip(range("", "")).isNull());
    QVERIFY(groupIdsToolTip(range("", "")).isNull());
}

QTEST_GUILESS_MAIN(IdRangeTest)

#include "idrangetest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "describe.h"
#include "limitsmap.h"

#include <QFile>
#include <QTest>

#include <dlfcn.h>
#include <elf.h>

/**
 * Programs access the catalogue of limits, which is data of the library, by its address. A program that is
 * compiled as Qt demands finds it in the library. A program that is compiled without -fPIC gets a copy, which
 * the library then uses as well.
 */
class LimitsMapTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isPositionIndependent();
    void standsWhereItShould();
    void isTheOneOfTheLibrary();
};

void LimitsMapTest::isPositionIndependent()
{
    QFile program(QCoreApplication::applicationFilePath());
    QVERIFY(program.open(QIODevice::ReadOnly));
    Elf64_Ehdr header;
    QCOMPARE(program.read(reinterpret_cast<char *>(&header), sizeof header), qint64(sizeof header));
    QCOMPARE(header.e_type, Elf64_Half(ET_DYN));
}

void LimitsMapTest::standsWhereItShould()
{
    Dl_info place = {};
    QVERIFY(dladdr(&limitsMap(), &place));
    QCOMPARE(QFileInfo(QFile::decodeName(place.dli_fname)).completeBaseName(), QStringLiteral(PLACE));
}

void LimitsMapTest::isTheOneOfTheLibrary()
{
    QCOMPARE(&limitsMap(), &LimitsParser::m_fieldDescriptionsMap);
    QCOMPARE(limitsMap().keys(), LimitsParser::availableItems());
    QVERIFY(!limitsMap().isEmpty());
    for (auto entry = limitsMap().cbegin(); entry != limitsMap().cend(); ++entry) {
        QCOMPARE(describe(LimitsParser::fieldDescriptor(entry.key())), describe(*entry));
    }
}

QTEST_GUILESS_MAIN(LimitsMapTest)
#include "maptest.moc"

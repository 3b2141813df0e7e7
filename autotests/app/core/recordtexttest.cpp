/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "recordtext.h"

#include <QTest>

namespace
{
/** The text that the library returns for the bytes of a file. */
QString record(const char *bytes)
{
    return QString::fromLatin1(bytes);
}
}

class RecordTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decodes_data();
    void decodes();
    void decodesLists();
    void findsRecordsOfText_data();
    void findsRecordsOfText();
};

void RecordTextTest::decodes_data()
{
    QTest::addColumn<QString>("record");
    QTest::addColumn<QString>("text");

    QTest::newRow("null") << QString() << QString();
    QTest::newRow("empty") << QString(QLatin1String("")) << QString(QLatin1String(""));
    QTest::newRow("ASCII") << record("juerg\x7f") << record("juerg\x7f");
    QTest::newRow("UTF-8") << record("j\xc3\xbcrg") << QStringLiteral(u"j\u00fcrg");
    QTest::newRow("four bytes") << record("\xf0\x9f\x98\x80") << QStringLiteral(u"\U0001F600");
    QTest::newRow("replacement character") << record("\xef\xbf\xbd") << QStringLiteral(u"\ufffd");
    QTest::newRow("Latin-1") << record("j\xfcrg") << QStringLiteral(u"j\u00fcrg");
    QTest::newRow("both") << record("j\xc3\xbcrg \xfc") << record("j\xc3\xbcrg \xfc");
    QTest::newRow("cut short") << record("j\xc3") << record("j\xc3");
    QTest::newRow("longer than needed") << record("\xc0\xaf") << record("\xc0\xaf");
    QTest::newRow("surrogate") << record("\xed\xa0\x80") << record("\xed\xa0\x80");
    QTest::newRow("not of a record") << QStringLiteral(u"\u0416\u00c3\u00bc") << QStringLiteral(u"\u0416\u00c3\u00bc");
}

void RecordTextTest::decodes()
{
    QFETCH(QString, record);
    QFETCH(QString, text);

    QCOMPARE(RecordText::decode(record), text);
    QCOMPARE(RecordText::decode(record).isNull(), record.isNull());
    QVERIFY(RecordText::encode(text).contains(record) || text == QStringLiteral(u"\u0416\u00c3\u00bc"));
}

void RecordTextTest::decodesLists()
{
    const QStringList records{QStringLiteral("root"), record("j\xc3\xbcrg")};
    QCOMPARE(RecordText::decode(records), QStringList({QStringLiteral("root"), QStringLiteral(u"j\u00fcrg")}));
}

void RecordTextTest::findsRecordsOfText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("records");

    QTest::newRow("ASCII") << QStringLiteral("root") << QStringList{QStringLiteral("root")};
    QTest::newRow("empty") << QString() << QStringList{QString()};
    QTest::newRow("umlaut") << QStringLiteral(u"j\u00fcrg") << QStringList{record("j\xc3\xbcrg"), record("j\xfcrg")};
    QTest::newRow("Cyrillic") << QStringLiteral(u"\u0416") << QStringList{record("\xd0\x96")};
    QTest::newRow("last of Latin-1") << QStringLiteral(u"\u00ff") << QStringList{record("\xc3\xbf"), record("\xff")};
}

void RecordTextTest::findsRecordsOfText()
{
    QFETCH(QString, text);
    QFETCH(QStringList, records);

    QCOMPARE(RecordText::encode(text), records);
}

QTEST_GUILESS_MAIN(RecordTextTest)

#include "recordtexttest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "visibletext.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

namespace
{
QString character(uint codePoint)
{
    return codePoint > 0xffff ? QString::fromUcs4(&codePoint, 1) : QString(QChar(codePoint));
}

QString escaped(uint codePoint)
{
    QString result;
    const QString text = character(codePoint);
    for (const QChar unit : text) {
        result += QStringLiteral("\\u%1").arg(unit.unicode(), 4, 16, QLatin1Char('0'));
    }
    return result;
}
}

class VisibleTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void replacesInvisibleCharacters_data();
    void replacesInvisibleCharacters();
    void keepsVisibleText_data();
    void keepsVisibleText();
    void replacesInLongText();
    void escapesInvisibleCharactersInJson_data();
    void escapesInvisibleCharactersInJson();
    void keepsLayoutOfJson();
    void isolatesRightToLeftText();
    void isolatesRareScripts();
    void doesNotIsolateLeftToRightText();
};

void VisibleTextTest::replacesInvisibleCharacters_data()
{
    QTest::addColumn<uint>("codePoint");
    QTest::addColumn<uint>("sign");

    QTest::newRow("null") << 0x00U << 0x2400U;
    QTest::newRow("bell") << 0x07U << 0x2407U;
    QTest::newRow("tab") << 0x09U << 0x2409U;
    QTest::newRow("line feed") << 0x0aU << 0x240aU;
    QTest::newRow("carriage return") << 0x0dU << 0x240dU;
    QTest::newRow("escape") << 0x1bU << 0x241bU;
    QTest::newRow("unit separator") << 0x1fU << 0x241fU;
    QTest::newRow("delete") << 0x7fU << 0x2421U;
    for (const uint codePoint :
         {0x80,   0x85,   0x9b,   0x9f,   0xad,   0x61c,  0x200b, 0x200e, 0x200f, 0x2028,  0x2029,  0x202a, 0x202c,
          0x202d, 0x202e, 0x2060, 0x2066, 0x2067, 0x2068, 0x2069, 0x206f, 0xfeff, 0x1d173, 0xe0001, 0xe0041}) {
        QTest::addRow("U+%04X", codePoint) << codePoint << 0xfffdU;
    }
}

void VisibleTextTest::replacesInvisibleCharacters()
{
    QFETCH(uint, codePoint);
    QFETCH(uint, sign);

    const QString text = QStringLiteral("a%1b%1");
    QCOMPARE(VisibleText::fromText(text.arg(character(codePoint))), text.arg(character(sign)));
    QCOMPARE(VisibleText::isolated(text.arg(character(codePoint))), text.arg(character(sign)));
}

void VisibleTextTest::keepsVisibleText_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("null") << QString();
    QTest::newRow("space") << QStringLiteral(" ");
    QTest::newRow("tilde") << QStringLiteral("~");
    QTest::newRow("no-break space") << character(0xa0);
    QTest::newRow("Latin") << QStringLiteral(u"J\u00fcrg");
    QTest::newRow("Hebrew") << QStringLiteral(u"\u05d0\u05d1");
    QTest::newRow("joiners") << QStringLiteral(u"\u0645\u200c\u0645\u200d\u0645");
    QTest::newRow("emoji") << character(0x1f600);
    QTest::newRow("Phoenician") << character(0x10900);
}

void VisibleTextTest::keepsVisibleText()
{
    QFETCH(QString, text);

    QCOMPARE(VisibleText::fromText(text), text);
    QCOMPARE(VisibleText::fromText(text).isNull(), text.isNull());
    QCOMPARE(VisibleText::fromJson(text.toUtf8()), text.toUtf8());
}

void VisibleTextTest::replacesInLongText()
{
    const QString text = QString(100000, QLatin1Char('a')) + QChar(0x1b);
    QCOMPARE(VisibleText::fromText(text), QString(100000, QLatin1Char('a')) + QChar(0x241b));
}

void VisibleTextTest::escapesInvisibleCharactersInJson_data()
{
    replacesInvisibleCharacters_data();
}

void VisibleTextTest::escapesInvisibleCharactersInJson()
{
    QFETCH(uint, codePoint);

    const QString text = QStringLiteral("a%1b\\%1\"").arg(character(codePoint));
    const QJsonArray array{text};
    const QByteArray json = VisibleText::fromJson(QJsonDocument(array).toJson(QJsonDocument::Compact));
    QCOMPARE(QJsonDocument::fromJson(json).array(), array);
    if (codePoint >= 0x7f) {
        QVERIFY2(json.contains(escaped(codePoint).toLatin1()), json.constData());
    }
    const QString shown = QString::fromUtf8(json);
    QCOMPARE(VisibleText::fromText(shown), shown);
}

void VisibleTextTest::keepsLayoutOfJson()
{
    const QJsonArray array{QJsonArray{1, QStringLiteral(u"J\u00fcrg")}, QString(QChar(0x202e))};
    const QByteArray json = QJsonDocument(array).toJson();
    QVERIFY(json.contains('\n'));
    QCOMPARE(VisibleText::fromJson(json), QByteArray(json).replace(array.last().toString().toUtf8(), "\\u202e"));
}

void VisibleTextTest::isolatesRightToLeftText()
{
    QCOMPARE(VisibleText::isolated(QStringLiteral(u"1\u05d0")), QStringLiteral(u"\u20681\u05d0\u2069"));
    QCOMPARE(VisibleText::isolated(QStringLiteral(u"\u2069\u0627\n")),
             QStringLiteral(u"\u2068\ufffd\u0627\u240a\u2069"));
}

void VisibleTextTest::isolatesRareScripts()
{
    const QString phoenician = character(0x10900);
    QCOMPARE(VisibleText::isolated(phoenician), QChar(0x2068) + phoenician + QChar(0x2069));
}

void VisibleTextTest::doesNotIsolateLeftToRightText()
{
    QCOMPARE(VisibleText::isolated(QStringLiteral("wheel")), QStringLiteral("wheel"));
}

QTEST_GUILESS_MAIN(VisibleTextTest)

#include "visibletexttest.moc"

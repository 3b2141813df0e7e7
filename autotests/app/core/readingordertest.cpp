/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "readingorder.h"

#include "orderofsight.h"
#include "visibletext.h"

#include <QGuiApplication>
#include <QTest>

class ReadingOrderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void keepsOrderInSentence_data();
    void keepsOrderInSentence();
    void keepsOrderOfLetters_data();
    void keepsOrderOfLetters();
    void keepsDirectionOfSentence();
    void keepsOrderOfName();
    void marksEachLine();
    void isolatesOnlyOnce();
    void keepsSignOfHostileName();
    void leavesOtherLanguagesAlone();
    void removesMarks();
    void cleanup();
};

void ReadingOrderTest::init()
{
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
}

void ReadingOrderTest::keepsOrderInSentence_data()
{
    QTest::addColumn<QString>("sentence");
    QTest::addColumn<QString>("part");

    const auto row = [](const QString &part, const QString &sentence) {
        QTest::newRow(qPrintable(part)) << sentence.arg(part) << part;
    };
    row(QStringLiteral("/etc/shells"), QStringLiteral("ليست في %1: لا"));
    row(QStringLiteral("/etc/passwd"), QStringLiteral("مخزّنة في %1."));
    row(QStringLiteral("/home/my files/"), QStringLiteral("الدليل «%1»، لا"));
    row(QStringLiteral("limits.d/*.conf"), QStringLiteral("في %1 شيء"));
    row(QStringLiteral(".conf"), QStringLiteral("ينتهي بـ %1 ولا"));
    row(QStringLiteral("--gid"), QStringLiteral("استعمل %1 هنا"));
    row(QStringLiteral("usermod --gid"), QStringLiteral("استعمل «%1»."));
    row(QStringLiteral("passwd(1)"), QStringLiteral("شغّل %1"));
    row(QStringLiteral("-5"), QStringLiteral("القيمة %1 سيئة"));
    row(QStringLiteral("50-"), QStringLiteral("المدى %1 سيئ"));
    row(QStringLiteral("@staff"), QStringLiteral("اسم %1 لا"));
    row(QStringLiteral("$HOME"), QStringLiteral("دليلٌ %1"));
    row(QStringLiteral("/etc/login.defs"), QStringLiteral("بطريقة (METHOD في %1)"));
}

void ReadingOrderTest::keepsOrderInSentence()
{
    QFETCH(QString, sentence);
    QFETCH(QString, part);

    QVERIFY(sentence.isRightToLeft());
    const QString seen = inOrderOfSight(ReadingOrder::ofSentence(sentence), Qt::RightToLeft);
    QVERIFY2(seen.contains(part), qPrintable(seen));
}

void ReadingOrderTest::keepsOrderOfLetters_data()
{
    QTest::addColumn<QString>("sentence");
    QTest::addColumn<QString>("marked");

    QTest::newRow("words alone") << QStringLiteral("في PAM 3") << QStringLiteral(u"في \u2066PAM 3\u2069");
    QTest::newRow("one word") << QStringLiteral("في PAM.") << QStringLiteral("في PAM.");
    QTest::newRow("accent before a word") << QStringLiteral("حدًا C++") << QStringLiteral(u"حدًا \u2066C++\u2069");
    QTest::newRow("sign") << QStringLiteral("علامة + أو -،") << QStringLiteral("علامة + أو -،");
    QTest::newRow("brackets") << QStringLiteral("لا (/a في b(1))")
                              << QStringLiteral(u"لا (\u2066/a\u2069 في \u2066b(1)\u2069)");
    QTest::newRow("bracket between words")
        << QStringLiteral("هو A-1 (B في C)") << QStringLiteral(u"هو \u2066A-1\u2069 (B في C)");
}

void ReadingOrderTest::keepsOrderOfLetters()
{
    QFETCH(QString, sentence);
    QFETCH(QString, marked);

    QCOMPARE(ReadingOrder::ofSentence(sentence), marked);
}

void ReadingOrderTest::keepsDirectionOfSentence()
{
    // As Qt's text documents see it, which count isolated letters as well.
    const QString marked = ReadingOrder::ofSentence(QStringLiteral("«/home/ada» لا"));
    QCOMPARE(marked, QStringLiteral(u"\u200f«\u2066/home/ada\u2069» لا"));
    QVERIFY(marked.isRightToLeft());
    QCOMPARE(ReadingOrder::ofSentence(QStringLiteral("No such file: /a")), QStringLiteral("No such file: /a"));
}

void ReadingOrderTest::keepsOrderOfName()
{
    // The sentence goes on after a name of either direction.
    const QString sentence = QStringLiteral("للمستخدم «%1» معرّف المستخدم «%2»: %3");
    const QString shown = sentence.arg(VisibleText::isolated(QStringLiteral("ada-")),
                                       VisibleText::isolated(QStringLiteral("a /b")),
                                       VisibleText::isolated(QStringLiteral("/c")));
    const QString seen = inOrderOfSight(ReadingOrder::ofSentence(shown), Qt::RightToLeft);
    QVERIFY2(seen.startsWith(QLatin1String("/c :")), qPrintable(seen));
    QVERIFY2(seen.indexOf(QLatin1String("a /b")) < seen.indexOf(QLatin1String("ada-")), qPrintable(seen));
    QVERIFY2(seen.contains(QLatin1String("ada-")), qPrintable(seen));
}

void ReadingOrderTest::marksEachLine()
{
    QCOMPARE(ReadingOrder::ofSentence(QStringLiteral("/a لا\n/b\nلا /c")),
             QStringLiteral(u"\u200f\u2066/a\u2069 لا\n/b\nلا \u2066/c\u2069"));
}

void ReadingOrderTest::isolatesOnlyOnce()
{
    const QString sentence =
        QStringLiteral("لا %1: %2 و/d")
            .arg(ReadingOrder::leftToRight(QStringLiteral("[a-z] /")), ReadingOrder::isolated(QStringLiteral("في /c")));
    const QString marked = ReadingOrder::ofSentence(sentence);
    QCOMPARE(marked, QStringLiteral(u"لا \u2066[a-z] /\u2069: \u2068في \u2066/c\u2069\u2069 و\u2066/d\u2069"));
    QCOMPARE(ReadingOrder::ofSentence(marked), marked);
}

void ReadingOrderTest::keepsSignOfHostileName()
{
    const QString name = VisibleText::isolated(QStringLiteral(u"a\u202e\u2069b"));
    QCOMPARE(name, QStringLiteral(u"\u2068a\ufffd\ufffdb\u2069"));
    QCOMPARE(ReadingOrder::ofSentence(QStringLiteral("لا %1").arg(name)), QStringLiteral("لا ") + name);
}

void ReadingOrderTest::leavesOtherLanguagesAlone()
{
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    const QString text = QStringLiteral("The home of א is /home/א.");
    QCOMPARE(ReadingOrder::ofSentence(text), text);
    QCOMPARE(ReadingOrder::ofValue(text), text);
    QCOMPARE(VisibleText::isolated(QStringLiteral("/a")), QStringLiteral("/a"));
}

void ReadingOrderTest::removesMarks()
{
    const QString sentence = QStringLiteral("«%1» لا /b").arg(VisibleText::isolated(QStringLiteral("/a")));
    const QString marked = ReadingOrder::ofSentence(sentence);
    QVERIFY(marked != QStringLiteral("«/a» لا /b"));
    QCOMPARE(ReadingOrder::withoutMarks(marked), QStringLiteral("«/a» لا /b"));
    QCOMPARE(ReadingOrder::withoutMarks(ReadingOrder::ofValue(QStringLiteral("-1"))), QStringLiteral("-1"));
}

void ReadingOrderTest::cleanup()
{
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

QTEST_MAIN(ReadingOrderTest)

#include "readingordertest.moc"

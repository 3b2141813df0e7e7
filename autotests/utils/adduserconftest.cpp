/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "messagerecorder.h"
#include "sandbox.h"
#include "validatorfixtures.h"

#include <UserUtils>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <memory>

class AdduserConfTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void takesPatternFromConfiguration_data();
    void takesPatternFromConfiguration();
    void takesNothingFromUnreadableConfiguration();
    void takesNothingFromDirectory();
    void takesPatternFromShippedConfiguration();
    void readsConfigurationForEachValidator();

private:
    QByteArray m_shippedConfiguration;
};

void AdduserConfTest::initTestCase()
{
    QFile file(adduserConfPath());
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_shippedConfiguration = file.readAll();
}

void AdduserConfTest::init()
{
    Sandbox::remove(adduserConfPath());
}

void AdduserConfTest::takesPatternFromConfiguration_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("pattern");

    const auto add = [](const char *row, const QByteArray &content, const QString &pattern) {
        QTest::newRow(row) << content << pattern;
    };
    const QString taken = QStringLiteral("[a-z]+");

    add("quoted", "NAME_REGEX=\"[a-z]+\"\n", taken);
    add("among other lines", "# comment\nDSHELL=/bin/sh\nNAME_REGEX=\"[a-z]+\"\nQUOTAUSER=\"\"\n", taken);
    add("without line end", "NAME_REGEX=\"[a-z]+\"", taken);
    add("CRLF line ends", "DSHELL=/bin/sh\r\nNAME_REGEX=\"[a-z]+\"\r\nQUOTAUSER=\"\"\r\n", taken);
    add("text after the quotes", "NAME_REGEX=\"[a-z]+\" # letters\n", taken);
    add("text before the quotes", "NAME_REGEX= some\"[a-z]+\"\n", taken);
    add("blanks in the quotes", "NAME_REGEX=\" [a-z]+ \"\n", QStringLiteral(" [a-z]+ "));
    add("single quotes in the quotes", "NAME_REGEX=\"'[a-z]+'\"\n", QStringLiteral("'[a-z]+'"));
    add("backslashes", "NAME_REGEX=\"^[a-z]*\\$?$\"\n", QStringLiteral("^[a-z]*\\$?$"));
    add("Latin-1", "NAME_REGEX=\"[a-z\xe9]+\"\n", QStringLiteral("[a-z\u00e9]+"));
    add("UTF-8", "NAME_REGEX=\"[a-z\xc3\xa9]+\"\n", QStringLiteral("[a-z\u00c3\u00a9]+"));
    add("null character",
        QByteArray("NAME_REGEX=\"a\0b\"\n", 17),
        QLatin1Char('a') + QString(QChar(QChar::Null)) + QLatin1Char('b'));
    add("long line", "NAME_REGEX=\"" + QByteArray(100000, 'a') + "\"\n", letters(100000));

    add("empty file", "", fallback());
    add("indented by a blank", " NAME_REGEX=\"[a-z]+\"\n", fallback());
    add("indented by a tab", "\tNAME_REGEX=\"[a-z]+\"\n", fallback());
    add("commented out", "#NAME_REGEX=\"[a-z]+\"\n", fallback());
    add("lower case", "name_regex=\"[a-z]+\"\n", fallback());
    add("blank before the sign", "NAME_REGEX =\"[a-z]+\"\n", fallback());
    add("longer keyword", "SYS_NAME_REGEX=\"[a-z]+\"\n", fallback());
    add("byte order mark", "\xef\xbb\xbfNAME_REGEX=\"[a-z]+\"\n", fallback());
    add("keyword alone", "NAME_REGEX\n", fallback());
    add("nothing after the sign", "NAME_REGEX=\n", fallback());
    add("no quotes", "NAME_REGEX=[a-z]+\n", fallback());
    add("single quotes", "NAME_REGEX='[a-z]+'\n", fallback());
    add("one quote", "NAME_REGEX=\"[a-z]+\n", fallback());
    add("three quotes", "NAME_REGEX=\"[a-z]+\"\"\n", fallback());
    add("four quotes", "NAME_REGEX=\"[a-z]+\"\"[0-9]\"\n", fallback());
    add("sign in the value", "NAME_REGEX=\"[a-z=]+\"\n", fallback());
    add("sign after the value", "NAME_REGEX=\"[a-z]+\" # a=b\n", fallback());
    add("value over two lines", "NAME_REGEX=\"[a-z]\n+\"\n", fallback());
    add("nothing in the quotes", "NAME_REGEX=\"\"\n", fallback());

    add("last of two", "NAME_REGEX=\"[0-9]+\"\nNAME_REGEX=\"[a-z]+\"\n", taken);
    add("before an unusable line", "NAME_REGEX=\"[a-z]+\"\nNAME_REGEX=[0-9]+\n", taken);
    add("after an unusable line", "NAME_REGEX=[0-9]+\nNAME_REGEX=\"[a-z]+\"\n", taken);
    add("reset by an empty one", "NAME_REGEX=\"[a-z]+\"\nNAME_REGEX=\"\"\n", fallback());
    add("after an empty one", "NAME_REGEX=\"\"\nNAME_REGEX=\"[a-z]+\"\n", taken);
}

void AdduserConfTest::takesPatternFromConfiguration()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, pattern);

    Sandbox::write(adduserConfPath(), content);
    MessageRecorder recorder;
    QCOMPARE(namePattern(), pattern);
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void AdduserConfTest::takesNothingFromUnreadableConfiguration()
{
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"[a-z]+\"\n");
    QVERIFY(QFile::setPermissions(adduserConfPath(), {}));
    MessageRecorder recorder;
    QCOMPARE(namePattern(), fallback());
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void AdduserConfTest::takesNothingFromDirectory()
{
    QVERIFY(QDir().mkdir(adduserConfPath()));
    MessageRecorder recorder;
    const QString pattern = namePattern();
    QVERIFY(QDir().rmdir(adduserConfPath()));
    QCOMPARE(pattern, fallback());
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void AdduserConfTest::takesPatternFromShippedConfiguration()
{
    QByteArray configuration = m_shippedConfiguration;
    Sandbox::write(adduserConfPath(), configuration);
    QCOMPARE(namePattern(), fallback());

    // The package ships the line as a comment. The pattern is not the same in each release.
    const QRegularExpressionMatch shipped =
        QRegularExpression(QStringLiteral("\n#NAME_REGEX=\"(\\^.*\\$)\"\n")).match(QString::fromLatin1(configuration));
    QVERIFY(shipped.hasMatch());
    Sandbox::write(adduserConfPath(), configuration.replace("\n#NAME_REGEX=\"", "\nNAME_REGEX=\""));
    QCOMPARE(namePattern(), shipped.captured(1));
    QCOMPARE(check(UserUtils::createUserNameValidator, QStringLiteral("machine$")), Accepted);
    QCOMPARE(check(UserUtils::createUserNameValidator, QStringLiteral("_user")), Rejected);
}

void AdduserConfTest::readsConfigurationForEachValidator()
{
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"[0-9]+\"\n");
    const std::unique_ptr<QValidator> digits(UserUtils::createUserNameValidator(nullptr));
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"[A-Z]+\"\n");
    const std::unique_ptr<QValidator> capitals(UserUtils::createUserNameValidator(nullptr));
    Sandbox::remove(adduserConfPath());

    QCOMPARE(patternOf(digits.get()), QStringLiteral("[0-9]+"));
    QCOMPARE(patternOf(capitals.get()), QStringLiteral("[A-Z]+"));
    QCOMPARE(namePattern(), fallback());
}

QTEST_GUILESS_MAIN(AdduserConfTest)

#include "adduserconftest.moc"

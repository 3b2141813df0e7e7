/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "encryptmethod.h"

#include "sandbox.h"

#include <QTest>

class EncryptMethodTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void saysWhichMethodIsUsed_data();
    void saysWhichMethodIsUsed();
    void worksWithoutFile();
};

void EncryptMethodTest::saysWhichMethodIsUsed_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("note");

    const auto other = [](const QString &method) {
        return QStringLiteral("This system hashes passwords with %1 (ENCRYPT_METHOD in /etc/login.defs), which is "
                              "neither of these methods.")
            .arg(method);
    };
    const QString none = QStringLiteral("/etc/login.defs does not say with which method this system hashes passwords.");
    const QString sha512 =
        QStringLiteral("This system hashes passwords with SHA-512 (ENCRYPT_METHOD in /etc/login.defs).");
    QTest::newRow("yescrypt") << QByteArray("ENCRYPT_METHOD YESCRYPT\n") << other(QStringLiteral("yescrypt"));
    QTest::newRow("SHA-512") << QByteArray("UMASK 022\n\tENCRYPT_METHOD\t\tSHA512\n") << sha512;
    QTest::newRow("another") << QByteArray("ENCRYPT_METHOD MD5") << other(QStringLiteral("MD5"));
    QTest::newRow("last of two") << QByteArray("ENCRYPT_METHOD MD5\nENCRYPT_METHOD SHA512\n") << sha512;
    QTest::newRow("escape") << QByteArray("ENCRYPT_METHOD \033[2J\n") << other(QStringLiteral(u"\u241b[2J"));
    QTest::newRow("comment") << QByteArray("#ENCRYPT_METHOD SHA512\n") << none;
    QTest::newRow("without value") << QByteArray("ENCRYPT_METHOD\n") << none;
    QTest::newRow("longer word") << QByteArray("ENCRYPT_METHOD_NIS SHA512\n") << none;
}

void EncryptMethodTest::saysWhichMethodIsUsed()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, note);

    Sandbox::write(QStringLiteral("/etc/login.defs"), file);
    QCOMPARE(encryptMethodNote(), note);
}

void EncryptMethodTest::worksWithoutFile()
{
    Sandbox::remove(QStringLiteral("/etc/login.defs"));
    QVERIFY(encryptMethodNote().contains(QLatin1String("does not say")));
}

QTEST_GUILESS_MAIN(EncryptMethodTest)

#include "encryptmethodtest.moc"

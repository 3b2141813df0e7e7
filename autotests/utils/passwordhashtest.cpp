/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "localencoding.h"
#include "messagerecorder.h"
#include "patience.h"
#include "randomscript.h"
#include "saltdraws.h"
#include "sandbox.h"

#include <UserUtils>

#include <QProcess>
#include <QTest>

#include <crypt.h>
#include <cstring>
#include <dlfcn.h>
#include <unistd.h>

extern "C" char *gost_crypt(const char *key, const char *setting);

namespace
{
struct HashCall {
    const char *function;
    QByteArray key;
    QByteArray setting;
};

struct HashFunctions {
    QVector<HashCall> calls;
    /** Whether to return the result below instead of a hash. A null result stands for a null pointer. */
    bool standIn = false;
    QByteArray result = "result";
};

HashFunctions *s_functions = nullptr;

char *hash(const char *function, const char *key, const char *setting)
{
    using Hash = char *(*)(const char *, const char *);
    s_functions->calls.append(HashCall{function, key, setting});
    if (s_functions->standIn) {
        return s_functions->result.isNull() ? nullptr : s_functions->result.data();
    }
    const auto next = reinterpret_cast<Hash>(dlsym(RTLD_NEXT, function));
    return next ? next(key, setting) : nullptr;
}

void addMethods()
{
    QTest::addColumn<bool>("useGost");
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<QByteArray>("prefix");
    QTest::newRow("SHA-512") << false << QByteArray("crypt") << QByteArray("$6$");
    QTest::newRow("GOST") << true << QByteArray("gost_crypt") << QByteArray("$gost12512hash$");
}

bool hasGostLibrary()
{
    return dlsym(RTLD_NEXT, "gost_crypt");
}

void skipWithoutGostLibrary()
{
    QTest::qSkip("There is no GOST library.", __FILE__, __LINE__);
}

/** The hash by the C library of @p key with a whole hash as the setting. */
QByteArray systemHash(const QByteArray &key, const QString &setting)
{
    return crypt(key.constData(), setting.toLatin1().constData());
}

/** Whether the system's login check accepts @p password for the user who runs this. */
bool systemAccepts(const QString &user, const QByteArray &password)
{
    QProcess check;
    check.start(QStringLiteral("/sbin/unix_chkpwd"), {user, QStringLiteral("nonull")});
    check.write(password + '\0');
    check.closeWriteChannel();
    return check.waitForFinished(patience) && check.exitStatus() == QProcess::NormalExit && check.exitCode() == 0;
}
}

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the headers do not agree either
extern "C" Q_DECL_EXPORT char *crypt(const char *key, const char *setting) noexcept
{
    return hash("crypt", key, setting);
}

extern "C" Q_DECL_EXPORT char *gost_crypt(const char *key, const char *setting)
{
    return hash("gost_crypt", key, setting);
}

class PasswordHashTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void passesPasswordAndSetting_data();
    void passesPasswordAndSetting();
    void drawsEachSaltCharacterOnce_data();
    void drawsEachSaltCharacterOnce();
    void passesOtherSaltOnEachCall_data();
    void passesOtherSaltOnEachCall();
    void passesPasswordAsUtf8_data();
    void passesPasswordAsUtf8();

    void isNullWhenFunctionGivesNothing_data();
    void isNullWhenFunctionGivesNothing();
    void returnsWhatFunctionGives_data();
    void returnsWhatFunctionGives();
    void exchangesUtf8InAnyLocale();
    void returnsFailureTokenOfSystem();
    void copiesResult();

    void hashesForSystem_data();
    void hashesForSystem();
    void hashesByGostMethod_data();
    void hashesByGostMethod();
    void givesKnownGostHash();
    void hashesForLoginCheckOfSystem();
    void logsNothing();

private:
    HashFunctions m_functions;
};

void PasswordHashTest::init()
{
    m_functions = HashFunctions();
    s_functions = &m_functions;
}

void PasswordHashTest::passesPasswordAndSetting_data()
{
    addMethods();
}

void PasswordHashTest::passesPasswordAndSetting()
{
    QFETCH(bool, useGost);
    QFETCH(QByteArray, function);
    QFETCH(QByteArray, prefix);

    m_functions.standIn = true;
    for (int i = 0; i < 200; ++i) {
        m_functions.calls.clear();
        UserUtils::saltPassword(QStringLiteral("secret"), useGost);
        QCOMPARE(m_functions.calls.size(), 1);
        QCOMPARE(QByteArray(m_functions.calls.first().function), function);
        QCOMPARE(m_functions.calls.first().key, QByteArray("secret"));

        const QByteArray setting = m_functions.calls.first().setting;
        QCOMPARE(setting.size(), prefix.size() + 16 + 1);
        QVERIFY(setting.startsWith(prefix));
        QVERIFY(setting.endsWith('$'));
        const QByteArray salt = setting.mid(prefix.size(), 16);
        for (const char c : salt) {
            QVERIFY2(strchr(saltAlphabet, c), setting.constData());
        }
    }
}

void PasswordHashTest::drawsEachSaltCharacterOnce_data()
{
    addMethods();
}

void PasswordHashTest::drawsEachSaltCharacterOnce()
{
    QFETCH(bool, useGost);
    QFETCH(QByteArray, prefix);

    m_functions.standIn = true;
    const RandomScript random(saltDraws("AZaz./0918Kuerst"));
    UserUtils::saltPassword(QStringLiteral("secret"), useGost);
    QCOMPARE(m_functions.calls.first().setting, QByteArray(prefix + "AZaz./0918Kuerst$"));
    QCOMPARE(random.systemDraws(), 16);
    QCOMPARE(random.globalDraws(), 0);
    QCOMPARE(random.otherDraws(), 0);
}

void PasswordHashTest::passesOtherSaltOnEachCall_data()
{
    addMethods();
}

void PasswordHashTest::passesOtherSaltOnEachCall()
{
    QFETCH(bool, useGost);

    if (useGost && !hasGostLibrary()) {
        skipWithoutGostLibrary();
        return;
    }
    const QString first = UserUtils::saltPassword(QStringLiteral("secret"), useGost);
    const QString second = UserUtils::saltPassword(QStringLiteral("secret"), useGost);
    QVERIFY(first != second);
    const QByteArray firstSetting = m_functions.calls.takeFirst().setting;
    QVERIFY(m_functions.calls.takeFirst().setting != firstSetting);
}

void PasswordHashTest::passesPasswordAsUtf8_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<QByteArray>("key");

    QTest::newRow("null") << QString() << QByteArray("");
    QTest::newRow("empty") << QString(QLatin1String("")) << QByteArray("");
    QTest::newRow("blank") << QStringLiteral(" ") << QByteArray(" ");
    QTest::newRow("ASCII") << QStringLiteral("$6$*%s\n") << QByteArray("$6$*%s\n");
    QTest::newRow("two bytes") << QStringLiteral("\u00e9") << QByteArray("\xc3\xa9");
    QTest::newRow("three bytes") << QStringLiteral("\u20ac") << QByteArray("\xe2\x82\xac");
    QTest::newRow("four bytes") << QString::fromUcs4(U"\x1f642") << QByteArray("\xf0\x9f\x99\x82");
    QTest::newRow("decomposed") << QStringLiteral("e\u0301") << QByteArray("e\xcc\x81");
}

void PasswordHashTest::passesPasswordAsUtf8()
{
    QFETCH(QString, password);
    QFETCH(QByteArray, key);

    m_functions.standIn = true;
    UserUtils::saltPassword(password, false);
    UserUtils::saltPassword(password, true);
    QCOMPARE(m_functions.calls.size(), 2);
    QCOMPARE(m_functions.calls.at(0).key, key);
    QCOMPARE(m_functions.calls.at(1).key, key);
}

void PasswordHashTest::isNullWhenFunctionGivesNothing_data()
{
    addMethods();
}

void PasswordHashTest::isNullWhenFunctionGivesNothing()
{
    QFETCH(bool, useGost);

    m_functions.standIn = true;
    m_functions.result = QByteArray();
    QVERIFY(UserUtils::saltPassword(QStringLiteral("secret"), useGost).isNull());
}

void PasswordHashTest::returnsWhatFunctionGives_data()
{
    QTest::addColumn<QByteArray>("result");
    QTest::addColumn<QString>("text");

    QTest::newRow("hash") << QByteArray("$x$salt$hash") << QStringLiteral("$x$salt$hash");
    QTest::newRow("failure token") << QByteArray("*0") << QStringLiteral("*0");
    QTest::newRow("UTF-8") << QByteArray("h\xc3\xa4sh") << QStringLiteral("h\u00e4sh");
    QTest::newRow("empty") << QByteArray("") << QString(QLatin1String(""));
}

void PasswordHashTest::returnsWhatFunctionGives()
{
    QFETCH(QByteArray, result);
    QFETCH(QString, text);

    m_functions.standIn = true;
    m_functions.result = result;
    for (const bool useGost : {false, true}) {
        const QString returned = UserUtils::saltPassword(QStringLiteral("secret"), useGost);
        QVERIFY(!returned.isNull());
        QCOMPARE(returned, text);
    }
}

void PasswordHashTest::exchangesUtf8InAnyLocale()
{
    const LocalEncoding cyrillic("KOI8-R");
    m_functions.standIn = true;
    m_functions.result = "h\xc3\xa4sh";
    for (const bool useGost : {false, true}) {
        QCOMPARE(UserUtils::saltPassword(QStringLiteral("\u00e9"), useGost), QStringLiteral("h\u00e4sh"));
        QCOMPARE(m_functions.calls.constLast().key, QByteArray("\xc3\xa9"));
    }
}

void PasswordHashTest::returnsFailureTokenOfSystem()
{
    const QString tooLong(CRYPT_MAX_PASSPHRASE_SIZE, QLatin1Char('a'));
    QCOMPARE(UserUtils::saltPassword(tooLong, false), QStringLiteral("*0"));
}

void PasswordHashTest::copiesResult()
{
    m_functions.standIn = true;
    const QString first = UserUtils::saltPassword(QStringLiteral("one"), true);
    m_functions.result.fill('x');
    QCOMPARE(first, QStringLiteral("result"));
}

void PasswordHashTest::hashesForSystem_data()
{
    passesPasswordAsUtf8_data();
}

void PasswordHashTest::hashesForSystem()
{
    QFETCH(QString, password);
    QFETCH(QByteArray, key);

    const QString hash = UserUtils::saltPassword(password, false);
    QCOMPARE(hash.size(), 3 + 16 + 1 + 86);
    QVERIFY(hash.startsWith(QString::fromLatin1(m_functions.calls.first().setting)));
    QCOMPARE(systemHash(key, hash), hash.toLatin1());
    QVERIFY(systemHash(key + "x", hash) != hash.toLatin1());
}

void PasswordHashTest::hashesByGostMethod_data()
{
    passesPasswordAsUtf8_data();
}

void PasswordHashTest::hashesByGostMethod()
{
    QFETCH(QString, password);
    QFETCH(QByteArray, key);

    if (!hasGostLibrary()) {
        skipWithoutGostLibrary();
        return;
    }
    const QString hash = UserUtils::saltPassword(password, true);
    QCOMPARE(hash.size(), 15 + 16 + 1 + 86);
    QVERIFY(hash.startsWith(QString::fromLatin1(m_functions.calls.first().setting)));
    QCOMPARE(QByteArray(gost_crypt(key.constData(), qPrintable(hash))), hash.toLatin1());
}

void PasswordHashTest::givesKnownGostHash()
{
    if (!hasGostLibrary()) {
        skipWithoutGostLibrary();
        return;
    }
    const RandomScript random(saltDraws("KrmcHbeQmxiP/Ipl"));
    QCOMPARE(UserUtils::saltPassword(QStringLiteral("password"), true),
             QStringLiteral("$gost12512hash$KrmcHbeQmxiP/Ipl$uNmEQvpJ7B0jTcCkIh1IQEIRoyAXzliyt2S7VAz/"
                            "xA8GNjBbFeE.c98elVBwad6y40qPNKYqYNkWZJFxpGw620"));
}

void PasswordHashTest::hashesForLoginCheckOfSystem()
{
    const QString user = QStringLiteral("tester");
    const QString password = QStringLiteral("Gr\u00fc\u00dfe & more");
    const QByteArray hash = UserUtils::saltPassword(password, false).toLatin1();
    const QByteArray id = QByteArray::number(getuid()) + ':' + QByteArray::number(getgid());
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts("tester:x:" + id + "::/:/bin/sh\n", "tester:x:" + QByteArray::number(getgid()) + ":\n");
    Sandbox::write(QStringLiteral("/etc/shadow"), "tester:" + hash + ":19000:0:99999:7:::\n");

    QVERIFY(systemAccepts(user, password.toUtf8()));
    QVERIFY(!systemAccepts(user, "Gruesse & more"));
    QVERIFY(!systemAccepts(user, password.toLatin1()));
}

void PasswordHashTest::logsNothing()
{
    MessageRecorder recorder;
    UserUtils::saltPassword(QStringLiteral("secret"), false);
    UserUtils::saltPassword(QStringLiteral("secret"), true);
    m_functions.standIn = true;
    m_functions.result = QByteArray();
    UserUtils::saltPassword(QStringLiteral("secret"), true);
    QCOMPARE(recorder.takeTexts(), QStringList());
}

QTEST_GUILESS_MAIN(PasswordHashTest)

#include "passwordhashtest.moc"

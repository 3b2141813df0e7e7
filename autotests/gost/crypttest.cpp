/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "digest_p.h"
#include "shacrypt_p.h"

#include <QTest>

#include <cerrno>
#include <cstring>
#include <random>

#include <crypt.h>
#include <malloc.h>

extern "C" char *gost_crypt(const char *key, const char *setting);

namespace
{
const ShaCryptMethod sha512Crypt{"$6$", GCRY_MD_SHA512};

/** The hash by the library's algorithm with SHA-512 as the digest; null if it fails. */
QByteArray hashWithSha512(const QByteArray &key, const QByteArray &setting)
{
    ShaCryptHash hash;
    return shaCrypt(sha512Crypt, key.constData(), setting.constData(), hash) ? QByteArray(hash.data()) : QByteArray();
}

/** The hash by the C library; null if it fails. */
QByteArray hashWithSystem(const QByteArray &key, const QByteArray &setting)
{
    const QByteArray hash = crypt(key.constData(), setting.constData());
    return hash.startsWith('*') ? QByteArray() : hash;
}

class RandomText
{
public:
    explicit RandomText(unsigned seed)
        : m_random(seed)
    {
    }

    int upTo(int most)
    {
        return static_cast<int>(m_random() % (static_cast<unsigned>(most) + 1));
    }

    QByteArray key(int longest)
    {
        QByteArray key(upTo(longest), '\0');
        for (char &c : key) {
            c = static_cast<char>(1 + upTo(254));
        }
        return key;
    }

    QByteArray of(const QByteArray &alphabet, int longest)
    {
        QByteArray text(upTo(longest), '\0');
        for (char &c : text) {
            c = alphabet.at(upTo(alphabet.size() - 1));
        }
        return text;
    }

private:
    std::mt19937 m_random;
};
}

class GostCryptTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesKnownHashes_data();
    void givesKnownHashes();
    void givesKnownHashesWithSha512_data();
    void givesKnownHashesWithSha512();
    void agreesWithSystemOnKeyLengths();
    void agreesWithSystemOnLongKeys();
    void agreesWithSystemOnRandomKeys_data();
    void agreesWithSystemOnRandomKeys();
    void agreesWithSystemOnDefaultRounds();
    void takesSettingsThatSystemTakes_data();
    void takesSettingsThatSystemTakes();
    void takesRandomSettingsThatSystemTakes();
    void refusesOtherSettings_data();
    void refusesOtherSettings();
    void refusesDigestThatIsMissing();
    void hasRoomForMostRounds();
    void verifiesWithWholeHashAsSetting();
    void keepsResultInStaticStorage();
    void freesDigests();
};

void GostCryptTest::givesKnownHashes_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("setting");
    QTest::addColumn<QByteArray>("hash");

    QTest::newRow("hashcat") << QByteArray("hashcat") << QByteArray("$gost12512hash$salt$")
                             << QByteArray("$gost12512hash$salt$w0TCvk4n0JHA/kPNpHEyf3RR5YuUXReihlrize3NdcPCmtLk/"
                                           "ewG63OUWT.G4bvjegPTeMb/xQ2PK7apsCfC7/");
    QTest::newRow("password") << QByteArray("password") << QByteArray("$gost12512hash$KrmcHbeQmxiP/Ipl$")
                              << QByteArray("$gost12512hash$KrmcHbeQmxiP/Ipl$uNmEQvpJ7B0jTcCkIh1IQEIRoyAXzliyt2S7VAz/"
                                            "xA8GNjBbFeE.c98elVBwad6y40qPNKYqYNkWZJFxpGw620");
}

void GostCryptTest::givesKnownHashes()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, setting);
    QFETCH(QByteArray, hash);

    QCOMPARE(QByteArray(gost_crypt(key.constData(), setting.constData())), hash);
}

void GostCryptTest::givesKnownHashesWithSha512_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("setting");
    QTest::addColumn<QByteArray>("hash");

    QTest::newRow("default rounds") << QByteArray("Hello world!") << QByteArray("$6$saltstring")
                                    << QByteArray(
                                           "$6$saltstring$svn8UoSVapNtMuq1ukKS4tPQd8iKwSMHWjl/O817G3uBnIFNjnQJuesI"
                                           "68u4OTLiBFdcbYEdFCoEOfaS35inz1");
    QTest::newRow("long salt") << QByteArray("Hello world!") << QByteArray("$6$rounds=10000$saltstringsaltstring")
                               << QByteArray(
                                      "$6$rounds=10000$saltstringsaltst$OW1/O6BYHV6BcXZu8QVeXbDWra3Oeqh0sbHbbMCVNSn"
                                      "CM/UrjmM0Dp8vOuZeHBy/YTBmSK6H9qs/y3RnOaw5v.");
}

void GostCryptTest::givesKnownHashesWithSha512()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, setting);
    QFETCH(QByteArray, hash);

    QCOMPARE(hashWithSha512(key, setting), hash);
}

void GostCryptTest::agreesWithSystemOnKeyLengths()
{
    const QByteArray setting = "$6$rounds=1000$salt$";
    for (int length = 0; length < 260; ++length) {
        const QByteArray key(length, 'k');
        QCOMPARE(hashWithSha512(key, setting), hashWithSystem(key, setting));
    }
}

void GostCryptTest::agreesWithSystemOnLongKeys()
{
    const QByteArray setting = "$6$rounds=1000$0123456789abcdef$";
    const QByteArray key(511, 'k');
    QVERIFY(!hashWithSystem(key, setting).isNull());
    QCOMPARE(hashWithSha512(key, setting), hashWithSystem(key, setting));

    for (const int tooLong : {512, 10000, 10000000}) {
        QVERIFY(hashWithSystem(QByteArray(tooLong, 'k'), setting).isNull());
        errno = 0;
        QVERIFY(hashWithSha512(QByteArray(tooLong, 'k'), setting).isNull());
        QCOMPARE(errno, ERANGE);
    }
}

void GostCryptTest::agreesWithSystemOnRandomKeys_data()
{
    QTest::addColumn<unsigned>("seed");

    for (unsigned seed = 1; seed <= 6; ++seed) {
        QTest::addRow("500 keys, seed %u", seed) << seed;
    }
}

void GostCryptTest::agreesWithSystemOnRandomKeys()
{
    QFETCH(unsigned, seed);

    RandomText random(seed);
    for (int i = 0; i < 500; ++i) {
        const QByteArray key = random.key(150);
        const QByteArray setting =
            "$6$rounds=" + QByteArray::number(1000 + random.upTo(300)) + '$' + random.of("./09AZaz=,-_@", 20) + '$';
        const QByteArray expected = hashWithSystem(key, setting);
        QVERIFY2(!expected.isNull(), setting.constData());
        QCOMPARE(hashWithSha512(key, setting), expected);
    }
}

void GostCryptTest::agreesWithSystemOnDefaultRounds()
{
    RandomText random(7);
    for (int i = 0; i < 300; ++i) {
        const QByteArray key = random.key(40);
        const QByteArray setting = "$6$" + random.of("./09AZaz", 16) + '$';
        QCOMPARE(hashWithSha512(key, setting), hashWithSystem(key, setting));
    }
}

void GostCryptTest::takesSettingsThatSystemTakes_data()
{
    QTest::addColumn<bool>("taken");

    QTest::newRow("$6$") << true;
    QTest::newRow("$6$$") << true;
    QTest::newRow("$6$salt") << true;
    QTest::newRow("$6$salt$hash$more") << true;
    QTest::newRow("$6$rounds=1000$") << true;
    QTest::newRow("$6$rounds=1000$salt") << true;
    QTest::newRow("$6$rounds=5000$salt") << true;
    QTest::newRow("$6$rounds") << true;
    QTest::newRow("$6$Rounds=1$salt") << true;
    QTest::newRow("$6$rounds=1000$rounds=1$salt") << true;
    QTest::newRow("$6$0123456789abcdefghi") << true;
    QTest::newRow("$6$\"#%&'()+,-./<=>?@[]^_`{|}~$") << true;

    QTest::newRow("$6") << false;
    QTest::newRow("$5x$salt") << false;
    QTest::newRow("$6$rounds=$salt") << false;
    QTest::newRow("$6$rounds=999$salt") << false;
    QTest::newRow("$6$rounds=0$salt") << false;
    QTest::newRow("$6$rounds=01000$salt") << false;
    QTest::newRow("$6$rounds=+1000$salt") << false;
    QTest::newRow("$6$rounds=-1000$salt") << false;
    QTest::newRow("$6$rounds= 1000$salt") << false;
    QTest::newRow("$6$rounds=0x3e8$salt") << false;
    QTest::newRow("$6$rounds=1000") << false;
    QTest::newRow("$6$rounds=1000salt$") << false;
    QTest::newRow("$6$rounds=1000000000$salt") << false;
    QTest::newRow("$6$rounds=4294968296$salt") << false;
    QTest::newRow("$6$rounds=99999999999999999999999$salt") << false;
    QTest::newRow("$6$sa:lt$") << false;
    QTest::newRow("$6$sa;lt$") << false;
    QTest::newRow("$6$sa*lt$") << false;
    QTest::newRow("$6$sa!lt$") << false;
    QTest::newRow("$6$sa\\lt$") << false;
    QTest::newRow("$6$sa lt$") << false;
    QTest::newRow("$6$s\xc3\xa4lt$") << false;
    QTest::newRow("$6$salt$ha:sh") << false;
}

void GostCryptTest::takesSettingsThatSystemTakes()
{
    QFETCH(bool, taken);

    const QByteArray setting = QTest::currentDataTag();
    errno = 0;
    const QByteArray hash = hashWithSha512("key", setting);
    QCOMPARE(errno, taken ? 0 : EINVAL);
    QCOMPARE(!hash.isNull(), taken);
    QCOMPARE(hash, hashWithSystem("key", setting));
}

void GostCryptTest::takesRandomSettingsThatSystemTakes()
{
    RandomText random(8);
    int taken = 0;
    for (int i = 0; i < 2000; ++i) {
        const QByteArray start = random.upTo(1) ? "$6$rounds=" : "$6$";
        const QByteArray number = random.upTo(1) ? QByteArray("1") : QByteArray();
        const QByteArray setting = start + number + random.of("0000$", 5) + random.of("$$$as:r=~ ", 6);
        const QByteArray hash = hashWithSha512("key", setting);
        QVERIFY2(hash == hashWithSystem("key", setting), setting.constData());
        taken += !hash.isNull();
    }
    QVERIFY(taken > 200 && taken < 1800);
}

void GostCryptTest::refusesOtherSettings_data()
{
    QTest::addColumn<QByteArray>("setting");

    QTest::newRow("null pointer") << QByteArray();
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("other method") << QByteArray("$6$salt$");
    QTest::newRow("part of the prefix") << QByteArray("$gost12512hash");
    QTest::newRow("few rounds") << QByteArray("$gost12512hash$rounds=999$salt$");
    QTest::newRow("line end in salt") << QByteArray("$gost12512hash$a\nb$");
    QTest::newRow("control character in salt") << QByteArray("$gost12512hash$a\x7f$");
    QTest::newRow("colon in salt") << QByteArray("$gost12512hash$a:b$");
}

void GostCryptTest::refusesOtherSettings()
{
    QFETCH(QByteArray, setting);

    errno = 0;
    QVERIFY(!gost_crypt("key", setting.isNull() ? nullptr : setting.constData()));
    QCOMPARE(errno, EINVAL);

    errno = 0;
    QVERIFY(!gost_crypt(nullptr, "$gost12512hash$salt$"));
    QCOMPARE(errno, EINVAL);
}

void GostCryptTest::refusesDigestThatIsMissing()
{
    const ShaCryptMethod method{"$none$", 9999};
    ShaCryptHash hash;
    errno = 0;
    QVERIFY(!shaCrypt(method, "key", "$none$salt$", hash));
    QCOMPARE(errno, ENOSYS);
}

void GostCryptTest::hasRoomForMostRounds()
{
    // Hashing with 999999999 rounds takes minutes. This checks the room for the longest hash instead.
    const QByteArray setting = "$gost12512hash$rounds=100000$0123456789abcdef$";
    const QByteArray hash = gost_crypt("key", setting.constData());
    QVERIFY(hash.startsWith(setting));
    QCOMPARE(hash.size(), setting.size() + 86);
    QVERIFY(size_t(hash.size()) + strlen("9999") < sizeof(ShaCryptHash));
}

void GostCryptTest::verifiesWithWholeHashAsSetting()
{
    for (const char *setting : {"$gost12512hash$salt", "$gost12512hash$rounds=1234$salt$", "$gost12512hash$$"}) {
        const QByteArray hash = gost_crypt("key", setting);
        QCOMPARE(QByteArray(gost_crypt("key", hash.constData())), hash);
        QVERIFY(QByteArray(gost_crypt("Key", hash.constData())) != hash);
    }
}

void GostCryptTest::keepsResultInStaticStorage()
{
    const char *first = gost_crypt("one", "$gost12512hash$rounds=1000$salt$");
    const QByteArray firstHash = first;
    const char *second = gost_crypt("two", "$gost12512hash$rounds=1000$salt$");
    QCOMPARE(static_cast<const void *>(second), static_cast<const void *>(first));
    QVERIFY(QByteArray(second) != firstHash);
}

void GostCryptTest::freesDigests()
{
    QVERIFY(Digest(GCRY_MD_STRIBOG512).isValid()); // the first one loads what libgcrypt keeps
    const size_t before = mallinfo2().uordblks;
    for (int i = 0; i < 1000; ++i) {
        const Digest digest(GCRY_MD_STRIBOG512);
    }
    QVERIFY(mallinfo2().uordblks < before + 1000);
}

QTEST_GUILESS_MAIN(GostCryptTest)

#include "crypttest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "digest_p.h"
#include "shacrypt_p.h"

#include <QFile>
#include <QTest>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <random>

#include <crypt.h>
#include <strings.h>

extern "C" char *gost_crypt(const char *key, const char *setting);

namespace
{
const ShaCryptMethod sha512Crypt{"$6$", GCRY_MD_SHA512};

/** Null, or what was hashed by the construction of the provider with SHA-512 as its digest. */
QByteArray hashWithSha512(const QByteArray &key, const QByteArray &setting)
{
    ShaCryptHash hash;
    return shaCrypt(sha512Crypt, key.constData(), setting.constData(), hash) ? QByteArray(hash.data()) : QByteArray();
}

/** The same from the C library, whose token for a failure becomes null. */
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

/** A secret that is kept in another form, so that only others' copies of it are found in memory. */
class Secret
{
public:
    explicit Secret(QByteArray masked)
        : m_masked(std::move(masked))
    {
    }

    void reveal(char *buffer) const
    {
        for (int i = 0; i < m_masked.size(); ++i) {
            buffer[i] = static_cast<char>(m_masked.at(i) ^ mask);
        }
    }

    static void hide(char *buffer, size_t size)
    {
        for (size_t i = 0; i < size; ++i) {
            buffer[i] = static_cast<char>(buffer[i] ^ mask);
        }
    }

    /** Reads byte by byte whatever is there, also what a sanitizer guards. */
    __attribute__((no_sanitize("address"))) int copiesBetween(const char *begin, const char *end) const
    {
        const char *masked = m_masked.constData();
        const int size = m_masked.size();
        int copies = 0;
        for (const char *at = begin; at + size <= end; ++at) {
            int i = 0;
            while (i < size && (at[i] ^ mask) == masked[i]) {
                ++i;
            }
            copies += i == size;
        }
        return copies;
    }

private:
    static constexpr char mask = 0x55;

    QByteArray m_masked;
};

struct Memory {
    const char *begin;
    const char *end;
};

/** The writable memory of this process; without the shadow memory of a sanitizer. */
QVector<Memory> writableMemory()
{
    constexpr std::ptrdiff_t longest = 1 << 26;
    QVector<Memory> all;
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly)) {
        return all;
    }
    for (QByteArray line = maps.readLine(); !line.isEmpty(); line = maps.readLine()) {
        void *begin = nullptr;
        void *end = nullptr;
        char access[5] = "";
        if (sscanf(line.constData(), "%p-%p %4s", &begin, &end, access) != 3 || qstrncmp(access, "rw", 2) != 0) {
            continue;
        }
        const Memory memory{static_cast<const char *>(begin), static_cast<const char *>(end)};
        if (memory.end - memory.begin < longest) {
            all.append(memory);
        }
    }
    return all;
}

int copiesOf(const Secret &secret, const QVector<Memory> &memory)
{
    int copies = 0;
    for (const Memory &range : memory) {
        copies += secret.copiesBetween(range.begin, range.end);
    }
    return copies;
}
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
    void leavesNoCopyOfKey();
    void leavesNoCopyOfKeyDigest();
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
    // 999999999 rounds take minutes: what is left of the longest hash must fit as well.
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

void GostCryptTest::leavesNoCopyOfKey()
{
    constexpr int size = 40;
    const Secret secret(QByteArray("0123456789abcdefghijklmnopqrstuvwxyz-+*/"));
    static char key[size + 1];
    const char *setting = "$gost12512hash$rounds=1000$salt$";
    gost_crypt("warm up", setting);
    const QVector<Memory> memory = writableMemory();

    secret.reveal(key);
    QCOMPARE(copiesOf(secret, memory), 1);
    // At once, before other calls write over the stack.
    const bool hashed = gost_crypt(key, setting);
    explicit_bzero(key, sizeof(key));
    const int copies = copiesOf(secret, memory);
    QCOMPARE(copies, 0);
    QCOMPARE(copiesOf(secret, writableMemory()), 0);
    QVERIFY(hashed);
}

void GostCryptTest::leavesNoCopyOfKeyDigest()
{
    // The digest of the key repeated as often as it has characters is all that the rounds need of it.
    const QByteArray key = "sesame";
    QByteArray digest(DigestValue::size, '\0');
    gcry_md_hash_buffer(GCRY_MD_STRIBOG512, digest.data(), key.repeated(key.size()).constData(), 36);
    Secret::hide(digest.data(), DigestValue::size);
    const Secret secret(digest);
    const char *setting = "$gost12512hash$rounds=1000$salt$";
    gost_crypt("warm up", setting);
    const QVector<Memory> memory = writableMemory();

    static char revealed[DigestValue::size];
    secret.reveal(revealed);
    QCOMPARE(copiesOf(secret, memory), 1);
    explicit_bzero(revealed, sizeof(revealed));

    // At once, before other calls write over the stack.
    const bool hashed = gost_crypt(key.constData(), setting);
    const int copies = copiesOf(secret, memory);
    QCOMPARE(copies, 0);
    QVERIFY(hashed);
}

QTEST_GUILESS_MAIN(GostCryptTest)

#include "crypttest.moc"

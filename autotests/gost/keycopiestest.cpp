/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "digest_p.h"

#include <QFile>
#include <QTest>

#include <cstdio>
#include <utility>

#include <strings.h>

extern "C" char *gost_crypt(const char *key, const char *setting);

namespace
{
/** A secret that is stored masked, so that a search of the memory only finds copies made by others. */
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

    /** Reads all bytes, including those that a sanitizer guards. */
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

/** The writable memory of this process without the shadow memory of sanitizers. */
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

class GostKeyCopiesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leavesNoCopyOfKey();
    void leavesNoCopyOfKeyDigest();
};

void GostKeyCopiesTest::leavesNoCopyOfKey()
{
    constexpr int size = 40;
    const Secret secret(QByteArray("0123456789abcdefghijklmnopqrstuvwxyz-+*/"));
    static char key[size + 1];
    const char *setting = "$gost12512hash$rounds=1000$salt$";
    gost_crypt("warm up", setting);
    const QVector<Memory> memory = writableMemory();

    secret.reveal(key);
    QCOMPARE(copiesOf(secret, memory), 1);
    // Search at once, before other calls overwrite the stack.
    const bool hashed = gost_crypt(key, setting);
    explicit_bzero(key, sizeof(key));
    const int copies = copiesOf(secret, memory);
    QCOMPARE(copies, 0);
    QCOMPARE(copiesOf(secret, writableMemory()), 0);
    QVERIFY(hashed);
}

void GostKeyCopiesTest::leavesNoCopyOfKeyDigest()
{
    // The rounds only need one digest: that of the key, repeated as often as it has characters.
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

    // Search at once, before other calls overwrite the stack.
    const bool hashed = gost_crypt(key.constData(), setting);
    const int copies = copiesOf(secret, memory);
    QCOMPARE(copies, 0);
    QVERIFY(hashed);
}

QTEST_GUILESS_MAIN(GostKeyCopiesTest)

#include "keycopiestest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "fuzzing.h"
#include "shacrypt_p.h"

#include <cerrno>

#include <crypt.h>
#include <gcrypt.h>

using Fuzzing::require;

extern "C" char *gost_crypt(const char *key, const char *setting);

// An input is the setting in its first line, then the key.

namespace
{
constexpr char gostPrefix[] = "$gost12512hash$";
constexpr int gostPrefixLength = sizeof(gostPrefix) - 1;
constexpr char sha512Prefix[] = "$6$";
constexpr int longestKey = 511;
constexpr int hashLength = 86;

/** @p setting, but not with so many rounds that they take too long. Refused numbers stay. */
QByteArray withFewRounds(const QByteArray &setting)
{
    const QByteArray rounds = setting.mid(gostPrefixLength, 7);
    const int begin = gostPrefixLength + rounds.size();
    const int end = setting.indexOf('$', begin);
    if (rounds != "rounds=" || end < 0) {
        return setting;
    }
    bool isNumber = false;
    const uint number = setting.mid(begin, end - begin).toUInt(&isNumber);
    const bool isMuch = isNumber && number > 2000 && number <= 999999999;
    return isMuch ? setting.left(begin) + QByteArray::number(1000 + number % 1000) + setting.mid(end) : setting;
}

/** The error for @p key with @p setting, or 0. */
int expectedError(const QByteArray &key, const QByteArray &setting)
{
    if (!gost_crypt("", setting.constData())) {
        return EINVAL;
    }
    return key.size() > longestKey ? ERANGE : 0;
}

/** A byte array with the hash; a null one when it was refused. */
QByteArray gostHash(const QByteArray &key, const QByteArray &setting)
{
    const int expected = expectedError(key, setting);
    errno = 0;
    QByteArray hash = gost_crypt(key.constData(), setting.constData());
    require(errno == expected, QStringLiteral("What is refused is an invalid setting or a key that is too long"));
    require(hash.isNull() == (errno != 0), QStringLiteral("What is not refused is hashed"));
    return hash;
}

/** With the system's digest, the library's construction must produce the same hash as the system. */
void compareWithSystem(const QByteArray &key, const QByteArray &setting)
{
    ShaCryptHash buffer;
    const bool hashed = shaCrypt({"$6$", GCRY_MD_SHA512}, key.constData(), setting.constData(), buffer);
    const QByteArray systemHash = crypt(key.constData(), setting.constData());
    require((hashed ? QByteArray(buffer.data()) : QByteArray("*")) == (systemHash.startsWith('*') ? "*" : systemHash),
            QLatin1String("The hash of the system: ") + QString::fromLatin1(systemHash));
}

void checkForm(const QByteArray &hash)
{
    const QByteArray alphabet = "./0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    require(hash.startsWith(gostPrefix), QStringLiteral("A hash begins with its method"));
    const int separator = hash.lastIndexOf('$');
    require(hash.size() == separator + 1 + hashLength, QStringLiteral("A hash has 86 characters"));
    const QByteArray value = hash.mid(separator + 1);
    for (const char c : value) {
        require(alphabet.contains(c), QStringLiteral("A hash is made of 64 characters"));
    }
}
}

void Target::prepare()
{
}

void Target::run(const QByteArray &input)
{
    const int end = input.indexOf('\n');
    const QByteArray setting = withFewRounds(input.left(end).constData());
    const QByteArray key = end < 0 ? QByteArray("") : QByteArray(input.constData() + end + 1);

    const QByteArray hash = gostHash(key, setting);
    if (!setting.startsWith(gostPrefix)) {
        require(hash.isNull(), QStringLiteral("Other methods are refused"));
        return;
    }
    if (key.size() <= longestKey) {
        compareWithSystem(key, sha512Prefix + setting.mid(gostPrefixLength));
    }
    if (!hash.isNull()) {
        checkForm(hash);
        require(gostHash(key, hash) == hash, QStringLiteral("A key and its hash give that hash"));
    }
}

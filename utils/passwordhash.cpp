/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "userutils.h"

#include <QRandomGenerator>

#include <crypt.h>

extern "C" {
#ifdef HAVE_GOST_CRYPT
char *gost_crypt(const char *key, const char *setting);
#else
// Null unless something in the process provides it.
__attribute__((weak)) char *gost_crypt(const char *key, const char *setting);
#endif
}

namespace
{
struct Method {
    const char *prefix;
    char *(*hash)(const char *key, const char *setting);
};

constexpr int saltLength = 16;
}

char UserUtils::saltCharacter()
{
    static constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz./0123456789";
    return alphabet[QRandomGenerator::system()->bounded(64U)];
}

QString UserUtils::saltPassword(const QString &password, bool useGost)
{
    const Method method = useGost ? Method{"$gost12512hash$", gost_crypt} : Method{"$6$", crypt};
    QByteArray setting = method.prefix;
    for (int i = 0; i < saltLength; ++i) {
        setting += saltCharacter();
    }
    setting += '$';
    return method.hash ? QString::fromUtf8(method.hash(password.toUtf8().constData(), setting.constData())) : QString();
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PASSWORDHASH_H
#define PASSWORDHASH_H

#include <QString>

/** A hash for the shadow file, or the reason why there is none. */
struct PasswordHash {
    QString hash;
    QString error;
};

/** Hashes @p password by SHA-512 or by GOST R 34.11-2012. */
PasswordHash makePasswordHash(const QString &password, bool useGost);

#endif

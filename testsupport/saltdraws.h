/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SALTDRAWS_H
#define SALTDRAWS_H

#include <QByteArray>
#include <QVector>

#include <cstring>

inline constexpr char saltAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz./0123456789";

/** The numbers of the system's generator that make the salt @p salt. */
inline QVector<quint32> saltDraws(const QByteArray &salt)
{
    QVector<quint32> draws;
    for (const char c : salt) {
        draws.append(quint32(strchr(saltAlphabet, c) - saltAlphabet) << 26);
    }
    return draws;
}

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef RANDOMSESSIONLIMITS_H
#define RANDOMSESSIONLIMITS_H

#include <QMap>
#include <QString>

#include <initializer_list>
#include <random>

/** Pseudo-random limits files, made of a few words, so that rules often match the same account. */
class RandomSessionLimits
{
public:
    explicit RandomSessionLimits(unsigned seed);

    QByteArray file();

    /** Files of limits.d by their names. */
    QMap<QString, QByteArray> dropIns();

private:
    int below(int bound);
    bool oneIn(int count);
    QByteArray oneOf(std::initializer_list<const char *> texts);
    QByteArray space();
    QByteArray domain();
    QByteArray type();
    QByteArray item();
    QByteArray value();
    QByteArray rule();
    QByteArray oddLine();
    QByteArray longLine();

    std::mt19937 m_random;
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PROBLEMTEXTS_H
#define PROBLEMTEXTS_H

#include "problem.h"

#include <QHash>

/** The texts of very many problems. What is the same for a kind of problem is translated once only. */
class ProblemTexts
{
public:
    /** As Problem::text(). */
    QString text(const Problem &problem);

    /** As Problem::meaning(). */
    QString meaning(const Problem &problem);

    /** As Problem::remedy(). */
    QString remedy(const Problem &problem);

private:
    struct Kind {
        /** The text with a mark in the place of each detail, by the number of details. */
        QHash<int, QString> patterns;
        QString meaning;
        QString remedy;
    };

    QHash<int, Kind> m_kinds;
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PROBLEMKIND_H
#define PROBLEMKIND_H

#include "problem.h"

#include <KLazyLocalizedString>

/** What all problems of a kind share. */
struct ProblemKind {
    Problem::Kind kind;
    Problem::Severity severity;
    const char *id;
    KLazyLocalizedString text;
    KLazyLocalizedString meaning;
    KLazyLocalizedString remedy;
};

const ProblemKind &problemKind(Problem::Kind kind);

#endif

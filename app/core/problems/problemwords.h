/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PROBLEMWORDS_H
#define PROBLEMWORDS_H

#include "problem.h"

namespace ProblemWords
{
/** "error", "warning" or "note", in the language of the operator. */
QString severity(Problem::Severity severity);

/** The same for scripts. */
QString id(Problem::Severity severity);
}

#endif

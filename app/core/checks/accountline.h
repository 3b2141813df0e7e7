/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTLINE_H
#define ACCOUNTLINE_H

#include "accountfiles.h"

#include <optional>

/** A line of an account file as the C library and the tools that change accounts understand it. */
template<typename Line>
struct AccountLine {
    /** What the C library reads from the line, if it does. */
    std::optional<Line> line;
    std::optional<Problem> problem;
};

/** @p Line is one of the lines of AccountFiles. */
template<typename Line>
AccountLine<Line> parseAccountLine(const QByteArray &text, int number);

#endif

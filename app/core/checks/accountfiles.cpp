/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfiles.h"

#include "accountline.h"
#include "textlines.h"

namespace
{
template<typename Line>
AccountFile<Line> readFile()
{
    const TextLines text = readTextLines(Line::path);
    AccountFile<Line> file;
    file.error = text.error;
    int number = 0;
    for (const QByteArray &line : text.lines) {
        ++number;
        const AccountLine<Line> result = parseAccountLine<Line>(line, number);
        if (result.line) {
            file.lines.append(*result.line);
        }
        if (result.problem) {
            file.problems.append(*result.problem);
        }
    }
    return file;
}
}

AccountFiles AccountFiles::read()
{
    return {readFile<UserLine>(), readFile<GroupLine>(), readFile<UserShadowLine>(), readFile<GroupShadowLine>()};
}

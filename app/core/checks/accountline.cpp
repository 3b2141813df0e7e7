/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountline.h"

#include "lineproblem.h"

#include <algorithm>
#include <cstdio>
#include <memory>

#include <grp.h>
#include <gshadow.h>
#include <pwd.h>
#include <shadow.h>

namespace
{
using Fields = QByteArrayList;

// How the lines of each file are read. A function of the C library decides whether there is an entry.
// It may trim fields, so the fields are taken from the text itself.
template<typename Line>
struct Format;

template<>
struct Format<UserLine> {
    using Entry = passwd;
    static constexpr auto read = fgetpwent_r;
    static constexpr int fieldCount = 7;

    static UserLine line(const passwd &entry, const Fields &fields)
    {
        UserLine line;
        line.password = fields.value(1);
        line.uid = entry.pw_uid;
        line.gid = entry.pw_gid;
        line.home = entry.pw_dir;
        line.shell = entry.pw_shell;
        return line;
    }
};

template<>
struct Format<GroupLine> {
    using Entry = group;
    static constexpr auto read = fgetgrent_r;
    static constexpr int fieldCount = 4;

    static GroupLine line(const group &entry, const Fields &fields)
    {
        GroupLine line;
        line.password = fields.value(1);
        line.gid = entry.gr_gid;
        line.members = names(fields.value(3));
        return line;
    }

    /** The C library leaves out empty names. */
    static QByteArrayList names(const QByteArray &field)
    {
        return field.isEmpty() ? QByteArrayList() : field.split(',');
    }
};

template<>
struct Format<UserShadowLine> {
    using Entry = spwd;
    static constexpr auto read = fgetspent_r;
    static constexpr int fieldCount = 9;

    static UserShadowLine line(const spwd &entry, const Fields &fields)
    {
        UserShadowLine line;
        line.password = fields.value(1);
        line.lastChange = entry.sp_lstchg;
        line.validDays = entry.sp_max;
        line.expires = entry.sp_expire;
        return line;
    }
};

template<>
struct Format<GroupShadowLine> {
    using Entry = sgrp;
    static constexpr auto read = fgetsgent_r;
    static constexpr int fieldCount = 4;

    static GroupShadowLine line(const sgrp & /*entry*/, const Fields &fields)
    {
        GroupShadowLine line;
        line.administrators = Format<GroupLine>::names(fields.value(2));
        line.members = Format<GroupLine>::names(fields.value(3));
        return line;
    }
};

struct StreamCloser {
    void operator()(FILE *stream) const
    {
        fclose(stream);
    }
};

/** Whether the C library finds an entry in @p text; it points into @p buffer. */
template<typename Line>
bool readEntry(QByteArray text, QByteArray &buffer, typename Format<Line>::Entry &entry)
{
    // The C library misreads an indented line without an end.
    text += '\n';
    // Room for the text and for a pointer to each member.
    buffer.resize(1024 + text.size() * int(1 + sizeof(char *)));
    const std::unique_ptr<FILE, StreamCloser> stream(fmemopen(text.data(), size_t(text.size()), "r"));
    typename Format<Line>::Entry *found = nullptr;
    return stream && Format<Line>::read(stream.get(), &entry, buffer.data(), size_t(buffer.size()), &found) == 0
        && found;
}

QByteArray withoutIndent(const QByteArray &text)
{
    const auto *const begin = std::find_if_not(text.begin(), text.end(), [](char c) { return isspace(uchar(c)); });
    return QByteArray(begin, int(text.end() - begin));
}
}

template<typename Line>
AccountLine<Line> parseAccountLine(const QByteArray &text, int number)
{
    const auto noAccount = [number](Problem::Kind kind) {
        Problem problem;
        problem.kind = kind;
        problem.file = QString::fromLatin1(Line::path);
        problem.line = number;
        return AccountLine<Line>{std::nullopt, problem};
    };
    const QByteArray trimmed = withoutIndent(text);
    if (trimmed.isEmpty() || trimmed.startsWith('#')) {
        return noAccount(Problem::Kind::CommentLine);
    }
    if (trimmed.startsWith('+') || trimmed.startsWith('-')) {
        return noAccount(Problem::Kind::NisLine);
    }
    QByteArray buffer;
    typename Format<Line>::Entry entry = {};
    if (text.contains('\0') || !readEntry<Line>(text, buffer, entry)) {
        return noAccount(Problem::Kind::MalformedLine);
    }
    const Fields fields = text.split(':');
    Line line = Format<Line>::line(entry, fields);
    line.number = number;
    line.name = fields.value(0);
    if (fields.size() == Format<Line>::fieldCount) {
        return {line, std::nullopt};
    }
    const QStringList counts{QString::number(fields.size()), QString::number(Format<Line>::fieldCount)};
    return {line, lineProblem(Problem::Kind::WrongFieldCount, line, counts)};
}

template AccountLine<UserLine> parseAccountLine(const QByteArray &text, int number);
template AccountLine<GroupLine> parseAccountLine(const QByteArray &text, int number);
template AccountLine<UserShadowLine> parseAccountLine(const QByteArray &text, int number);
template AccountLine<GroupShadowLine> parseAccountLine(const QByteArray &text, int number);

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitrules.h"

#include <algorithm>

namespace
{
using PamLimits::Text;

constexpr int linesBetweenReports = 50000;
constexpr int all = 100;

/** The part of a text that is read at a time, with its line end. */
Text nextPiece(Text text, int maxLength)
{
    const size_t end = text.find('\n');
    const size_t length = end == Text::npos ? text.size() : end + 1;
    return text.substr(0, maxLength > 0 ? std::min(length, size_t(maxLength)) : length);
}

bool isTrimmed(char c, const PamLimits::Module &module)
{
    return module.anySpaceSeparates ? PamLimits::isSpace(c) : c == ' ' || c == '\t';
}

/** The part of @p piece that counts: a comment or a NUL byte ends it. */
Text statementIn(Text piece, const PamLimits::Module &module)
{
    piece = piece.substr(0, piece.find('\0'));
    piece = piece.substr(0, piece.find('#'));
    piece = piece.substr(0, piece.find('\n'));
    while (!piece.empty() && PamLimits::isSpace(piece.front())) {
        piece.remove_prefix(1);
    }
    while (!piece.empty() && isTrimmed(piece.back(), module)) {
        piece.remove_suffix(1);
    }
    return piece;
}
}

PamLimits::Rules::Rules(Files files, const Module &module, const Progress &progress)
    : m_files(std::move(files))
    , m_module(module)
{
    for (int i = 0; i < m_files.files.size(); ++i) {
        addFile(i, progress);
    }
}

void PamLimits::Rules::addFile(int index, const Progress &progress)
{
    const QByteArray &content = m_files.files.at(index).content;
    const Text text(content.constData(), size_t(content.size()));
    quint32 number = 1;
    for (size_t at = 0; at < text.size();) {
        const Text piece = nextPiece(text.substr(at), m_module.lineLength);
        const Text statement = statementIn(piece, m_module);
        if (!statement.empty()) {
            Line line;
            line.offset = quint32(statement.data() - text.data());
            line.length = quint32(statement.size());
            line.number = number;
            line.file = quint16(index);
            addLine(line, statement);
        }
        if (progress && m_lines.size() % linesBetweenReports == 0) {
            progress(int(at * all / text.size()));
        }
        number += piece.back() == '\n' ? 1 : 0;
        at += piece.size();
    }
}

void PamLimits::Rules::addLine(Line line, Text statement)
{
    const Columns columns = PamLimits::columnsOf(statement, m_module);
    line.domain = placeOf(columns.at(0));
    if (m_domains.at(int(line.domain)).range == Domain::Range::Invalid) {
        line.kind = LineKind::BadRange;
    } else {
        readColumns(columns, line);
    }
    m_lines.append(line);
}

quint32 PamLimits::Rules::placeOf(Text domain)
{
    const auto known = m_places.constFind(QByteArray::fromRawData(domain.data(), int(domain.size())));
    if (known != m_places.constEnd()) {
        return *known;
    }
    const auto place = quint32(m_domains.size());
    m_domains.append(Domain::parse(domain));
    m_places.insert(m_domains.constLast().text, place);
    return place;
}

const QVector<PamLimits::File> &PamLimits::Rules::files() const
{
    return m_files.files;
}

QString PamLimits::Rules::directoryError() const
{
    return m_files.directoryError;
}

const QVector<PamLimits::Line> &PamLimits::Rules::lines() const
{
    return m_lines;
}

const QVector<PamLimits::Domain> &PamLimits::Rules::domains() const
{
    return m_domains;
}

int PamLimits::Rules::findDomain(const QByteArray &text) const
{
    return int(m_places.value(text, quint32(-1)));
}

const PamLimits::Module &PamLimits::Rules::module() const
{
    return m_module;
}

const PamLimits::File &PamLimits::Rules::fileOf(const Line &line) const
{
    return m_files.files.at(line.file);
}

const PamLimits::Domain &PamLimits::Rules::domainOf(const Line &line) const
{
    return m_domains.at(int(line.domain));
}

PamLimits::Text PamLimits::Rules::textOf(const Line &line) const
{
    return {fileOf(line).content.constData() + line.offset, line.length};
}

PamLimits::Columns PamLimits::Rules::columnsOf(const Line &line) const
{
    return PamLimits::columnsOf(textOf(line), m_module);
}

QString PamLimits::Rules::placeOf(const Line &line) const
{
    return fileOf(line).path + QLatin1Char(':') + QString::number(line.number);
}

bool PamLimits::Rules::isEffective(const Line &line) const
{
    return fileOf(line).isRead() && (line.kind == LineKind::Rule || line.kind == LineKind::Exemption);
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITRULES_H
#define LIMITRULES_H

#include "limitdomain.h"
#include "limitfiles.h"
#include "limitline.h"

#include <QHash>

#include <functional>

namespace PamLimits
{
/** Receives the progress of a long task in percent. */
using Progress = std::function<void(int percent)>;

/** All lines of the limits files that are neither empty nor comments. */
class Rules
{
public:
    /** No lines. */
    Rules() = default;

    /** Reads the lines of @p files as @p module does. */
    Rules(Files files, const Module &module, const Progress &progress = {});

    const QVector<File> &files() const;

    /** Why limits.d cannot be listed; empty when it can. */
    QString directoryError() const;

    /** In the order in which they are read. Lines of files that are not read are among them. */
    const QVector<Line> &lines() const;

    /** The first columns of all lines, each of them once. */
    const QVector<Domain> &domains() const;

    /** The place of the domain with exactly this text; -1 when no line has it. */
    int findDomain(const QByteArray &text) const;

    const Module &module() const;

    const File &fileOf(const Line &line) const;
    const Domain &domainOf(const Line &line) const;

    /** Without blanks at either end, and without a comment. */
    Text textOf(const Line &line) const;
    Columns columnsOf(const Line &line) const;

    /** As "/etc/security/limits.conf:3". */
    QString placeOf(const Line &line) const;

    /** Whether pam_limits takes @p line for a rule or an exemption. */
    bool isEffective(const Line &line) const;

private:
    void addFile(int index, const Progress &progress);
    void addLine(Line line, Text statement);
    quint32 placeOf(Text domain);

    Files m_files;
    Module m_module;
    QVector<Line> m_lines;
    QVector<Domain> m_domains;
    QHash<QByteArray, quint32> m_places;
};
}

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef RECORDTEXT_H
#define RECORDTEXT_H

#include <QStringList>

/**
 * The library's records hold names and paths as Latin-1: each character stands for one byte of the
 * file. Most files are written in UTF-8.
 */
namespace RecordText
{
/** Decodes @p record from UTF-8 if its bytes are valid UTF-8, and leaves it as it is otherwise. */
QString decode(const QString &record);
QStringList decode(QStringList records);

/** The texts of a record that read as @p text, the likely one first. */
QStringList encode(const QString &text);
}

#endif

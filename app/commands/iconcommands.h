/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ICONCOMMANDS_H
#define ICONCOMMANDS_H

#include "command.h"

/** The option that says where the icon is written; it is required. */
QString iconOutputOption();

QList<QCommandLineOption> pickIconOptions();

/**
 * Lets the operator cut an icon out of a picture and writes it. The exit status is 1 when that was
 * cancelled or the icon cannot be written, 2 when there is no picture.
 */
int pickIcon(const QCommandLineParser &options, const QString &file);

#endif

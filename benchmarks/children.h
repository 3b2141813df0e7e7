/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CHILDREN_H
#define CHILDREN_H

#include <QStringList>

/** Programs that are run to measure something or to be measured. */
namespace Children
{
/** Runs a program, which must succeed, and returns its output. */
QByteArray outputOf(const QString &program, const QStringList &arguments);

/** Runs a program, which must succeed, and returns the processor time that it took. */
double secondsOf(const QString &program, const QStringList &arguments);
}

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef HOSTILEFACES_H
#define HOSTILEFACES_H

#include <QString>
#include <QVector>

#include <functional>

/** What somebody may put in place of a picture to hang, crash or mislead the program that shows it. */
struct HostileFace {
    QString name;
    std::function<void(const QString &path)> make;
};

/** What they refer to; it must not be opened. Removed and made again by hostileFaces(). */
QString hostileTarget();

QVector<HostileFace> hostileFaces();

/** A named pipe that nobody writes to. */
void makePipe(const QString &path);

void makeSocket(const QString &path);

#endif

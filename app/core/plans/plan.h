/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PLAN_H
#define PLAN_H

#include <QByteArrayList>
#include <QStringList>
#include <QVector>

/** The commands that make a change, for the administrator to run. Nothing in this program runs them. */
struct Plan {
    /** A program and its arguments, as bytes. */
    using Command = QByteArrayList;

    QVector<Command> commands;
    /** Notes about the commands, each of one or more sentences. */
    QStringList notes;
    /** Whether a password hash is among the arguments. */
    bool holdsHash = false;

    /** The commands for a POSIX shell, one a line, in UTF-8. */
    QByteArray toText() const;

    /** A script that runs them and stops at the first one that fails. */
    QByteArray toScript() const;

    /** Adds a command. An @p operand that begins with a dash is kept from being an option. */
    void add(Command command, const QByteArray &operand);
};

#endif

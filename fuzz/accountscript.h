/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTSCRIPT_H
#define ACCOUNTSCRIPT_H

#include "fuzzing.h"
#include "sandbox.h"

#include <QHash>

/** The account files, which a script writes line by line and then puts in place. */
class AccountScript
{
public:
    AccountScript()
    {
        add("user", "root:x:0:0::/root:/bin/sh");
        add("user", "zoe:x:1000:1000::/home/zoe:/bin/sh");
        add("user", "adam:x:1001:50::/home/adam:/bin/sh");
        add("group", "root:x:0:");
        add("group", "zoe:x:1000:");
        add("group", "staff:x:50:zoe");
        add("group", "ormel-admin:x:27:adam");
        put();
    }

    /** Carries out "user LINE", "group LINE" and "put". */
    void act(const Fuzzing::Command &command)
    {
        const QByteArray &verb = command.verb();
        if (verb == "user" || verb == "group") {
            add(verb, command.text(0).toLatin1());
        } else if (verb == "put") {
            put();
        }
    }

private:
    void add(const QByteArray &file, const QByteArray &line)
    {
        m_lines[file] += line + '\n';
    }

    void put()
    {
        Sandbox::setAccounts(m_lines.value("user"), m_lines.value("group"));
        m_lines.clear();
    }

    QHash<QByteArray, QByteArray> m_lines;
};

/** Runs the script @p input: each command on the account files, on a stage for users and on one for groups. */
template<typename UserStage, typename GroupStage>
void runScript(const QByteArray &input, int mostCommands)
{
    AccountScript files;
    UserStage users;
    GroupStage groups;
    const QList<Fuzzing::Command> commands = Fuzzing::commands(input, mostCommands);
    for (const Fuzzing::Command &command : commands) {
        files.act(command);
        users.act(command);
        users.check();
        groups.act(command);
        groups.check();
    }
}

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "plan.h"

#include "shellquote.h"

#include <KLocalizedString>

#include <algorithm>
#include <iterator>

namespace
{
QByteArray comment(const QString &text)
{
    return "# " + text.toUtf8() + '\n';
}
}

QByteArray Plan::toText() const
{
    QByteArray text;
    for (const Command &command : commands) {
        QByteArrayList words;
        std::transform(command.begin(), command.end(), std::back_inserter(words), quoteForShell);
        text += words.join(' ') + '\n';
    }
    return text;
}

QByteArray Plan::toScript() const
{
    QByteArray script = "#!/bin/sh\n" + comment(i18n("Read this before you run it as root."));
    if (holdsHash) {
        script += comment(i18n("It contains a password hash: let nobody read it, and delete it after running it."));
    }
    return script + "set -e\n" + toText();
}

void Plan::add(Command command, const QByteArray &operand)
{
    if (operand.startsWith('-')) {
        command.append("--");
    }
    commands.append(command << operand);
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "librarymessage.h"

#include "recordtext.h"

#include <KLocalizedString>

namespace
{
QString unreadFile(const QString &path)
{
    return i18n("Cannot read '%1'.", path);
}

/** Code that asks for a group by name reports itself that there is none. Nobody asks for the administrators. */
QString missingGroup(const QString &name)
{
    return name == QLatin1String("ormel-admin")
        ? i18n("There is no group ormel-admin, so nobody is an administrator here.")
        : QString();
}

QString nothing(const QString & /*detail*/)
{
    return {};
}

const struct {
    QLatin1String begin;
    QString (*meaning)(const QString &detail);
} libraryMessages[] = {
    {QLatin1String("UserInfo: unable to open "), unreadFile},
    {QLatin1String("GroupInfo: unable to open "), unreadFile},
    {QLatin1String("GroupInfo: unable to find group entry by name: "), missingGroup},
    {QLatin1String("GroupInfo: unable to find group entry by gid: "), nothing},
};
}

QString meaningOfMessage(const QString &message)
{
    for (const auto &known : libraryMessages) {
        if (message.startsWith(known.begin)) {
            return known.meaning(RecordText::decode(message.mid(known.begin.size())));
        }
    }
    return message;
}

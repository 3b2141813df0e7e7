/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include <LimitsParser>

#include <cstdio>

// Linked into one program and loaded by another.

namespace
{
void print(const QString &text)
{
    puts(text.toUtf8().constData());
}
}

extern "C" Q_DECL_EXPORT void printTexts()
{
    print(LimitsParser::itemToolTip(QStringLiteral("core")));
    print(LimitsParser::m_fieldDescriptionsMap.value(QStringLiteral("chroot")).description);
    print(LimitsParser::typeToolTip(QStringLiteral("soft")));
    print(LimitsParser::valueToString(102400, QStringLiteral("core")));
    print(LimitsParser::valueToString(1, QStringLiteral("nonewprivs")));
    print(LimitsParser::domainToolTip(QStringLiteral("*")));
    print(LimitsParser::domainToolTip(QStringLiteral("//d://")));
    print(LimitsParser::domainToolTip(QStringLiteral("@staff")));
    QString error;
    LimitsParser().readLimitsConf(error);
    print(error);
}

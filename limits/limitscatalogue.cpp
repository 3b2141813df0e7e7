/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsparser.h"

#include <KLocalizedString>

#include <QCoreApplication>

#include <limits>

namespace
{
constexpr int unlimited = -1;
constexpr int highest = std::numeric_limits<int>::max();

/** Without an application KI18n knows no language. It would return the English text, too, but with a warning. */
QString translated(const KLocalizedString &text)
{
    return QCoreApplication::instance() ? text.toString() : QString::fromUtf8(text.untranslatedText());
}

LimitsParser::FieldDescriptor soft(int min, int max, LimitsParser::ValueType type, const KLocalizedString &description)
{
    return {min, max, type, false, QStringLiteral("soft"), translated(description)};
}

LimitsParser::FieldDescriptor
hardOnly(int min, int max, LimitsParser::ValueType type, const KLocalizedString &description)
{
    return {min, max, type, true, QStringLiteral("hard"), translated(description)};
}
}

// clang-format off: one line an item
const QMap<QString, LimitsParser::FieldDescriptor> LimitsParser::m_fieldDescriptionsMap = {
    {QStringLiteral("core"), soft(unlimited, highest, KiloBytes, ki18n("Maximum core file size."))},
    {QStringLiteral("data"), soft(unlimited, highest, KiloBytes, ki18n("Maximum data size."))},
    {QStringLiteral("fsize"), soft(unlimited, highest, KiloBytes, ki18n("Maximum filesize."))},
    {QStringLiteral("memlock"), soft(unlimited, highest, KiloBytes, ki18n("Maximum locked-in-memory address space."))},
    {QStringLiteral("nofile"), soft(unlimited, highest, Number, ki18n("Maximum number of open file descriptors."))},
    {QStringLiteral("stack"), soft(unlimited, highest, KiloBytes, ki18n("Maximum stack size."))},
    {QStringLiteral("cpu"), soft(unlimited, highest, Minutes, ki18n("Maximum CPU time."))},
    {QStringLiteral("nproc"), soft(unlimited, highest, Number, ki18n("Maximum number of processes."))},
    {QStringLiteral("as"), soft(unlimited, highest, KiloBytes, ki18n("Address space limit."))},
    {QStringLiteral("maxlogins"),
     hardOnly(unlimited, highest, Number, ki18n("Maximum number of logins for this user."))},
    {QStringLiteral("maxsyslogins"),
     hardOnly(unlimited, highest, Number, ki18n("Maximum number of all logins on system."))},
    {QStringLiteral("nonewprivs"),
     hardOnly(0, 1, Boolean, ki18n("Disable acquiring new privileges by invoking prctl(PR_SET_NO_NEW_PRIVS)."))},
    {QStringLiteral("priority"), soft(-20, 19, Number, ki18n("The priority to run user process with."))},
    {QStringLiteral("locks"), soft(unlimited, highest, Number, ki18n("Maximum locked files."))},
    {QStringLiteral("sigpending"), soft(unlimited, highest, Number, ki18n("Maximum number of pending signals."))},
    {QStringLiteral("msgqueue"),
     soft(unlimited, highest, Bytes, ki18n("Maximum memory used by POSIX message queues."))},
    {QStringLiteral("nice"), soft(-20, 19, Number, ki18n("Maximum nice priority allowed to raise to."))},
    {QStringLiteral("rtprio"),
     soft(unlimited, highest, Number, ki18n("Maximum realtime priority allowed for non-privileged processes."))},
    {QStringLiteral("chroot"), soft(-1, -1, Path, ki18n("The directory to chroot the user to."))},
};
// clang-format on

LimitsParser::FieldDescriptor LimitsParser::fieldDescriptor(const QString &item)
{
    return m_fieldDescriptionsMap.value(item);
}

int LimitsParser::valueType(const QString &item)
{
    const auto found = m_fieldDescriptionsMap.constFind(item);
    return found == m_fieldDescriptionsMap.constEnd() ? Unknown : found->valueType;
}

QStringList LimitsParser::availableItems()
{
    return m_fieldDescriptionsMap.keys();
}

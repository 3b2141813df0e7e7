/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "chosennames.h"

#include "recordtext.h"
#include "visibletext.h"

#include <KLocalizedString>

#include <algorithm>

namespace
{
QString joined(const QStringList &names)
{
    QStringList shown = RecordText::decode(names);
    std::transform(shown.begin(), shown.end(), shown.begin(), VisibleText::isolated);
    return shown.join(i18nc("separator in a list of names", ", "));
}
}

QString chosenGroups(const QStringList &names)
{
    return names.isEmpty() ? i18n("No groups chosen.")
                           : i18np("%1 group: %2", "%1 groups: %2", names.size(), joined(names));
}

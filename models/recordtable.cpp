/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "recordtable_p.h"

#include <KLocalizedString>

QVariant RecordTable::checkState(bool checked)
{
    return static_cast<int>(checked ? Qt::Checked : Qt::Unchecked);
}

QString RecordTable::nameHeader()
{
    return i18n("Name");
}

QString RecordTable::yesOrNo(bool value)
{
    return value ? i18n("Yes") : i18n("No");
}

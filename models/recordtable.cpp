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
    return ki18nd("ormel_kcm_users", "Name").toString();
}

QString RecordTable::yesOrNo(bool value)
{
    const KLocalizedString text = value ? ki18nd("ormel_kcm_users", "Yes") : ki18nd("ormel_kcm_users", "No");
    return text.toString();
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef NAMELENGTH_P_H
#define NAMELENGTH_P_H

#include <QString>

/** Whether @p name is longer than the system's account databases take. */
inline bool isNameTooLong(const QString &name)
{
    return name.size() > 32;
}

#endif

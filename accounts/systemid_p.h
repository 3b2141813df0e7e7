/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SYSTEMID_P_H
#define SYSTEMID_P_H

#include <QtGlobal>

/** Whether @p id, of a user or a group, is reserved for the system; 65534 is "nobody" and "nogroup". */
inline constexpr bool isSystemId(uint id)
{
    return id <= 999 || id == 65534;
}

#endif

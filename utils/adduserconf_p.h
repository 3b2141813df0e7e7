/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ADDUSERCONF_P_H
#define ADDUSERCONF_P_H

#include <QString>

/** The value of NAME_REGEX in /etc/adduser.conf; empty when there is none or the file cannot be read. */
QString adduserNamePattern();

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTICONS_H
#define ACCOUNTICONS_H

class QIcon;

/** The application's own icons: in many themes users and system accounts look the same. */
namespace AccountIcons
{
QIcon user();
QIcon systemUser();
QIcon group();
QIcon systemGroup();

/** For a name without an account. */
QIcon missing();
}

#endif

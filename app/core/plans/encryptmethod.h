/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ENCRYPTMETHOD_H
#define ENCRYPTMETHOD_H

#include <QString>

/** A sentence that says by which method the system itself hashes passwords, from /etc/login.defs. */
QString encryptMethodNote();

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef WRITEACCOUNTS_H
#define WRITEACCOUNTS_H

#include <QString>

/** The command that runs writeAccounts(). Only this program uses it. */
QString writeAccountsCommand();

/** Reads the accounts of the machine and writes them as packets to standard output; the exit status. */
int writeAccounts();

/** The text of AccountPacket::Hello, since only the same version of the program understands the packets. */
QString accountsHello();

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef WRITEACCOUNTS_H
#define WRITEACCOUNTS_H

#include <QString>

/** The word of the command line that runs writeAccounts(). Nobody but this program needs it. */
QString writeAccountsCommand();

/** Reads the accounts of the machine and writes them as packets to standard output; the exit status. */
int writeAccounts();

/** The text of AccountPacket::Hello: only the same program understands what it sends. */
QString accountsHello();

#endif

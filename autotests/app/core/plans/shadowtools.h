/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SHADOWTOOLS_H
#define SHADOWTOOLS_H

#include "plan.h"

/** Runs plans with the system's useradd, usermod and their like on the files of the sandbox. */
namespace ShadowTools
{
/** Writes the account files, and the others that the tools need. Homes are made in homes(). */
void setAccounts(const QByteArray &passwd, const QByteArray &group);

QString homes();

/** Runs the script of a plan from a file. @return its messages when it failed; empty when it did not. */
QByteArray run(const Plan &plan);
}

#endif

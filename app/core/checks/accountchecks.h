/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTCHECKS_H
#define ACCOUNTCHECKS_H

#include "problem.h"

struct AccountFiles;

// Each looks at one subject. Accounts that are not in the files are looked up in the name service.

/** Lines that the C library or the tools that change accounts do not understand. */
QList<Problem> checkLines(const AccountFiles &files);

/** Names that occur twice in a file. */
QList<Problem> checkDuplicateNames(const AccountFiles &files);

/** Names that are not valid, or that the rule for new names refuses. */
QList<Problem> checkNames(const AccountFiles &files);

/** UIDs and GIDs that are shared, not valid, or those of root, and missing primary groups. */
QList<Problem> checkIds(const AccountFiles &files);

/** Members and administrators of groups that are not users. */
QList<Problem> checkMembers(const AccountFiles &files);

/** Home directories that do not exist or belong to somebody else. */
QList<Problem> checkHomes(const AccountFiles &files);

/** Shells that do not exist or are not in /etc/shells. */
QList<Problem> checkShells(const AccountFiles &files);

/** Passwords and accounts that are empty, locked or expired. */
QList<Problem> checkPasswords(const AccountFiles &files);

/** Accounts that do not match their lines in the shadow files. */
QList<Problem> checkShadowLines(const AccountFiles &files);

#endif

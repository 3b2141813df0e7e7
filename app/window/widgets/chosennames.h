/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CHOSENNAMES_H
#define CHOSENNAMES_H

#include <QStringList>

/** For example "2 groups: audio, video". */
QString chosenGroups(const QStringList &names);

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "children.h"
#include "comparison.h"
#include "program.h"

using benchmark::State;

namespace
{
void load(State &state, const QStringList &libraries)
{
    const QString program = Program::builtFile(QStringLiteral("loadtime"));
    for ([[maybe_unused]] auto iteration : state) {
        state.SetIterationTime(Children::outputOf(program, libraries).toDouble());
    }
}

QStringList qtLibraries()
{
    return {QStringLiteral("libQt5Widgets.so.5"), QStringLiteral("libKF5I18n.so.5")};
}

void loadLibrary(State &state)
{
    load(state, {QStringLiteral(LIBRARY)});
}

void loadQt(State &state)
{
    load(state, qtLibraries());
}

void loadLibraryAfterQt(State &state)
{
    load(state, qtLibraries() + QStringList(QStringLiteral(LIBRARY)));
}
}

Comparisons loadComparisons()
{
    return {
        {"load",
         "loading the library",
         "loading Qt Widgets and KI18n",
         {1.1, 0, 1.7},
         "#loading",
         {},
         benchmark::oNone,
         loadLibrary,
         loadQt,
         Figure::ChildTime},
        {"load-later",
         "loading Qt Widgets, KI18n and then the library",
         "loading Qt Widgets and KI18n",
         {1.1, 0, 1.3},
         "#loading",
         {},
         benchmark::oNone,
         loadLibraryAfterQt,
         loadQt,
         Figure::ChildTime},
    };
}

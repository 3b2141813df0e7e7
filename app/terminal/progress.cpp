/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "progress.h"

#include <cstdio>

#include <unistd.h>

namespace
{
/** In milliseconds. Shorter tasks show nothing, and longer ones are not shown more often than this. */
constexpr int interval = 500;
}

Progress::Progress()
    : m_isTerminal(isatty(STDERR_FILENO) == 1)
{
    m_time.start();
}

Progress::~Progress()
{
    if (m_isShown) {
        fputs("\r     \r", stderr);
    }
}

void Progress::show(int percent)
{
    if (m_isTerminal && m_time.elapsed() >= interval) {
        fprintf(stderr, "\r%3d %%", percent);
        m_isShown = true;
        m_time.restart();
    }
}

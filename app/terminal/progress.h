/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PROGRESS_H
#define PROGRESS_H

#include <QElapsedTimer>

/** Shows the progress of a long task on standard error if that is a terminal, and clears it afterwards. */
class Progress
{
public:
    Progress();
    ~Progress();

    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    /** Shows that @p percent of the task is done, unless the task has just begun. */
    void show(int percent);

private:
    const bool m_isTerminal;
    bool m_isShown = false;
    QElapsedTimer m_time;
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef WAITCURSOR_H
#define WAITCURSOR_H

#include <QCursor>
#include <QGuiApplication>

#include <memory>
#include <utility>

/** Shows the wait cursor during its lifetime. */
class WaitCursor
{
public:
    WaitCursor()
    {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }

    ~WaitCursor()
    {
        QGuiApplication::restoreOverrideCursor();
    }

private:
    Q_DISABLE_COPY(WaitCursor)
};

/** Does @p work, which reads accounts, under the wait cursor. */
template<typename Work>
auto underWaitCursor(Work work)
{
    const WaitCursor wait;
    return work();
}

/** Constructs a dialog, which reads the accounts, under the wait cursor. */
template<typename Dialog, typename... Arguments>
std::unique_ptr<Dialog> makeDialog(Arguments &&...arguments)
{
    const WaitCursor wait;
    return std::make_unique<Dialog>(std::forward<Arguments>(arguments)...);
}

#endif

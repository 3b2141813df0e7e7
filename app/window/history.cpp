/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "history.h"

void History::follow(const AccountLink &here, const AccountLink &there)
{
    m_places.resize(m_current);
    m_places += {here, there};
    ++m_current;
    Q_EMIT changed();
}

bool History::canGoBack() const
{
    return m_current > 0;
}

bool History::canGoForward() const
{
    return m_current + 1 < m_places.size();
}

AccountLink History::back(const AccountLink &here)
{
    return go(-1, here);
}

AccountLink History::forward(const AccountLink &here)
{
    return go(1, here);
}

AccountLink History::go(int step, const AccountLink &here)
{
    m_places[m_current] = here;
    m_current += step;
    AccountLink place = m_places.at(m_current);
    Q_EMIT changed();
    return place;
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef RANDOMSCRIPT_H
#define RANDOMSCRIPT_H

#include <QRandomGenerator>
#include <QVector>

/**
 * Sets the numbers of the random generators during its lifetime, and counts their calls. For test programs that
 * compile randomscript.cpp. One at a time.
 */
class RandomScript
{
public:
    /** The next numbers, of 32 bits each. Later ones are random again. */
    explicit RandomScript(QVector<quint32> draws = {});
    ~RandomScript();

    /** How often 32 bits were drawn from the system's secure generator, the global one, or any other one. */
    int systemDraws() const;
    int globalDraws() const;
    int otherDraws() const;

    /**
     * Called for @p count numbers of @p generator. Fills @p buffer with the numbers that are set and returns
     * how many there are.
     */
    static int replace(const QRandomGenerator *generator, quint32 *buffer, int count);

private:
    Q_DISABLE_COPY(RandomScript)

    QVector<quint32> m_draws;
    int m_system = 0;
    int m_global = 0;
    int m_other = 0;
};

#endif

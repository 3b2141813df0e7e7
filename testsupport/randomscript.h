/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef RANDOMSCRIPT_H
#define RANDOMSCRIPT_H

#include <QRandomGenerator>
#include <QVector>

/**
 * Sets what the random generators draw while it lives, and records which of them are asked. For
 * test programs that compile randomscript.cpp. One at a time.
 */
class RandomScript
{
public:
    /** The next draws, of 32 bits each; later ones are random again. */
    explicit RandomScript(QVector<quint32> draws = {});
    ~RandomScript();

    /** How often the system's secure generator was asked for 32 bits, the global one, any other one. */
    int systemDraws() const;
    int globalDraws() const;
    int otherDraws() const;

    /** Called for @p count draws of @p generator; gives those that are set, in @p buffer, and their number. */
    static int replace(const QRandomGenerator *generator, quint32 *buffer, int count);

private:
    Q_DISABLE_COPY(RandomScript)

    QVector<quint32> m_draws;
    int m_system = 0;
    int m_global = 0;
    int m_other = 0;
};

#endif

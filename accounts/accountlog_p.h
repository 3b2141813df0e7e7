/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTLOG_P_H
#define ACCOUNTLOG_P_H

#include <QMessageLogger>

/**
 * The channel of the account warnings. qWarning() would add the source position in debug builds,
 * and a default-constructed logger has no category, not even "default".
 */
inline QMessageLogger accountLog()
{
    return QMessageLogger(nullptr, 0, nullptr);
}

#endif

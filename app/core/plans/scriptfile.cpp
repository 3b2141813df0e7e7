/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "scriptfile.h"

#include "plan.h"

#include <QSaveFile>

QString writeScript(const QString &path, const Plan &plan)
{
    const QByteArray script = plan.toScript();
    QSaveFile file(path);
    // Nobody else can open it, not even while it is still empty.
    const bool written = file.open(QIODevice::WriteOnly)
        && file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner)
        && file.write(script) == script.size() && file.commit();
    return written ? QString() : file.errorString();
}

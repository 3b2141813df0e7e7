/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "shadowtools.h"

#include "program.h"
#include "sandbox.h"

#include <QFile>

#include <unistd.h>

namespace
{
/** An empty shadow file, into which the tools write. */
void clearShadow(const char *path)
{
    Sandbox::write(QString::fromLatin1(path), {});
}
}

void ShadowTools::setAccounts(const QByteArray &passwd, const QByteArray &group)
{
    Sandbox::setAccounts(passwd, group);
    clearShadow("/etc/shadow");
    clearShadow("/etc/gshadow");
    Sandbox::clear(homes());
    Sandbox::clear(QStringLiteral("/etc/default"));
    Sandbox::write(QStringLiteral("/etc/default/useradd"), "HOME=" + homes().toLatin1() + '\n');
    Sandbox::write(QStringLiteral("/etc/pam.d/chfn"),
                   "auth sufficient pam_permit.so\naccount required pam_permit.so\n");
}

QString ShadowTools::homes()
{
    return QStringLiteral("/tmp/homes");
}

QByteArray ShadowTools::run(const Plan &plan)
{
    const QString script = QStringLiteral("/tmp/plan.sh");
    Sandbox::write(script, plan.toScript());
    QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    // The tools are for root. An ordinary user is root in a user namespace.
    const Program::Result result = geteuid() == 0
        ? Program::run(script, {})
        : Program::run(QStringLiteral("unshare"), {QStringLiteral("--map-root-user"), script});
    return result.status == 0 ? QByteArray() : QByteArray::number(result.status) + ": " + result.errors;
}

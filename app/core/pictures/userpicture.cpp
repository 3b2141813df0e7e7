/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "userpicture.h"

#include "picturechild.h"

#include <QCoreApplication>
#include <QImage>
#include <QTimer>

namespace
{
/**
 * How long a process may take, in milliseconds, its start included. Its processor time has a lower limit. This
 * one is for a process that waits for a disk or, on a busy machine, for a processor.
 */
constexpr int startLimit = 20000;
constexpr int workLimit = 10000;
}

UserPicture::UserPicture(QObject *parent)
    : QObject(parent)
    , m_limit(new QTimer(this))
{
    m_limit->setSingleShot(true);
    connect(m_limit, &QTimer::timeout, this, &UserPicture::finish);
}

UserPicture::~UserPicture()
{
    cancel();
}

void UserPicture::find(const PictureOwner &user, const QSize &size)
{
    cancel();
    m_size = size;
    // It may outlive this object: a process that waits for a dead file server cannot be ended.
    m_process = new QProcess(QCoreApplication::instance());
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardErrorFile(QProcess::nullDevice());
    connect(m_process, &QProcess::readyReadStandardOutput, this, &UserPicture::readOutput);
    connect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, &UserPicture::finish);
    connect(m_process, &QProcess::errorOccurred, this, &UserPicture::finish, Qt::QueuedConnection);
    m_limit->start(startLimit);
    m_process->start(QCoreApplication::applicationDirPath() + QLatin1String("/ormel-users"),
                     PictureChild::arguments(user, size));
}

void UserPicture::cancel()
{
    m_limit->stop();
    m_output.clear();
    if (!m_process) {
        return;
    }
    m_process->disconnect(this);
    if (m_process->state() == QProcess::NotRunning) {
        m_process->deleteLater();
    } else {
        connect(
            m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), m_process, &QObject::deleteLater);
        m_process->kill();
    }
    m_process.clear();
}

void UserPicture::readOutput()
{
    if (m_output.isEmpty()) {
        m_limit->start(workLimit);
    }
    m_output += m_process->readAllStandardOutput();
    if (m_output.size() > PictureChild::longestOutput(m_size)) {
        m_output.clear();
        finish();
    }
}

void UserPicture::finish()
{
    if (!m_process) {
        return; // reported already
    }
    m_output += m_process->readAllStandardOutput();
    const QImage picture = PictureChild::picture(m_output, m_size);
    cancel();
    Q_EMIT found(picture);
}

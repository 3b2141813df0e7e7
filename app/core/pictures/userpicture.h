/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERPICTURE_H
#define USERPICTURE_H

#include <QObject>
#include <QPointer>
#include <QProcess>
#include <QSize>

class QImage;
class QTimer;
struct PictureOwner;

/**
 * Finds the picture that a user has: ~/.face, ~/.face.icon, or what desktops keep for the user. The
 * files are those of the user, so another process reads them, and the event loop never waits for it.
 */
class UserPicture : public QObject
{
    Q_OBJECT

public:
    explicit UserPicture(QObject *parent = nullptr);
    ~UserPicture() override;

    /** Finds the picture of @p user. found() follows, unless another call comes before. */
    void find(const PictureOwner &user, const QSize &size);

    /** Cancels the search. */
    void cancel();

Q_SIGNALS:
    /** @p picture is as large as fits into the size asked for; null when there is none that can be read. */
    void found(const QImage &picture);

private:
    void readOutput();
    void finish();

    QSize m_size;
    QByteArray m_output;
    QPointer<QProcess> m_process;
    QTimer *const m_limit;
};

#endif

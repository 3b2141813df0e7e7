/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERPICTURES_H
#define USERPICTURES_H

#include <QHash>
#include <QImage>

class UserInfo;

/** The pictures of users: their own or, for those who have none, a stock picture each. */
class UserPictures
{
public:
    /**
     * The picture of @p user, no larger than @p size in pixels; null when there is none at all.
     *
     * A stock picture is picked at random and kept for the user from then on.
     */
    QImage picture(const UserInfo &user, const QSize &size);

private:
    QHash<QString, QString> m_stockPictures;
};

#endif

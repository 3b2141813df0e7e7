/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTLINK_H
#define ACCOUNTLINK_H

#include <QString>

/** A place in the window: a user, a group, a line of the limits files as "file:line", a problem, or a page without a
 * list. */
struct AccountLink {
    enum class Kind { User, Group, Limit, Problem, NewAccount };

    Kind kind = Kind::User;
    QString name;

    /** The link as rich text has it. */
    QString toUrl() const;
    static AccountLink fromUrl(const QString &url);

    /** Rich text of the link, which shows the name. */
    QString toRichText() const;
};

#endif

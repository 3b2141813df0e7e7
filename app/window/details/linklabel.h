/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LINKLABEL_H
#define LINKLABEL_H

#include "accountlink.h"

#include <QLabel>

/** Text with links, on as many lines as necessary. */
class LinkLabel : public QLabel
{
    Q_OBJECT

public:
    explicit LinkLabel(QWidget *parent = nullptr);

    /** Shows a link to each of @p names, and @p rest after them; a dash when there is nothing to show. */
    void setLinks(AccountLink::Kind kind, const QStringList &names, const QString &rest = {});

    /** Shows rich text. The visible text is @p text, for screen readers. */
    void setLinkedText(const QString &richText, const QString &text);

Q_SIGNALS:
    void followed(const AccountLink &link);

protected:
    void changeEvent(QEvent *event) override;
};

#endif

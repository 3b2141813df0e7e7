/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CONTENTAREA_H
#define CONTENTAREA_H

#include <QScrollArea>

/** A scroll area that prefers the size of its contents and scrolls only where there is no room for them. */
class ContentArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit ContentArea(QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

#endif

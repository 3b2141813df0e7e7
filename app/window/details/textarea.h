/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef TEXTAREA_H
#define TEXTAREA_H

#include "contentarea.h"

class QLabel;

/** Shows a text in lines as long as fit. It is as high as the text if there is room, and scrolls otherwise. */
class TextArea : public ContentArea
{
    Q_OBJECT

public:
    explicit TextArea(QLabel *label, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
};

#endif

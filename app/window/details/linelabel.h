/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LINELABEL_H
#define LINELABEL_H

#include <KSqueezedTextLabel>

/** A line of plain text, elided where there is no room for it. Its tool tip and copies have the whole text. */
class LineLabel : public KSqueezedTextLabel
{
    Q_OBJECT

public:
    explicit LineLabel(QWidget *parent = nullptr);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
};

#endif

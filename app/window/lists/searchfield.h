/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SEARCHFIELD_H
#define SEARCHFIELD_H

#include <QLineEdit>

/** A line edit to search a list. Esc clears it, and keys that do nothing in a line edit go to the list. */
class SearchField : public QLineEdit
{
    Q_OBJECT

public:
    explicit SearchField(QWidget *parent = nullptr);

Q_SIGNALS:
    /** The operator wants to go on in the list. */
    void listWanted();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
};

#endif

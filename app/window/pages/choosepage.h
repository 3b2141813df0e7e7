/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CHOOSEPAGE_H
#define CHOOSEPAGE_H

#include <QWidget>

class ChooseBox;

/** The select dialogs in both modes: one user or group, members of a group, groups of a user. */
class ChoosePage : public QWidget
{
    Q_OBJECT

public:
    explicit ChoosePage(QWidget *parent = nullptr);

private:
    void chooseGroup();
    void chooseMembers();
    void chooseUser();
    void chooseGroups();

    ChooseBox *m_groupBox;
    ChooseBox *m_userBox;
};

#endif

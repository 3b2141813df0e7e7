/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef DIALOGKINDS_H
#define DIALOGKINDS_H

#include "dialogparts.h"
#include "listkinds.h"
#include "modellog.h"

#include <GroupSelectDialog>
#include <UserSelectDialog>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QTreeView>

// What differs between the two select dialogs.

struct PickedUsers : Users {
    using Dialog = UserSelectDialog;
    static constexpr char title[] = "Select Users";
    static constexpr char comboBox[] = "userFilterComboBox";
    static constexpr char view[] = "usersTreeView";

    static QString pickedName(const Dialog &dialog)
    {
        return dialog.selectedUserName();
    }

    static QStringList pickedNames(const Dialog &dialog)
    {
        return dialog.selectedUserNames();
    }

    static QString activatedName(const Dialog &dialog)
    {
        return dialog.activatedUserName();
    }

    static void activate(Dialog &dialog, const QModelIndex &index)
    {
        dialog.on_usersTreeView_doubleClicked(index);
    }
};

struct PickedGroups : Groups {
    using Dialog = GroupSelectDialog;
    static constexpr char title[] = "Select Groups";
    static constexpr char comboBox[] = "groupFilterComboBox";
    static constexpr char view[] = "groupsTreeView";

    static QString pickedName(const Dialog &dialog)
    {
        return dialog.selectedGroupName();
    }

    static QStringList pickedNames(const Dialog &dialog)
    {
        return dialog.selectedGroupNames();
    }

    static QString activatedName(const Dialog &dialog)
    {
        return dialog.activatedGroupName();
    }

    static void activate(Dialog &dialog, const QModelIndex &index)
    {
        dialog.on_groupsTreeView_doubleClicked(index);
    }
};

/** A dialog with direct access to its parts. */
template<typename Kind>
struct DialogOf : Kind::Dialog {
    using Kind::Dialog::Dialog;

    QString pickedName() const
    {
        return Kind::pickedName(*this);
    }

    QStringList pickedNames() const
    {
        return Kind::pickedNames(*this);
    }

    QString activatedName() const
    {
        return Kind::activatedName(*this);
    }

    QString shownNames() const
    {
        return ::shownNames(*view->model());
    }

    QComboBox *comboBox = part<QComboBox>(*this, Kind::comboBox);
    QLineEdit *lineEdit = part<QLineEdit>(*this, "filterLineEdit");
    QTreeView *view = part<QTreeView>(*this, Kind::view);
    QDialogButtonBox *buttonBox = part<QDialogButtonBox>(*this, "buttonBox");
    typename Kind::Model *model = this->template findChild<typename Kind::Model *>();
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GROUPSELECTDIALOG_H
#define GROUPSELECTDIALOG_H

#include "grouplistmodel.h"
#include "ormelusersqt_export.h"

#include <QDialog>
#include <QModelIndex>
#include <QStringList>

class QSortFilterProxyModel;

namespace Ui
{
class GroupSelectDialog;
}

/**
 * @class GroupSelectDialog groupselectdialog.h <GroupSelectDialog>
 *
 * Lets the operator pick one or several local groups.
 *
 * @code
 * GroupSelectDialog dialog(this);
 * dialog.setSingleSelectionMode(true);
 * if (dialog.exec() == QDialog::Accepted) {
 *     setPrimaryGroup(user, dialog.selectedGroupName());
 * }
 * @endcode
 *
 * It is the counterpart of UserSelectDialog, with the groups of a GroupListModel. One thing differs:
 * selectedGroupNames() are the checked groups in single selection mode, too.
 *
 * To make a dialog costs one GroupInfo::getGroups(); when the groups cannot be read there are none
 * to pick, and nothing tells the operator. The lock of a row costs nothing.
 *
 * Like all widgets it belongs to the GUI thread.
 */
class ORMELUSERSQT_EXPORT GroupSelectDialog : public QDialog
{
    Q_OBJECT

public:
    /**
     * Lets the operator pick the groups of a user. See
     * GroupListModel(const QString &, const QStringList &, QObject *).
     *
     * @param userName the user; the group of that name cannot be changed
     * @param selectedNames the groups that are checked at first
     * @param parent the owner, if any; the dialog is shown above it
     */
    GroupSelectDialog(const QString &userName, const QStringList &selectedNames, QWidget *parent = nullptr);

    /** Lets the operator pick among all groups, with none checked at first. */
    explicit GroupSelectDialog(QWidget *parent = nullptr);

    ~GroupSelectDialog() override;

    /** Picks the current group instead of the checked ones. A change resets the list of groups. */
    void setSingleSelectionMode(bool on);
    /** @return whether the current group is picked; false in a new dialog. */
    bool singleSelectionMode() const;

    /**
     * @return the name of the current group in single selection mode, else of the first checked
     * one; empty when there is none.
     */
    QString selectedGroupName() const;

    /**
     * @return the names of the checked groups, as GroupListModel::selectedGroupNames() orders them.
     * In single selection mode, where nothing can be checked, selectedGroupName() is what to use.
     */
    QStringList selectedGroupNames() const;

    /** @return the name of the group that was double-clicked last; empty when there was none. */
    QString activatedGroupName() const;

public Q_SLOTS:
    /** Takes over the group of @p index, if there is one, and accepts the dialog in any case. */
    void on_groupsTreeView_doubleClicked(const QModelIndex &index); // clazy:exclude=connect-by-name

private:
    Ui::GroupSelectDialog *ui;
    GroupListModel *m_model;
    QSortFilterProxyModel *m_proxyModel;
    QString m_activatedGroupName;
    bool m_singleSelectionMode = false;
};

#endif

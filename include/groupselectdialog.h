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
 * exec() runs an event loop of its own. To do without one, open the dialog and wait for its signal:
 *
 * @code
 * auto *dialog = new GroupSelectDialog(user.name(), user.groupNames(), this);
 * dialog->setAttribute(Qt::WA_DeleteOnClose);
 * connect(dialog, &QDialog::finished, this, [=](int result) {
 *     if (result == QDialog::Accepted) {
 *         setGroups(dialog->selectedGroupNames());
 *     }
 * });
 * dialog->open();
 * @endcode
 *
 * It is the counterpart of UserSelectDialog, with the groups of a GroupListModel. One thing differs:
 * selectedGroupNames() returns the checked groups in single selection mode, too.
 *
 * Constructing a dialog costs one GroupInfo::getGroups(). When the groups cannot be read, the list is
 * empty, and the operator sees no message. Locked rows cost no lookup.
 *
 * The rows start in descending order, as in every QTreeView whose sorting is enabled. A click on a header
 * sorts them. A tool can sort the view, which it finds by its name, before it shows the dialog:
 *
 * @code
 * GroupSelectDialog dialog(this);
 * dialog.findChild<QTreeView *>(QStringLiteral("groupsTreeView"))->sortByColumn(0, Qt::AscendingOrder);
 * @endcode
 *
 * The proxy between the model and the view reports that rows have no children. GroupListModel itself
 * does not look at the parent; see there.
 *
 * Like all widgets it belongs to the GUI thread.
 *
 * @see UserSelectDialog, GroupListModel
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

    /** Picks the current group instead of the checked ones. A change resets the list. @see singleSelectionMode() */
    void setSingleSelectionMode(bool on);
    /** @return whether the current group is picked; false in a new dialog. @see setSingleSelectionMode() */
    bool singleSelectionMode() const;

    /**
     * @return the name of the current group in single selection mode, else of the first checked
     * one; empty when there is none.
     *
     * @see activatedGroupName()
     */
    QString selectedGroupName() const;

    /**
     * @return the names of the checked groups, as GroupListModel::selectedGroupNames() orders them.
     * In single selection mode nothing can be checked; use selectedGroupName().
     */
    QStringList selectedGroupNames() const;

    /** @return the name of the group that was double-clicked last; empty without one. @see selectedGroupName() */
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

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERSELECTDIALOG_H
#define USERSELECTDIALOG_H

#include "groupinfo.h"
#include "ormelusersqt_export.h"
#include "userlistmodel.h"

#include <QDialog>
#include <QModelIndex>
#include <QStringList>

class QSortFilterProxyModel;

namespace Ui
{
class UserSelectDialog;
}

/**
 * @class UserSelectDialog userselectdialog.h <UserSelectDialog>
 *
 * Lets the operator pick one or several local users.
 *
 * @code
 * UserSelectDialog dialog(group, group.users(), this);
 * if (dialog.exec() == QDialog::Accepted) {
 *     setMembers(group, dialog.selectedUserNames());
 * }
 * @endcode
 *
 * The users are those of a UserListModel, which is loaded once, when the dialog is made, and which
 * the operator narrows with a filter and a text that names are to contain. A new filter clears
 * that text.
 *
 * In multiple selection mode, that of a new dialog, the result are the users with a check mark. In
 * single selection mode there are no check boxes and it is the current row. A double-click
 * accepts the dialog in either mode; see activatedUserName().
 *
 * To make a dialog costs one UserInfo::getUsers(); when the accounts cannot be read there are
 * none to pick, and nothing tells the operator. With a group, a row makes account lookups whenever
 * it is drawn or laid out; see UserListModel::flags().
 *
 * Like all widgets it belongs to the GUI thread.
 */
class ORMELUSERSQT_EXPORT UserSelectDialog : public QDialog
{
    Q_OBJECT

public:
    /**
     * Lets the operator pick the members of @p group. See
     * UserListModel(const GroupInfo &, const QStringList &, QObject *).
     *
     * @param group the users whose primary group this is cannot be changed
     * @param selectedNames the users that are checked at first
     * @param parent the owner, if any; the dialog is shown above it
     */
    UserSelectDialog(const GroupInfo &group, const QStringList &selectedNames, QWidget *parent = nullptr);

    /** Lets the operator pick among all users, with none checked at first. */
    explicit UserSelectDialog(QWidget *parent = nullptr);

    ~UserSelectDialog() override;

    /** Picks the current user instead of the checked ones. A change resets the list of users. */
    void setSingleSelectionMode(bool on);
    /** @return whether the current user is picked; false in a new dialog. */
    bool singleSelectionMode() const;

    /**
     * @return the name of the current user in single selection mode, else of the first checked one;
     * empty when there is none.
     */
    QString selectedUserName() const;

    /**
     * @return the names of the checked users, sorted by name. In single selection mode a list with
     * selectedUserName() alone, even when that is empty.
     */
    QStringList selectedUserNames() const;

    /** @return the name of the user that was double-clicked last; empty when there was none. */
    QString activatedUserName() const;

public Q_SLOTS:
    /** Takes over the user of @p index, if there is one, and accepts the dialog in any case. */
    void on_usersTreeView_doubleClicked(const QModelIndex &index); // clazy:exclude=connect-by-name

private:
    Ui::UserSelectDialog *ui;
    UserListModel *m_model;
    QSortFilterProxyModel *m_proxyModel;
    QString m_activatedUserName;
    bool m_singleSelectionMode = false;
};

#endif

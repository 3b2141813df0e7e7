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
 * exec() runs an event loop of its own. To do without one, open the dialog and wait for its signal:
 *
 * @code
 * auto *dialog = new UserSelectDialog(group, group.users(), this);
 * dialog->setAttribute(Qt::WA_DeleteOnClose);
 * connect(dialog, &QDialog::finished, this, [=](int result) {
 *     if (result == QDialog::Accepted) {
 *         setMembers(group, dialog->selectedUserNames());
 *     }
 * });
 * dialog->open();
 * @endcode
 *
 * The users are those of a UserListModel. It is loaded once, when the dialog is constructed. The operator
 * narrows it with a filter and with a text that names have to contain. A new filter clears the text.
 *
 * In multiple selection mode, the one of a new dialog, the result is the users with a check mark. In
 * single selection mode there are no check boxes, and the result is the current row:
 *
 * @code
 * UserSelectDialog dialog(this);
 * dialog.setSingleSelectionMode(true);
 * if (dialog.exec() == QDialog::Accepted && !dialog.selectedUserName().isEmpty()) {
 *     setMembers(group, group.users() + QStringList(dialog.selectedUserName()));
 * }
 * @endcode
 *
 * A double-click accepts the dialog in either mode; see activatedUserName().
 *
 * Constructing a dialog costs one UserInfo::getUsers(). When the accounts cannot be read, the list is
 * empty, and the operator sees no message. With a group, each painting of a row costs one account lookup,
 * and a click or a key press on it some more; see UserListModel::flags(). Rows out of view cost none.
 *
 * The rows start in descending order, as in every QTreeView whose sorting is enabled. A click on a header
 * sorts them. A tool can sort the view, which it finds by its name, before it shows the dialog:
 *
 * @code
 * UserSelectDialog dialog(this);
 * dialog.findChild<QTreeView *>(QStringLiteral("usersTreeView"))->sortByColumn(0, Qt::AscendingOrder);
 * @endcode
 *
 * The proxy between the model and the view reports that rows have no children. UserListModel itself
 * does not look at the parent; see there.
 *
 * Like all widgets it belongs to the GUI thread.
 *
 * @see GroupSelectDialog, UserListModel
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

    /** Picks the current user instead of the checked ones. A change resets the list. @see singleSelectionMode() */
    void setSingleSelectionMode(bool on);
    /** @return whether the current user is picked; false in a new dialog. @see setSingleSelectionMode() */
    bool singleSelectionMode() const;

    /**
     * @return the name of the current user in single selection mode, else of the first checked one;
     * empty when there is none.
     *
     * @see activatedUserName()
     */
    QString selectedUserName() const;

    /**
     * @return the names of the checked users, sorted by name. In single selection mode a list with
     * selectedUserName() alone, even when that is empty.
     */
    QStringList selectedUserNames() const;

    /** @return the name of the user that was double-clicked last; empty without one. @see selectedUserName() */
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

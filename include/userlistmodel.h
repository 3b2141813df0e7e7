/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERLISTMODEL_H
#define USERLISTMODEL_H

#include "groupinfo.h"
#include "ormelusersqt_export.h"
#include "userinfo.h"

#include <QAbstractTableModel>
#include <QIcon>
#include <QSet>

/**
 * @class UserListModel userlistmodel.h <UserListModel>
 *
 * The local user accounts as a table: name with icon and check box, UID, system account or not.
 *
 * @code
 * auto *model = new UserListModel(group, group.users(), this);
 * model->setFilter(UserListModel::All);
 * view->setModel(model);
 * @endcode
 *
 * The model holds all users, sorted by name, and shows those that the filter() lets through, with
 * a placeholder row behind them for a user who is about to be created (setNewUserName()). Which
 * users are checked is kept by name, apart from the rows: checked users may be hidden by the
 * filter, and checked names need not belong to any user.
 *
 * Row numbers count the shown rows. The table is flat, and rowCount() and columnCount() do not look
 * at the parent. Views that show tables can use it as it is; code that walks a tree must not descend.
 *
 * The constructor fills the model. Nothing watches the account files: call reload() or
 * reloadUser() after a change. When they cannot be read it is empty, with the warning of
 * UserInfo::getUsers(). Nothing here changes an account.
 *
 * Constructing a model costs as much as reload(). Names are compared one by one: findUser(),
 * selectedUserNames(), reloadUser(), removeRows() for each row, and everything that applies the filter
 * take a pass over the users. The cost of other operations does not depend on the number of users,
 * unless their description says so.
 *
 * A tool that lets the operator choose the filter finds labels for it in the translation domain
 * "ormel_kcm_users" with the context "filter": All, Ordinary, System, Administrators, Selected, Unselected. For
 * example, ki18ndc("ormel_kcm_users", "filter", "Ordinary").toString().
 *
 * Models belong to the GUI thread, like the views.
 *
 * @see GroupListModel, UserSelectDialog
 */
class ORMELUSERSQT_EXPORT UserListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /** Which users are shown. Values outside the enumeration show all. */
    enum Filter : int {
        All = 0,
        Ordinary = 1, /**< Users that are not system accounts. */
        System = 2, /**< System accounts. */
        Administrators = 3, /**< Members of the administrators group. */
        Selected = 4, /**< Users whose name is checked. */
        Unselected = 5, /**< Users whose name is not checked. */
    };
    Q_ENUM(Filter)

    /** The columns. Views may move them; these numbers stay. */
    enum Column {
        NameColumn = 0, /**< Name, icon and check box. */
        UidColumn = 1, /**< The UID, a uint. */
        SystemColumn = 2, /**< "Yes" for a system account, else "No", translated. */
    };
    Q_ENUM(Column)

    /** Lists the users without check boxes, with the filter Ordinary. No row is locked. */
    explicit UserListModel(QObject *parent = nullptr);

    /**
     * Lists the users with check boxes, to choose the members of @p group, with the filter Ordinary.
     *
     * @param group the users whose primary group this is are locked: their rows have no flags
     * @param selectedNames the users that are checked at first, in any order; they are not
     * taken from @p group
     * @param parent the owner, if any
     */
    UserListModel(const GroupInfo &group, const QStringList &selectedNames, QObject *parent = nullptr);

    ~UserListModel() override;

    /** @return the number of shown rows, the placeholder row included, whatever @p parent is. */
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    /** @return 3, whatever @p parent is. */
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;

    /**
     * @return Qt::DisplayRole: what the Column says; Qt::DecorationRole, in the first column: the
     * icon, as a QIcon; Qt::CheckStateRole, there too: Qt::Checked or Qt::Unchecked as an int, when
     * isSelectable(). An invalid variant for everything else and outside the shown rows.
     */
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    /**
     * Checks the user of @p index when @p value as an int is Qt::Checked, and unchecks it otherwise.
     *
     * The filter is not applied again: the row stays in view. Neither isSelectable() nor flags() is
     * checked: the views keep locked rows from the operator.
     *
     * @return false, with nothing changed, when @p index is not a row's first column or @p role is not
     * Qt::CheckStateRole.
     */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

    /**
     * @return the label of the Column @p section for Qt::DisplayRole: "Name" and "System" translated, "UID"
     * never. Otherwise as QAbstractItemModel::headerData().
     */
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    /**
     * Removes rows from the model, together with all other users of the same names, shown or not.
     * The accounts stay, and so do the check marks of the names.
     *
     * @param row the first of the rows
     * @param count not checked for zero or less: the views are then notified of a removal whose
     * last row is before its first, and the result is true
     * @param parent passed on to the views, otherwise ignored
     * @return false, with nothing changed, when not all of the rows exist.
     */
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;

    /**
     * @return no flags, in any column, for a user whose primary group is the one of the model. Each
     * call costs one GroupInfo::isPrimaryOf(), and so one account lookup. A model without a group
     * makes no lookup.
     */
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /**
     * @return the user of the row of @p index, whatever the column; null when it is not a shown
     * row. The placeholder row has an empty record. Valid until the rows next change.
     */
    const UserInfo *user(const QModelIndex &index) const;

    /** @return the first shown row of that name; an invalid index when there is none. */
    QModelIndex findUser(const QString &name) const;

    /** @return whether no row is shown, whatever the filter hides. */
    bool isEmpty() const;

    /** @return whether rows have check boxes. @see setSelectable() */
    bool isSelectable() const;
    /** Shows or hides the check boxes. A change resets the model. @see isSelectable() */
    void setSelectable(bool selectable);

    /** @return the filter; Ordinary in a new model. @see setFilter() */
    Filter filter() const;
    /** Sets the filter and applies it. Nothing happens when it is set already. @see filter() */
    void setFilter(Filter filter);

    /** Shows the users that the filter lets through now. Resets the model and drops the placeholder row. */
    void applyFilter();

    /**
     * @return the names of the checked users, hidden ones included, sorted by name. Checked names
     * that belong to no user are left out.
     *
     * @see setSelectedUserNames()
     */
    QStringList selectedUserNames() const;
    /** Checks exactly the users @p names and always applies the filter. @see selectedUserNames() */
    void setSelectedUserNames(const QStringList &names);
    /** Checks or unchecks one user and, when that changes anything, applies the filter. */
    void setSelectedUserName(const QString &name, bool selected);

    /**
     * Shows @p name in the placeholder row at the end, which is added if necessary. This row has
     * an empty record and lives until the filter is next applied or the model is reloaded.
     *
     * @return the index of the placeholder row.
     */
    QModelIndex setNewUserName(const QString &name);

    /**
     * Reads all users again and applies the filter. Filter and check marks stay, also those of
     * users that are gone.
     *
     * Costs one UserInfo::getUsers() and one sorting.
     */
    void reload();

    /**
     * Reads one user again, in place, with UserInfo::reload(): views are not notified, and the user
     * is neither sorted nor filtered again. An unknown name does nothing. An empty one does not
     * reload the placeholder row, but an account whose line in @c /etc/passwd has no name.
     *
     * A user that the model knows must still exist, and so must the user's primary group: a missing
     * one crashes.
     *
     * Costs one UserInfo::reload(), or two when the user is shown.
     */
    void reloadUser(const QString &name);

private:
    QList<UserInfo> m_users;
    QList<UserInfo> m_filteredUsers;
    QSet<QString> m_selectedNames;
    Filter m_filter = Ordinary;
    QIcon m_userIcon;
    QIcon m_systemUserIcon;
    GroupInfo m_group;
    bool m_selectable = false;
    QString m_newUserName;
};

#endif

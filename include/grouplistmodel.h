/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GROUPLISTMODEL_H
#define GROUPLISTMODEL_H

#include "groupinfo.h"
#include "ormelusersqt_export.h"

#include <QAbstractTableModel>
#include <QIcon>
#include <QSet>

/**
 * @class GroupListModel grouplistmodel.h <GroupListModel>
 *
 * The local groups as a table: name with icon and check box, GID, system group or not.
 *
 * @code
 * auto *model = new GroupListModel(user.name(), user.groupNames(), this);
 * view->setModel(model);
 * connect(this, &QDialog::accepted, this, [=] { setGroups(model->selectedGroupNames()); });
 * @endcode
 *
 * It is the counterpart of UserListModel. The differences: a new model shows all groups, there is
 * no filter for administrators, and the locked row is the user's own group, the one with the
 * user's name. That group also comes first among the selectedGroupNames() when it is checked.
 *
 * The model holds all groups, sorted by name, and shows those that the filter() lets through, with
 * a placeholder row behind them for a group that is about to be created (setNewGroupName()). Which
 * groups are checked is kept by name, apart from the rows: checked groups may be hidden by the
 * filter, and checked names need not belong to any group.
 *
 * Row numbers count the shown rows. The table is flat, and rowCount() and columnCount() do not look
 * at the parent. Views that show tables can use it as it is; code that walks a tree must not descend.
 *
 * The constructor fills the model. Nothing watches the account files: call reload() or
 * reloadGroup() after a change. When they cannot be read it is empty, with the warning of
 * GroupInfo::getGroups(). Nothing here changes a group.
 *
 * Constructing a model costs as much as reload(). Names are compared one by one: findGroup(),
 * selectedGroupNames(), reloadGroup(), removeRows() for each row, and everything that applies the filter
 * take a pass over the groups. The cost of other operations does not depend on the number of groups,
 * unless their description says so.
 *
 * A tool that lets the operator choose the filter finds labels for it in the translation domain
 * "ormel_kcm_users" with the context "filter": All, Ordinary, System, Selected, Unselected. For
 * example, ki18ndc("ormel_kcm_users", "filter", "Ordinary").toString().
 *
 * Models belong to the GUI thread, like the views.
 *
 * @see UserListModel, GroupSelectDialog
 */
class ORMELUSERSQT_EXPORT GroupListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /** Which groups are shown. Values outside the enumeration show all. */
    enum Filter : int {
        All = 0,
        Ordinary = 1, /**< Groups that are not system groups. */
        System = 2, /**< System groups. */
        Selected = 3, /**< Groups whose name is checked. */
        Unselected = 4, /**< Groups whose name is not checked. */
    };
    Q_ENUM(Filter)

    /** The columns. Views may move them; these numbers stay. */
    enum Column {
        NameColumn = 0, /**< Name, icon and check box. */
        GidColumn = 1, /**< The GID, a uint. */
        SystemColumn = 2, /**< "Yes" for a system group, else "No", translated. */
    };
    Q_ENUM(Column)

    /** Lists the groups without check boxes, with the filter All. No row is locked. */
    explicit GroupListModel(QObject *parent = nullptr);

    /**
     * Lists the groups with check boxes, to choose those of a user, with the filter All.
     *
     * @param userName the user, who need not exist yet. The group with exactly this name is locked:
     * its row has no flags. The user's primary group is not locked when it has another name.
     * @param selectedNames the groups that are checked at first, in any order
     * @param parent the owner, if any
     */
    GroupListModel(const QString &userName, const QStringList &selectedNames, QObject *parent = nullptr);

    ~GroupListModel() override;

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
     * Checks the group of @p index when @p value as an int is Qt::Checked, and unchecks it otherwise.
     *
     * The filter is not applied again: the row stays in view. Neither isSelectable() nor flags() is
     * checked: the views keep locked rows from the operator.
     *
     * @return false, with nothing changed, when @p index is not a row's first column or @p role is not
     * Qt::CheckStateRole.
     */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

    /**
     * @return the label of the Column @p section for Qt::DisplayRole: "Name" and "System" translated, "GID"
     * never. Otherwise as QAbstractItemModel::headerData().
     */
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    /**
     * Removes rows from the model, together with all other groups of the same names, shown or not.
     * The groups of the system stay, and so do the check marks of the names.
     *
     * @param row the first of the rows
     * @param count not checked for zero or less: the views are then notified of a removal whose
     * last row is before its first, and the result is true
     * @param parent passed on to the views, otherwise ignored
     * @return false, with nothing changed, when not all of the rows exist.
     */
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;

    /** @return no flags, in any column, for the user's own group as it was when the model was last reloaded. */
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /**
     * @return the group of the row of @p index, whatever the column; null when it is not a shown
     * row. The placeholder row has an empty record. Valid until the rows next change.
     */
    const GroupInfo *group(const QModelIndex &index) const;

    /** @return the first shown row of that name; an invalid index when there is none. */
    QModelIndex findGroup(const QString &name) const;

    /** @return whether no row is shown, whatever the filter hides. */
    bool isEmpty() const;

    /** @return whether rows have check boxes. @see setSelectable() */
    bool isSelectable() const;
    /** Shows or hides the check boxes. A change resets the model. @see isSelectable() */
    void setSelectable(bool selectable);

    /** @return the filter; All in a new model. @see setFilter() */
    Filter filter() const;
    /** Sets the filter and applies it. Nothing happens when it is set already. @see filter() */
    void setFilter(Filter filter);

    /** Shows the groups that the filter lets through now. Resets the model and drops the placeholder row. */
    void applyFilter();

    /**
     * @return the names of the checked groups, hidden ones included: the user's own group when it
     * is checked, then the others sorted by name. Checked names that belong to no group are left out.
     *
     * @see setSelectedGroupNames()
     */
    QStringList selectedGroupNames() const;
    /** Checks exactly the groups @p names and always applies the filter. @see selectedGroupNames() */
    void setSelectedGroupNames(const QStringList &names);
    /** Checks or unchecks one group and, when that changes anything, applies the filter. */
    void setSelectedGroupName(const QString &name, bool selected);

    /**
     * Shows @p name in the placeholder row at the end, which is added if necessary. This row has an
     * empty record, is never locked, and lives until the filter is next applied or the model is
     * reloaded.
     *
     * @return the index of the placeholder row.
     */
    QModelIndex setNewGroupName(const QString &name);

    /**
     * Reads all groups again, looks for the user's own group among them and applies the filter.
     * Filter and check marks stay, also those of groups that are gone.
     *
     * Costs one GroupInfo::getGroups() and one sorting.
     */
    void reload();

    /**
     * Reads one group again, in place, with GroupInfo::reload(): views are not notified, and the group is
     * neither sorted nor filtered again. A group that is gone keeps its row, with GID 0 and no members. An
     * unknown name does nothing; an empty one reloads the placeholder row, if there is one.
     *
     * Costs one GroupInfo::reload(), and another when the group is shown. Each warns when the group is
     * gone, and always for the placeholder row.
     */
    void reloadGroup(const QString &name);

private:
    QList<GroupInfo> m_groups;
    QList<GroupInfo> m_filteredGroups;
    QSet<QString> m_selectedNames;
    GroupInfo m_primaryGroup;
    QString m_userName;
    QIcon m_systemGroupIcon;
    QIcon m_groupIcon;
    Filter m_filter = All;
    bool m_selectable = false;
    QString m_newGroupName;
};

#endif

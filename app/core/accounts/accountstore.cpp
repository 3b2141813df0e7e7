/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountstore.h"

#include "readerror.h"

#include <GroupInfo>
#include <GroupListModel>
#include <UserListModel>

namespace
{
/** A new model has read the accounts already. */
template<typename Model>
void readInto(Model *&model, QObject *parent)
{
    if (model) {
        model->reload();
    } else {
        model = new Model(parent);
    }
}
}

void AccountStore::readLimits()
{
    m_limitsError.clear();
    m_limits.readLimitsConf(m_limitsError);
    m_limitsFindings = checkLimits();
    Q_EMIT limitsRead();
}

void AccountStore::readUsers()
{
    m_accountsError = accountReadErrors().join(QLatin1Char('\n'));
    readInto(m_users, this);
    if (m_usersBesideNewOne) {
        m_usersBesideNewOne->reload();
    }
    Q_EMIT usersRead();
}

void AccountStore::readGroups()
{
    m_accountsError = accountReadErrors().join(QLatin1Char('\n'));
    m_primaryMembers = GroupInfo::getPrimaryGroups();
    readInto(m_groups, this);
    Q_EMIT groupsRead();
}

UserListModel *AccountStore::users() const
{
    return m_users;
}

GroupListModel *AccountStore::groups() const
{
    return m_groups;
}

UserListModel *AccountStore::usersBesideNewOne()
{
    if (!m_usersBesideNewOne) {
        m_usersBesideNewOne = new UserListModel(this);
        m_usersBesideNewOne->setFilter(UserListModel::All);
    }
    return m_usersBesideNewOne;
}

QStringList AccountStore::primaryMembers(const GroupInfo &group) const
{
    return m_primaryMembers.value(group.gid());
}

const LimitsParser &AccountStore::limits() const
{
    return m_limits;
}

const QList<LimitsFinding> &AccountStore::limitsFindings() const
{
    return m_limitsFindings;
}

const QString &AccountStore::accountsError() const
{
    return m_accountsError;
}

const QString &AccountStore::limitsError() const
{
    return m_limitsError;
}

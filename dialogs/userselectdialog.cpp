/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "userselectdialog.h"

#include "flatproxymodel_p.h"
#include "selectdialog_p.h"
#include "ui_userselectdialog.h"
#include "userlistmodel.h"

UserSelectDialog::UserSelectDialog(const GroupInfo &group, const QStringList &selectedNames, QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::UserSelectDialog)
{
    ui->setupUi(this);
    SelectDialog::addFilters(ui->userFilterComboBox,
                             {
                                 {ki18nc("filter", "All"), UserListModel::All},
                                 {ki18nc("filter", "Ordinary"), UserListModel::Ordinary},
                                 {ki18nc("filter", "System"), UserListModel::System},
                                 {ki18nc("filter", "Administrators"), UserListModel::Administrators},
                                 {ki18nc("filter", "Selected"), UserListModel::Selected},
                                 {ki18nc("filter", "Unselected"), UserListModel::Unselected},
                             });
    m_model = new UserListModel(group, selectedNames, this);
    m_proxyModel = new FlatProxyModel(this);
    SelectDialog::connectModel(m_model, m_proxyModel, ui->userFilterComboBox, ui->filterLineEdit, ui->usersTreeView);
}

UserSelectDialog::UserSelectDialog(QWidget *parent)
    : UserSelectDialog(GroupInfo(), {}, parent)
{
}

UserSelectDialog::~UserSelectDialog()
{
    delete ui;
}

void UserSelectDialog::setSingleSelectionMode(bool on)
{
    m_singleSelectionMode = on;
    m_model->setSelectable(!on);
}

bool UserSelectDialog::singleSelectionMode() const
{
    return m_singleSelectionMode;
}

QString UserSelectDialog::selectedUserName() const
{
    if (!m_singleSelectionMode) {
        return m_model->selectedUserNames().value(0);
    }
    const UserInfo *user = m_model->user(m_proxyModel->mapToSource(ui->usersTreeView->currentIndex()));
    return user ? user->name() : QString();
}

QStringList UserSelectDialog::selectedUserNames() const
{
    return m_singleSelectionMode ? QStringList(selectedUserName()) : m_model->selectedUserNames();
}

QString UserSelectDialog::activatedUserName() const
{
    return m_activatedUserName;
}

void UserSelectDialog::on_usersTreeView_doubleClicked(const QModelIndex &index)
{
    if (const UserInfo *user = m_model->user(m_proxyModel->mapToSource(index))) {
        m_activatedUserName = user->name();
    }
    accept();
}

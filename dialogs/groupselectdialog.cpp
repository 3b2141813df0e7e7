/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "groupselectdialog.h"

#include "flatproxymodel_p.h"
#include "grouplistmodel.h"
#include "selectdialog_p.h"
#include "ui_groupselectdialog.h"

GroupSelectDialog::GroupSelectDialog(const QString &userName, const QStringList &selectedNames, QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::GroupSelectDialog)
{
    ui->setupUi(this);
    SelectDialog::addFilters(ui->groupFilterComboBox,
                             {
                                 {ki18nc("filter", "All"), GroupListModel::All},
                                 {ki18nc("filter", "Ordinary"), GroupListModel::Ordinary},
                                 {ki18nc("filter", "System"), GroupListModel::System},
                                 {ki18nc("filter", "Selected"), GroupListModel::Selected},
                                 {ki18nc("filter", "Unselected"), GroupListModel::Unselected},
                             });
    m_model = new GroupListModel(userName, selectedNames, this);
    m_proxyModel = new FlatProxyModel(this);
    SelectDialog::connectModel(m_model, m_proxyModel, ui->groupFilterComboBox, ui->filterLineEdit, ui->groupsTreeView);
}

GroupSelectDialog::GroupSelectDialog(QWidget *parent)
    : GroupSelectDialog(QString(), {}, parent)
{
}

GroupSelectDialog::~GroupSelectDialog()
{
    delete ui;
}

void GroupSelectDialog::setSingleSelectionMode(bool on)
{
    m_singleSelectionMode = on;
    m_model->setSelectable(!on);
}

bool GroupSelectDialog::singleSelectionMode() const
{
    return m_singleSelectionMode;
}

QString GroupSelectDialog::selectedGroupName() const
{
    if (!m_singleSelectionMode) {
        return m_model->selectedGroupNames().value(0);
    }
    const GroupInfo *group = m_model->group(m_proxyModel->mapToSource(ui->groupsTreeView->currentIndex()));
    return group ? group->name() : QString();
}

QStringList GroupSelectDialog::selectedGroupNames() const
{
    return m_model->selectedGroupNames();
}

QString GroupSelectDialog::activatedGroupName() const
{
    return m_activatedGroupName;
}

void GroupSelectDialog::on_groupsTreeView_doubleClicked(const QModelIndex &index)
{
    if (const GroupInfo *group = m_model->group(m_proxyModel->mapToSource(index))) {
        m_activatedGroupName = group->name();
    }
    accept();
}

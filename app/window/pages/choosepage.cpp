/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "choosepage.h"

#include "choosebox.h"
#include "chosennames.h"
#include "waitcursor.h"

#include <GroupInfo>
#include <GroupSelectDialog>
#include <UserInfo>
#include <UserSelectDialog>

#include <KLocalizedString>

#include <QVBoxLayout>

namespace
{
ChooseBox::Texts groupTexts()
{
    return {
        i18nc("@title:group", "Members of a Group"),
        i18nc("@label:textbox", "Gr&oup:"),
        i18nc("@info:placeholder", "Name of a group, or nothing"),
        i18nc("@action:button choose a group", "&Browse…"),
        i18nc("@info:tooltip", "Choose a group"),
        i18nc("@action:button", "Choose &Members…"),
        i18nc("@label:textbox members of a group", "Cho&sen:"),
        chosenUsers({}),
    };
}

ChooseBox::Texts userTexts()
{
    return {
        i18nc("@title:group", "Groups of a User"),
        i18nc("@label:textbox", "Use&r:"),
        i18nc("@info:placeholder", "Name of a user, or nothing"),
        i18nc("@action:button choose a user", "Bro&wse…"),
        i18nc("@info:tooltip", "Choose a user"),
        i18nc("@action:button", "Choose Grou&ps…"),
        i18nc("@label:textbox groups of a user", "&Chosen:"),
        chosenGroups({}),
    };
}
}

ChoosePage::ChoosePage(QWidget *parent)
    : QWidget(parent)
    , m_groupBox(new ChooseBox(groupTexts()))
    , m_userBox(new ChooseBox(userTexts()))
{
    m_groupBox->setObjectName(QStringLiteral("groupBox"));
    m_userBox->setObjectName(QStringLiteral("userBox"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_groupBox, 1);
    layout->addWidget(m_userBox, 1);

    connect(m_groupBox, &ChooseBox::nameWanted, this, &ChoosePage::chooseGroup);
    connect(m_groupBox, &ChooseBox::severalWanted, this, &ChoosePage::chooseMembers);
    connect(m_userBox, &ChooseBox::nameWanted, this, &ChoosePage::chooseUser);
    connect(m_userBox, &ChooseBox::severalWanted, this, &ChoosePage::chooseGroups);
}

void ChoosePage::chooseGroup()
{
    const auto dialog = makeDialog<GroupSelectDialog>(this);
    dialog->setSingleSelectionMode(true);
    if (dialog->exec() == QDialog::Accepted) {
        m_groupBox->setName(dialog->selectedGroupName());
    }
}

void ChoosePage::chooseMembers()
{
    GroupInfo group;
    if (!m_groupBox->name().isEmpty()) {
        const WaitCursor wait;
        group = GroupInfo::getGroup(m_groupBox->name());
        if (group.isEmpty()) {
            m_groupBox->setNote(i18n("There is no group '%1'.", m_groupBox->name()));
            return;
        }
    }
    const auto dialog = makeDialog<UserSelectDialog>(group, group.users(), this);
    if (dialog->exec() == QDialog::Accepted) {
        m_groupBox->setChosen(chosenUsers(dialog->selectedUserNames()));
    }
}

void ChoosePage::chooseUser()
{
    const auto dialog = makeDialog<UserSelectDialog>(this);
    dialog->setSingleSelectionMode(true);
    if (dialog->exec() == QDialog::Accepted) {
        m_userBox->setName(dialog->selectedUserName());
    }
}

void ChoosePage::chooseGroups()
{
    UserInfo user;
    if (!m_userBox->name().isEmpty()) {
        const WaitCursor wait;
        user = UserInfo::getUser(m_userBox->name());
        if (user.isEmpty()) {
            m_userBox->setNote(i18n("There is no user '%1'.", m_userBox->name()));
            return;
        }
    }
    const auto dialog = makeDialog<GroupSelectDialog>(user.name(), user.groupNames(), this);
    if (dialog->exec() == QDialog::Accepted) {
        m_userBox->setChosen(chosenGroups(dialog->selectedGroupNames()));
    }
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "newaccountpage.h"

#include "accountdialogs.h"
#include "accountstore.h"
#include "chosennames.h"
#include "commandsview.h"
#include "contentarea.h"
#include "formrow.h"
#include "newaccount.h"
#include "notelabel.h"
#include "pagelayout.h"
#include "partsplitter.h"
#include "passwordhashbox.h"
#include "recordtext.h"
#include "savepicture.h"

#include <GroupSelectDialog>
#include <UserUtils>

#include <KLocalizedString>

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

NewAccountPage::NewAccountPage(AccountStore *store, QWidget *parent)
    : QWidget(parent)
    , m_store(store)
    , m_picture(UserUtils::getRandomUserIcon(false))
    , m_commands(
          new CommandsView(i18n("Nothing was created. To create the account, run these commands as root:"), this))
{
    QWidget *form = createForm();
    form->setObjectName(QStringLiteral("newAccount"));
    PageLayout::arrange(this, form, {m_commands})->setStacking(true);
    connect(m_password, &PasswordHashBox::hashChanged, this, &NewAccountPage::showCommands);
    connect(m_store, &AccountStore::usersRead, this, &NewAccountPage::readAccountsLater);
    connect(m_store, &AccountStore::groupsRead, this, &NewAccountPage::readAccountsLater);
    showCommands();
}

QWidget *NewAccountPage::createForm()
{
    auto *form = new QFormLayout;
    addNames(form);
    addGecos(form);
    addPicture(form);
    addGroups(form);
    m_password = new PasswordHashBox;

    auto *contents = new QWidget;
    auto *column = new QVBoxLayout(contents);
    column->setContentsMargins({});
    column->addLayout(form);
    column->addWidget(m_password);
    column->addStretch();
    auto *scrollArea = new ContentArea;
    scrollArea->setWidget(contents);
    return scrollArea;
}

NewAccountPage::Field NewAccountPage::addField(QFormLayout *form, const char *objectName, const QString &label) const
{
    auto *edit = new QLineEdit;
    edit->setObjectName(QString::fromLatin1(objectName));
    auto *note = new NoteLabel(edit);
    addRow(form, label, {edit}, note);
    connect(edit, &QLineEdit::textChanged, this, &NewAccountPage::showCommands);
    return {edit, note};
}

void NewAccountPage::addNames(QFormLayout *form)
{
    m_userName = addField(form, "userNameEdit", i18nc("@label:textbox", "User n&ame:"));
    m_groupName = addField(form, "groupNameEdit", i18nc("@label:textbox", "Grou&p name:"));
    m_groupName.edit->setPlaceholderText(i18nc("@info:placeholder", "Group with the user's name"));
    m_uid = addField(form, "uidEdit", i18nc("@label:textbox the number of a user", "UID:"));
    m_uid.edit->setPlaceholderText(i18nc("@info:placeholder a UID", "The next free one"));
}

void NewAccountPage::addGecos(QFormLayout *form)
{
    m_gecos = {
        addField(form, "fullNameEdit", i18nc("@label:textbox", "Full na&me:")),
        addField(form, "roomEdit", i18nc("@label:textbox", "&Room:")),
        addField(form, "workPhoneEdit", i18nc("@label:textbox", "&Work phone:")),
        addField(form, "homePhoneEdit", i18nc("@label:textbox", "Home pho&ne:")),
        addField(form, "otherEdit", i18nc("@label:textbox other data about a person", "&Other:")),
    };
}

void NewAccountPage::addPicture(QFormLayout *form)
{
    m_pictureButton = new QPushButton(i18nc("@action:button", "Choose P&icture…"));
    m_pictureButton->setObjectName(QStringLiteral("pictureButton"));
    const int size = 4 * fontMetrics().height();
    m_pictureButton->setIconSize(QSize(size, size));
    connect(m_pictureButton, &QPushButton::clicked, this, &NewAccountPage::choosePicture);
    m_exportButton = new QPushButton(i18nc("@action:button", "E&xport Picture…"));
    m_exportButton->setObjectName(QStringLiteral("exportButton"));
    connect(m_exportButton, &QPushButton::clicked, this, [this] {
        savePicture(m_picture, m_userName.edit->text(), window());
    });
    showPicture();
    addRow(form, i18nc("@label", "Picture:"), {m_pictureButton, m_exportButton});
}

void NewAccountPage::addGroups(QFormLayout *form)
{
    auto *button = new QPushButton(i18nc("@action:button", "Choose &Groups…"));
    button->setObjectName(QStringLiteral("groupsButton"));
    connect(button, &QPushButton::clicked, this, &NewAccountPage::chooseGroups);

    m_groupsLabel = new QLabel;
    m_groupsLabel->setObjectName(QStringLiteral("groupsLabel"));
    m_groupsLabel->setTextFormat(Qt::PlainText);
    m_groupsLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_groupsLabel->setWordWrap(true);
    showGroups();

    addRow(form, i18nc("@label", "Groups:"), {button}, m_groupsLabel);
}

/** There may be very many, which matter only where a name is entered. */
void NewAccountPage::readAccountsLater()
{
    m_outdated = true;
    if (isVisible()) {
        readAccounts();
    }
}

void NewAccountPage::showEvent(QShowEvent *event)
{
    if (m_outdated) {
        readAccounts();
    }
    QWidget::showEvent(event);
}

void NewAccountPage::readAccounts()
{
    m_outdated = false;
    m_check.readRules();
    m_check.setUsers(m_store->users());
    m_check.setGroups(m_store->groups());
    showCommands();
}

bool NewAccountPage::checkFields()
{
    bool isRefused = false;
    const auto check = [&isRefused](const Field &field, const NewAccountCheck::Note &note) {
        field.note->setNote(note.text);
        isRefused = isRefused || note.isRefused;
    };
    check(m_userName, m_check.userName(m_userName.edit->text(), m_groupName.edit->text()));
    check(m_groupName, m_check.groupName(m_groupName.edit->text()));
    check(m_uid, m_check.uid(m_uid.edit->text()));
    for (const Field &field : m_gecos) {
        check(field, m_check.gecosField(field.edit->text(), &field == &m_gecos.back()));
    }
    return !isRefused;
}

void NewAccountPage::showCommands()
{
    if (!checkFields()) {
        m_commands->setPlan({}, i18n("The account cannot be created like this: see the notes below the fields."));
    } else if (m_userName.edit->text().isEmpty()) {
        m_commands->setPlan({}, i18n("Enter a user name to see the commands that create the account."));
    } else {
        m_commands->setPlan(account().plan(), QString());
    }
}

NewAccount NewAccountPage::account() const
{
    NewAccount account;
    account.userName = m_userName.edit->text();
    account.groupName = m_groupName.edit->text();
    if (m_check.hasGroup(account.groupName)) {
        account.primaryGroup = NewAccount::PrimaryGroup::Existing;
    } else if (!account.groupName.isEmpty() && account.groupName != account.userName) {
        account.primaryGroup = NewAccount::PrimaryGroup::New;
    }
    account.uid = m_uid.edit->text();
    account.fullName = m_gecos[0].edit->text();
    account.room = m_gecos[1].edit->text();
    account.workPhone = m_gecos[2].edit->text();
    account.homePhone = m_gecos[3].edit->text();
    account.other = m_gecos[4].edit->text();
    account.groups = m_groups;
    account.passwordHash = m_password->hash();
    return account;
}

void NewAccountPage::choosePicture()
{
    QPixmap picture = m_picture;
    if (AccountDialogs::cutIcon(picture, this) && !picture.isNull()) {
        m_picture = picture;
        showPicture();
    }
}

void NewAccountPage::showPicture()
{
    m_pictureButton->setIcon(m_picture.isNull() ? QIcon::fromTheme(QStringLiteral("user")) : QIcon(m_picture));
    m_exportButton->setEnabled(!m_picture.isNull());
}

void NewAccountPage::chooseGroups()
{
    const QString name = RecordText::encode(m_userName.edit->text()).constFirst();
    const auto dialog = AccountDialogs::makeSelection<GroupSelectDialog>(name, m_groups, this);
    if (dialog->exec() == QDialog::Accepted) {
        m_groups = dialog->selectedGroupNames();
        showGroups();
        showCommands();
    }
}

void NewAccountPage::showGroups()
{
    m_groupsLabel->setText(chosenGroups(m_groups));
}

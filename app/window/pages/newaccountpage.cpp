/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "newaccountpage.h"

#include "chosennames.h"
#include "contentarea.h"
#include "formrow.h"
#include "inputcheck.h"
#include "lefttoright.h"
#include "notelabel.h"
#include "passwordhashbox.h"
#include "waitcursor.h"

#include <GroupSelectDialog>
#include <UserIconDialog>
#include <UserListModel>
#include <UserUtils>

#include <KLocalizedString>

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

namespace
{
/** Expressions are read from left to right in every language. */
QString isolated(const QString &expression)
{
    return QChar(0x2066) + expression + QChar(0x2069);
}

QString nameNote(const QValidator &validator, const QString &name)
{
    InputCheck check = checkInput(validator, name, longestName);
    if (name.isEmpty() || check.state == QValidator::Acceptable) {
        return {};
    }
    check.pattern = isolated(check.pattern);
    return check.toString();
}

/** With the commas that separate the five subfields, every other one is too many. */
QString gecosNote(const QValidator &validator, const QString &subfield)
{
    const InputCheck check = checkInput(validator, subfield + QLatin1String(",,,,"), anyLength);
    return check.state == QValidator::Acceptable ? QString() : i18n("rejected: commas separate these fields");
}

struct Field {
    QLineEdit *edit;
    NoteLabel *note;
};

/** Adds a field with a note below. */
Field addField(QFormLayout *form, const QString &objectName, const QString &label)
{
    auto *edit = new QLineEdit;
    edit->setObjectName(objectName);
    auto *note = new NoteLabel(edit);
    addRow(form, label, {edit}, note);
    return {edit, note};
}

using Note = QString(const QValidator &validator, const QString &text);

/** Notes what @p validator does not take. The edit does not get it: it would swallow what is wrong. */
void check(const Field &field, const QValidator *validator, Note *noteOn)
{
    QObject::connect(
        field.edit, &QLineEdit::textChanged, field.note, [note = field.note, validator, noteOn](const QString &text) {
            note->setNote(noteOn(*validator, text));
        });
}
}

NewAccountPage::NewAccountPage(QWidget *parent)
    : QWidget(parent)
    , m_picture(UserUtils::getRandomUserIcon(false))
    , m_userNameValidator(UserUtils::createUserNameValidator(nullptr))
{
    auto *form = new QFormLayout;
    addNames(form);
    addGecos(form);
    addPicture(form);
    addGroups(form);

    auto *contents = new QWidget;
    auto *column = new QVBoxLayout(contents);
    column->addLayout(form);
    column->addWidget(new PasswordHashBox);
    column->addStretch();

    auto *scrollArea = new ContentArea;
    scrollArea->setWidget(contents);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scrollArea, 3);
    layout->addWidget(createUserList(), 2);
}

NewAccountPage::~NewAccountPage() = default;

void NewAccountPage::addNames(QFormLayout *form)
{
    const Field user = addField(form, QStringLiteral("userNameEdit"), i18nc("@label:textbox", "User n&ame:"));
    m_userNameEdit = user.edit;
    m_userNameNote = user.note;
    connect(m_userNameEdit, &QLineEdit::textChanged, this, &NewAccountPage::changeUserName);
    const Field group = addField(form, QStringLiteral("groupNameEdit"), i18nc("@label:textbox", "Grou&p name:"));
    check(group, UserUtils::createGroupNameValidator(this), nameNote);
}

void NewAccountPage::addGecos(QFormLayout *form)
{
    const struct {
        QString objectName;
        QString label;
    } subfields[] = {
        {QStringLiteral("fullNameEdit"), i18nc("@label:textbox", "Full na&me:")},
        {QStringLiteral("roomEdit"), i18nc("@label:textbox", "&Room:")},
        {QStringLiteral("workPhoneEdit"), i18nc("@label:textbox", "&Work phone:")},
        {QStringLiteral("homePhoneEdit"), i18nc("@label:textbox", "Hom&e phone:")},
        {QStringLiteral("otherEdit"), i18nc("@label:textbox other data about a person", "&Other:")},
    };
    QValidator *validator = UserUtils::createGecosValidator(this);
    for (const auto &subfield : subfields) {
        check(addField(form, subfield.objectName, subfield.label), validator, gecosNote);
    }
}

void NewAccountPage::addPicture(QFormLayout *form)
{
    m_pictureButton = new QPushButton(i18nc("@action:button", "Choose P&icture…"));
    m_pictureButton->setObjectName(QStringLiteral("pictureButton"));
    const int size = 4 * fontMetrics().height();
    m_pictureButton->setIconSize(QSize(size, size));
    connect(m_pictureButton, &QPushButton::clicked, this, &NewAccountPage::choosePicture);
    showPicture();
    addRow(form, i18nc("@label", "Picture:"), {m_pictureButton});
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

QWidget *NewAccountPage::createUserList()
{
    m_usersView = new QTreeView;
    m_usersView->setObjectName(QStringLiteral("usersView"));
    m_usersView->setAccessibleName(i18nc("@info:whatsthis name of a list", "Existing users"));
    m_usersView->setRootIsDecorated(false);
    m_usersView->setItemsExpandable(false);
    m_usersView->setUniformRowHeights(true);
    m_usersView->setAllColumnsShowFocus(true);
    m_usersView->setItemDelegate(new LeftToRight::Delegate(m_usersView));
    m_usersView->header()->setStretchLastSection(false);
    m_usersView->header()->setSectionResizeMode(QHeaderView::ResizeToContents);

    auto *label = new QLabel(i18nc("@label:listbox", "E&xisting users:"));
    label->setBuddy(m_usersView);
    auto *list = new QWidget;
    auto *layout = new QVBoxLayout(list);
    layout->addWidget(label);
    layout->addWidget(m_usersView);
    return list;
}

void NewAccountPage::readRules()
{
    m_userNameValidator.reset(UserUtils::createUserNameValidator(nullptr));
    checkUserName();
}

void NewAccountPage::setModel(UserListModel *users)
{
    if (m_users) {
        m_users->disconnect(this);
    }
    m_users = users;
    m_usersView->setModel(users);
    if (!users) {
        return;
    }
    m_usersView->header()->setSectionResizeMode(UserListModel::NameColumn, QHeaderView::Stretch);
    // A reset takes the row of the new user away. Other views learn of the reset first.
    connect(users, &UserListModel::modelReset, this, &NewAccountPage::showNewUser, Qt::QueuedConnection);
    showNewUser();
}

void NewAccountPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    showNewUser();
}

void NewAccountPage::changeUserName(const QString &name)
{
    if (m_users && name.isEmpty()) {
        m_users->applyFilter();
    }
    checkUserName();
    showNewUser();
}

void NewAccountPage::checkUserName()
{
    m_userNameNote->setNote(nameNote(*m_userNameValidator, m_userNameEdit->text()));
}

void NewAccountPage::showNewUser()
{
    const QString name = m_userNameEdit->text();
    if (m_users && isVisible() && !name.isEmpty()) {
        const QModelIndex index = m_users->setNewUserName(name);
        m_usersView->setCurrentIndex(index);
        m_usersView->scrollTo(index);
    }
}

void NewAccountPage::choosePicture()
{
    UserIconDialog dialog(this);
    dialog.setPixmap(m_picture);
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedPixmap().isNull()) {
        m_picture = dialog.selectedPixmap();
        showPicture();
    }
}

void NewAccountPage::showPicture()
{
    m_pictureButton->setIcon(m_picture.isNull() ? QIcon::fromTheme(QStringLiteral("user")) : QIcon(m_picture));
}

void NewAccountPage::chooseGroups()
{
    const auto dialog = makeDialog<GroupSelectDialog>(m_userNameEdit->text(), m_groups, this);
    if (dialog->exec() == QDialog::Accepted) {
        m_groups = dialog->selectedGroupNames();
        showGroups();
    }
}

void NewAccountPage::showGroups()
{
    m_groupsLabel->setText(chosenGroups(m_groups));
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "newaccountpage.h"

#include "accountstore.h"
#include "chosennames.h"
#include "contentarea.h"
#include "formrow.h"
#include "inputcheck.h"
#include "notelabel.h"
#include "passwordhashbox.h"
#include "waitcursor.h"

#include <GroupSelectDialog>
#include <UserIconDialog>
#include <UserUtils>

#include <KLocalizedString>

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

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

NewAccountPage::NewAccountPage(AccountStore *store, QWidget *parent)
    : QWidget(parent)
    , m_store(store)
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
    layout->addWidget(scrollArea);
    connect(m_store, &AccountStore::usersRead, this, &NewAccountPage::readRules);
}

NewAccountPage::~NewAccountPage() = default;

void NewAccountPage::addNames(QFormLayout *form)
{
    const Field user = addField(form, QStringLiteral("userNameEdit"), i18nc("@label:textbox", "User n&ame:"));
    m_userNameEdit = user.edit;
    m_userNameNote = user.note;
    connect(m_userNameEdit, &QLineEdit::textChanged, this, &NewAccountPage::checkUserName);
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
        {QStringLiteral("homePhoneEdit"), i18nc("@label:textbox", "Home pho&ne:")},
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

void NewAccountPage::readRules()
{
    m_userNameValidator.reset(UserUtils::createUserNameValidator(nullptr));
    checkUserName();
}

void NewAccountPage::checkUserName()
{
    const QString name = m_userNameEdit->text();
    const QVector<UserRecord> &users = m_store->users();
    const bool taken =
        std::any_of(users.begin(), users.end(), [&name](const UserRecord &user) { return user.name == name; });
    m_userNameNote->setNote(taken ? i18n("There is already a user of this name.")
                                  : nameNote(*m_userNameValidator, name));
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

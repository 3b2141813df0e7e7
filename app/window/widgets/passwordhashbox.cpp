/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "passwordhashbox.h"

#include "formrow.h"
#include "notelabel.h"
#include "passwordhash.h"
#include "waitcursor.h"

#include <KLocalizedString>

#include <QClipboard>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

PasswordHashBox::PasswordHashBox(QWidget *parent)
    : QGroupBox(i18nc("@title:group", "Password Hash"), parent)
{
    auto *form = new QFormLayout(this);
    addPassword(form);
    m_methods = {addMethod(form, false), addMethod(form, true)};
}

void PasswordHashBox::addPassword(QFormLayout *form)
{
    m_passwordEdit = new QLineEdit;
    m_passwordEdit->setObjectName(QStringLiteral("passwordEdit"));
    m_passwordEdit->setEchoMode(QLineEdit::Password);
    auto *button = new QPushButton(i18nc("@action:button", "Ma&ke Hashes"));
    button->setObjectName(QStringLiteral("hashButton"));
    button->setToolTip(i18nc("@info:tooltip", "Hash the password, with a new salt each time"));
    addRow(form, i18nc("@label:textbox", "Passwor&d:"), {m_passwordEdit, button});

    connect(m_passwordEdit, &QLineEdit::textChanged, this, &PasswordHashBox::clearHashes);
    connect(m_passwordEdit, &QLineEdit::returnPressed, this, &PasswordHashBox::hashPassword);
    connect(button, &QPushButton::clicked, this, &PasswordHashBox::hashPassword);
}

PasswordHashBox::Method PasswordHashBox::addMethod(QFormLayout *form, bool isGost)
{
    auto *edit = new QLineEdit;
    edit->setObjectName(isGost ? QStringLiteral("gostHashEdit") : QStringLiteral("sha512HashEdit"));
    edit->setReadOnly(true);
    auto *button = new QPushButton(i18nc("@action:button copy a hash", "Copy"));
    button->setObjectName(isGost ? QStringLiteral("copyGostButton") : QStringLiteral("copySha512Button"));
    button->setAccessibleName(isGost ? i18nc("@action:button", "Copy the GOST hash")
                                     : i18nc("@action:button", "Copy the SHA-512 hash"));
    button->setEnabled(false);
    auto *note = new NoteLabel(edit);
    addRow(form,
           isGost ? i18nc("@label:textbox password hash by the method", "GOS&T:")
                  : i18nc("@label:textbox password hash by the method", "&SHA-512:"),
           {edit, button},
           note);

    connect(
        edit, &QLineEdit::textChanged, button, [button](const QString &hash) { button->setEnabled(!hash.isEmpty()); });
    connect(button, &QPushButton::clicked, edit, [edit] { QGuiApplication::clipboard()->setText(edit->text()); });
    return {isGost, edit, note};
}

void PasswordHashBox::hashPassword()
{
    const WaitCursor wait;
    for (const Method &method : m_methods) {
        const PasswordHash result = makePasswordHash(m_passwordEdit->text(), method.isGost);
        method.hashEdit->setText(result.hash);
        method.hashEdit->setCursorPosition(0);
        method.note->setNote(result.error);
    }
}

void PasswordHashBox::clearHashes()
{
    for (const Method &method : m_methods) {
        method.hashEdit->clear();
        method.note->setNote(QString());
    }
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "passwordhashbox.h"

#include "encryptmethod.h"
#include "formrow.h"
#include "notelabel.h"
#include "passwordhash.h"
#include "readingorder.h"
#include "waitcursor.h"

#include <KLocalizedString>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

PasswordHashBox::PasswordHashBox(QWidget *parent)
    : QGroupBox(i18nc("@title:group", "Password Hash"), parent)
{
    auto *form = new QFormLayout(this);
    addPassword(form);
    m_methods = {addMethod(form, false), addMethod(form, true)};
    addChoice(form);
}

void PasswordHashBox::addPassword(QFormLayout *form)
{
    m_passwordEdit = new QLineEdit;
    m_passwordEdit->setObjectName(QStringLiteral("passwordEdit"));
    m_passwordEdit->setEchoMode(QLineEdit::Password);
    auto *button = new QPushButton(i18nc("@action:button", "Ma&ke Hashes"));
    button->setObjectName(QStringLiteral("hashButton"));
    button->setToolTip(i18nc("@info:tooltip", "Hash the password, with a new salt each time"));
    auto *reveal = new QCheckBox(i18nc("@option:check show what is typed", "Reveal"));
    reveal->setObjectName(QStringLiteral("revealCheckBox"));
    reveal->setAccessibleName(i18nc("@option:check", "Reveal the password"));
    addRow(form, i18nc("@label:textbox", "Passwor&d:"), {m_passwordEdit, reveal, button});

    connect(reveal, &QCheckBox::toggled, m_passwordEdit, [this](bool isRevealed) {
        m_passwordEdit->setEchoMode(isRevealed ? QLineEdit::Normal : QLineEdit::Password);
    });
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

void PasswordHashBox::addChoice(QFormLayout *form)
{
    m_choice = new QComboBox;
    m_choice->setObjectName(QStringLiteral("hashComboBox"));
    m_choice->addItem(i18nc("@item:inlistbox no hash", "None"));
    // In the order of the methods.
    m_choice->addItem(i18nc("@item:inlistbox a method", "SHA-512"));
    m_choice->addItem(i18nc("@item:inlistbox a method", "GOST"));
    m_choice->setCurrentIndex(1);
    auto *note = new QLabel(ReadingOrder::ofSentence(encryptMethodNote()));
    note->setObjectName(QStringLiteral("encryptMethodNote"));
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    const QString label = i18nc("@label:listbox which hash the commands set", "Hash to set:");
    m_choice->view()->setAccessibleName(KLocalizedString::removeAcceleratorMarker(label));
    addRow(form, label, {m_choice}, note);
    connect(m_choice, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &PasswordHashBox::hashChanged);
}

QString PasswordHashBox::hash() const
{
    const int method = m_choice->currentIndex() - 1;
    return method < 0 ? QString() : m_methods.at(method).hashEdit->text();
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
    Q_EMIT hashChanged();
}

void PasswordHashBox::clearHashes()
{
    for (const Method &method : m_methods) {
        method.hashEdit->clear();
        method.note->setNote(QString());
    }
    Q_EMIT hashChanged();
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PASSWORDHASHBOX_H
#define PASSWORDHASHBOX_H

#include <QGroupBox>

#include <array>

class NoteLabel;
class QComboBox;
class QFormLayout;
class QLineEdit;

/** Hashes a password by both methods, to be copied from here or set for an account. */
class PasswordHashBox : public QGroupBox
{
    Q_OBJECT

public:
    explicit PasswordHashBox(QWidget *parent = nullptr);

    /** The hash that was chosen for the account; empty when there is none. */
    QString hash() const;

Q_SIGNALS:
    void hashChanged();

private:
    /** A method, its hash and a note about it. */
    struct Method {
        bool isGost;
        QLineEdit *hashEdit;
        NoteLabel *note;
    };

    void addPassword(QFormLayout *form);
    Method addMethod(QFormLayout *form, bool isGost);
    void addChoice(QFormLayout *form);
    void hashPassword();
    void clearHashes();

    QComboBox *m_choice;
    QLineEdit *m_passwordEdit;
    std::array<Method, 2> m_methods;
};

#endif

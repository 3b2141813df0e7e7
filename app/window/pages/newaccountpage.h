/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef NEWACCOUNTPAGE_H
#define NEWACCOUNTPAGE_H

#include "newaccountcheck.h"

#include <QPixmap>
#include <QStringList>
#include <QWidget>

#include <array>

class AccountStore;
class CommandsView;
class NoteLabel;
class PasswordHashBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
struct NewAccount;

/** The form for a new account, which is checked as it is filled in, and the commands that create the account. */
class NewAccountPage : public QWidget
{
    Q_OBJECT

public:
    explicit NewAccountPage(AccountStore *store, QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void addNames(QFormLayout *form);
    void addGecos(QFormLayout *form);
    void addPicture(QFormLayout *form);
    void addGroups(QFormLayout *form);

    /** A field with a note below. */
    struct Field {
        QLineEdit *edit;
        NoteLabel *note;
    };

    Field addField(QFormLayout *form, const char *objectName, const QString &label) const;
    QWidget *createForm();

    void readAccountsLater();

    /** Checks against the accounts and rules as they are now. */
    void readAccounts();

    /** Shows notes on the fields. @return whether an account can be created with them */
    bool checkFields();
    void showCommands();
    NewAccount account() const;
    void choosePicture();
    void showPicture();
    void chooseGroups();
    void showGroups();

    AccountStore *const m_store;
    QPixmap m_picture;
    QStringList m_groups;
    NewAccountCheck m_check;
    /** Whether the accounts have changed since they were read for the check. */
    bool m_outdated = false;
    Field m_userName;
    Field m_groupName;
    Field m_uid;
    /** The subfields of the GECOS field, in their order. */
    std::array<Field, 5> m_gecos;
    QPushButton *m_pictureButton;
    QPushButton *m_exportButton;
    QLabel *m_groupsLabel;
    PasswordHashBox *m_password;
    CommandsView *const m_commands;
};

#endif

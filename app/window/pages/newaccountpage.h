/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef NEWACCOUNTPAGE_H
#define NEWACCOUNTPAGE_H

#include <QPixmap>
#include <QStringList>
#include <QWidget>

#include <memory>

class AccountStore;
class NoteLabel;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QValidator;

/** Everything that is asked for a new account, checked as it is typed. Creates nothing. */
class NewAccountPage : public QWidget
{
    Q_OBJECT

public:
    explicit NewAccountPage(AccountStore *store, QWidget *parent = nullptr);
    ~NewAccountPage() override;

private:
    void addNames(QFormLayout *form);
    void addGecos(QFormLayout *form);
    void addPicture(QFormLayout *form);
    void addGroups(QFormLayout *form);

    /** Reads again which user names are allowed. */
    void readRules();
    void checkUserName();
    void choosePicture();
    void showPicture();
    void chooseGroups();
    void showGroups();

    AccountStore *const m_store;
    QPixmap m_picture;
    QStringList m_groups;
    std::unique_ptr<QValidator> m_userNameValidator;
    QLineEdit *m_userNameEdit;
    NoteLabel *m_userNameNote;
    QPushButton *m_pictureButton;
    QLabel *m_groupsLabel;
};

#endif

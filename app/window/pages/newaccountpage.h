/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef NEWACCOUNTPAGE_H
#define NEWACCOUNTPAGE_H

#include <QPixmap>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <memory>

class NoteLabel;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeView;
class QValidator;
class UserListModel;

/** Everything that is asked for a new account, checked as it is typed. Creates nothing. */
class NewAccountPage : public QWidget
{
    Q_OBJECT

public:
    explicit NewAccountPage(QWidget *parent = nullptr);
    ~NewAccountPage() override;

    /** Reads anew which user names are allowed. */
    void readRules();

    /**
     * Lists @p users, which stay the caller's, and a row for the new account while its name is typed.
     * The page applies the filter of the model to take that row out again.
     */
    void setModel(UserListModel *users);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void addNames(QFormLayout *form);
    void addGecos(QFormLayout *form);
    void addPicture(QFormLayout *form);
    void addGroups(QFormLayout *form);
    QWidget *createUserList();

    void changeUserName(const QString &name);
    void checkUserName();
    void showNewUser();
    void choosePicture();
    void showPicture();
    void chooseGroups();
    void showGroups();

    QPointer<UserListModel> m_users;
    QPixmap m_picture;
    QStringList m_groups;
    std::unique_ptr<QValidator> m_userNameValidator;
    QLineEdit *m_userNameEdit;
    NoteLabel *m_userNameNote;
    QPushButton *m_pictureButton;
    QLabel *m_groupsLabel;
    QTreeView *m_usersView;
};

#endif

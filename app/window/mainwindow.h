/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef MAINWINDOW_H
#define MAINWINDOW_H

#include "accountlink.h"

#include <QMainWindow>

class AccountStore;
class History;
class LimitsPage;
class ListPage;
class ProblemStore;
class QAction;
class QActionGroup;
class QDialog;
class QMenu;
class QTabWidget;
class RecordList;

/** The window of the application. It can be used, and closed, while the accounts are being read. */
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);

    /** Starts reading everything, or starts over. */
    void reload();

    QTabWidget *pages() const;

    /** Opens help on the current page; the dialog deletes itself when it is closed. */
    QDialog *showHelp();

Q_SIGNALS:
    /** Reading has ended. */
    void reloaded();

protected:
    bool event(QEvent *event) override;

private:
    void addPages();
    void addPage(QWidget *page, const char *name, const QString &title);
    void addMenus();
    void addFileMenu();
    void addEditMenu();
    void addViewMenu();
    void addGoActions(QMenu *menu);
    void addHelpMenu();
    void addGoButtons();
    void updatePage();
    void updateExport();
    void updateReading();
    void updateGoing();
    void updateProblems();
    void reportReloaded();
    AccountLink place() const;
    void follow(const AccountLink &link);
    void go(const AccountLink &link);
    ListPage *pageOf(AccountLink::Kind kind) const;
    RecordList *currentList() const;

    AccountStore *const m_store;
    ProblemStore *const m_problems;
    QTabWidget *const m_pages;
    History *const m_history;
    QActionGroup *const m_pageActions;
    ListPage *m_usersPage = nullptr;
    ListPage *m_groupsPage = nullptr;
    LimitsPage *m_limitsPage = nullptr;
    ListPage *m_problemsPage = nullptr;
    QWidget *m_newAccountPage = nullptr;
    QMenu *m_fileMenu = nullptr;
    QMenu *m_editMenu = nullptr;
    QAction *m_exportAction = nullptr;
    QAction *m_quitSeparator = nullptr;
    QAction *m_cancelAction = nullptr;
    QAction *m_searchAction = nullptr;
    QAction *m_backAction = nullptr;
    QAction *m_forwardAction = nullptr;
    /** Whether reading has begun. The first paint begins it if nothing else did. */
    bool m_started = false;
};

#endif

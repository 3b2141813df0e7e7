/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef MAINWINDOW_H
#define MAINWINDOW_H

#include <QMainWindow>

class AccountList;
class AccountStore;
class QAction;
class QActionGroup;
class QLabel;
class QTabWidget;

/**
 * The window of the application.
 *
 * Reading the accounts may take long and keeps the GUI thread busy. So the window is painted first,
 * and each part of the reading begins only when it is painted what is going to be read.
 */
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

    /** Reads everything anew, part by part from the event loop. Does nothing while that goes on. */
    void reload();

    QTabWidget *pages() const;

Q_SIGNALS:
    /** Everything was read. */
    void reloaded();

protected:
    bool event(QEvent *event) override;

private:
    void addPages();
    void addPage(QWidget *page, const char *name, const QString &title);
    void addMenus();
    void addFileMenu();
    void addViewMenu();
    void addHelpMenu();
    void updateViewMenu();
    void startStep(int step);
    void finishReading();
    AccountList *currentList() const;

    AccountStore *const m_store;
    QTabWidget *const m_pages;
    QActionGroup *const m_pageActions;
    QLabel *const m_progress;
    QAction *m_reloadAction = nullptr;
    QAction *m_filterAction = nullptr;
    /** Whether the first reading is under way or done. The first paint begins it, if nobody did before. */
    bool m_started = false;
    bool m_reading = false;
};

#endif

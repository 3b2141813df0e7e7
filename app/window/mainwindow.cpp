/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "mainwindow.h"

#include "about.h"
#include "accountlist.h"
#include "accountstore.h"
#include "choosepage.h"
#include "groupspage.h"
#include "limitspage.h"
#include "newaccountpage.h"
#include "userspage.h"
#include "waitcursor.h"

#include <KLazyLocalizedString>
#include <KLocalizedString>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QLabel>
#include <QLocale>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QTime>
#include <QTimer>

namespace
{
struct Step {
    KLazyLocalizedString progress;
    void (*read)(AccountStore &store);
};

// The limits come first, since the pages of accounts show them, too.
const Step steps[] = {
    {kli18n("Reading the limits…"), [](AccountStore &store) { store.readLimits(); }},
    {kli18n("Reading the users…"), [](AccountStore &store) { store.readUsers(); }},
    {kli18n("Reading the groups…"), [](AccountStore &store) { store.readGroups(); }},
};
constexpr int stepCount = std::size(steps);
}

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_store(new AccountStore(this))
    , m_pages(new QTabWidget(this))
    , m_pageActions(new QActionGroup(this))
    , m_progress(new QLabel(steps[0].progress.toString(), this))
{
    setWindowTitle(i18nc("@title name of the application", "Ormel Users"));
    resize(960, 700);
    m_pages->setObjectName(QStringLiteral("pages"));
    m_pages->setDocumentMode(true);
    m_pages->setEnabled(false);
    setCentralWidget(m_pages);
    m_progress->setObjectName(QStringLiteral("progress"));
    statusBar()->addWidget(m_progress, 1);
    addPages();
    addMenus();
}

MainWindow::~MainWindow()
{
    if (m_reading) {
        QApplication::restoreOverrideCursor();
    }
}

void MainWindow::addPages()
{
    addPage(new UsersPage(m_store), "users", i18nc("@title:tab also in a menu", "&Users"));
    addPage(new GroupsPage(m_store), "groups", i18nc("@title:tab also in a menu", "&Groups"));
    addPage(new LimitsPage(m_store), "limits", i18nc("@title:tab also in a menu", "&Limits"));
    auto *newAccount = new NewAccountPage;
    // Its list is read when it is looked at: that may take long, and most often nobody does.
    const auto listUsers = [=] {
        if (m_pages->currentWidget() == newAccount && m_store->users()) {
            const WaitCursor wait;
            newAccount->setModel(m_store->usersBesideNewOne());
        }
    };
    connect(m_pages, &QTabWidget::currentChanged, newAccount, listUsers);
    connect(m_store, &AccountStore::usersRead, newAccount, listUsers);
    connect(m_store, &AccountStore::usersRead, newAccount, &NewAccountPage::readRules);
    addPage(newAccount, "new-account", i18nc("@title:tab also in a menu", "&New Account"));
    addPage(new ChoosePage, "choose", i18nc("@title:tab also in a menu", "&Choose"));
}

void MainWindow::addPage(QWidget *page, const char *name, const QString &title)
{
    page->setObjectName(QString::fromLatin1(name));
    // The letters of the pages are for the fields in them.
    m_pages->addTab(page, KLocalizedString::removeAcceleratorMarker(title));

    QAction *action = m_pageActions->addAction(title);
    action->setCheckable(true);
    action->setShortcut(QKeySequence(QStringLiteral("Alt+%1").arg(m_pages->count()), QKeySequence::PortableText));
    connect(action, &QAction::triggered, m_pages, [=] { m_pages->setCurrentWidget(page); });
}

void MainWindow::addMenus()
{
    addFileMenu();
    addViewMenu();
    addHelpMenu();
}

void MainWindow::addFileMenu()
{
    QMenu *menu = menuBar()->addMenu(i18nc("@title:menu", "&File"));
    m_reloadAction = menu->addAction(QIcon::fromTheme(QStringLiteral("view-refresh")),
                                     i18nc("@action:inmenu read the accounts again", "&Reload"),
                                     this,
                                     &MainWindow::reload,
                                     QKeySequence::Refresh);
    menu->addSeparator();
    QAction *quit = menu->addAction(QIcon::fromTheme(QStringLiteral("application-exit")),
                                    i18nc("@action:inmenu", "&Quit"),
                                    this,
                                    &QWidget::close,
                                    QKeySequence(QStringLiteral("Ctrl+Q"), QKeySequence::PortableText));
    quit->setMenuRole(QAction::QuitRole);
}

void MainWindow::addViewMenu()
{
    QMenu *menu = menuBar()->addMenu(i18nc("@title:menu", "&View"));
    menu->addActions(m_pageActions->actions());
    menu->addSeparator();
    m_filterAction = menu->addAction(
        QIcon::fromTheme(QStringLiteral("view-filter")),
        i18nc("@action:inmenu", "&Filter by Name"),
        this,
        [this] { currentList()->focusFilter(); },
        QKeySequence::Find);
    connect(m_pages, &QTabWidget::currentChanged, this, &MainWindow::updateViewMenu);
    updateViewMenu();
}

void MainWindow::addHelpMenu()
{
    QMenu *menu = menuBar()->addMenu(i18nc("@title:menu", "&Help"));
    const auto showAbout = [this] { About::createDialog(this)->open(); };
    menu->addAction(QApplication::windowIcon(), i18nc("@action:inmenu", "&About Ormel Users"), this, showAbout)
        ->setMenuRole(QAction::AboutRole);
    menu->addAction(i18nc("@action:inmenu", "About &Qt"), qApp, &QApplication::aboutQt)
        ->setMenuRole(QAction::AboutQtRole);
}

void MainWindow::updateViewMenu()
{
    m_pageActions->actions().at(m_pages->currentIndex())->setChecked(true);
    m_filterAction->setEnabled(currentList());
}

QTabWidget *MainWindow::pages() const
{
    return m_pages;
}

AccountList *MainWindow::currentList() const
{
    return m_pages->currentWidget()->findChild<AccountList *>();
}

bool MainWindow::event(QEvent *event)
{
    if (event->type() == QEvent::Paint && !m_started) {
        m_started = true;
        QTimer::singleShot(0, this, &MainWindow::reload);
    }
    return QMainWindow::event(event);
}

void MainWindow::reload()
{
    if (m_reading) {
        return;
    }
    m_started = true;
    m_reading = true;
    m_reloadAction->setEnabled(false);
    QApplication::setOverrideCursor(Qt::BusyCursor);
    startStep(0);
}

void MainWindow::startStep(int step)
{
    if (step == stepCount) {
        finishReading();
        return;
    }
    m_progress->setText(steps[step].progress.toString());
    QTimer::singleShot(0, this, [this, step] {
        m_progress->repaint();
        steps[step].read(*m_store);
        startStep(step + 1);
    });
}

void MainWindow::finishReading()
{
    m_reading = false;
    m_reloadAction->setEnabled(true);
    QApplication::restoreOverrideCursor();
    const QString time = QLocale().toString(QTime::currentTime(), QLocale::ShortFormat);
    m_progress->setText(i18nc("@info:status %1 is a time of day", "Read at %1", time));
    if (!m_pages->isEnabled()) {
        m_pages->setEnabled(true);
        if (AccountList *list = currentList()) {
            list->focusList();
        } else {
            m_pages->setFocus();
        }
    }
    Q_EMIT reloaded();
}

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

#include <KLazyLocalizedString>
#include <KLocalizedString>

#include <QAction>
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
    void (AccountStore::*read)();
};

// The limits come first, since the pages of accounts show them, too.
const Step steps[] = {
    {kli18n("Reading the limits…"), &AccountStore::readLimits},
    {kli18n("Reading the users…"), &AccountStore::readUsers},
    {kli18n("Reading the groups…"), &AccountStore::readGroups},
};
constexpr int stepCount = std::size(steps);
}

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_store(new AccountStore(this))
    , m_pages(new QTabWidget(this))
    , m_progress(new QLabel(steps[0].progress.toString(), this))
{
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
    addPage(new UsersPage(m_store), "users", i18nc("@title:tab", "&Users"));
    addPage(new GroupsPage(m_store), "groups", i18nc("@title:tab", "&Groups"));
    addPage(new LimitsPage(m_store), "limits", i18nc("@title:tab", "&Limits"));
    auto *newAccount = new NewAccountPage;
    connect(m_store, &AccountStore::usersRead, newAccount, [=] { newAccount->setModel(m_store->users()); });
    addPage(newAccount, "new-account", i18nc("@title:tab", "&New Account"));
    addPage(new ChoosePage, "choose", i18nc("@title:tab", "&Choose"));
}

void MainWindow::addPage(QWidget *page, const char *name, const QString &title)
{
    page->setObjectName(QString::fromLatin1(name));
    m_pages->addTab(page, title);
}

void MainWindow::addMenus()
{
    QMenu *file = menuBar()->addMenu(i18nc("@title:menu", "&File"));
    m_reloadAction = file->addAction(QIcon::fromTheme(QStringLiteral("view-refresh")),
                                     i18nc("@action:inmenu read the accounts again", "&Reload"),
                                     this,
                                     &MainWindow::reload);
    m_reloadAction->setShortcut(QKeySequence::Refresh);
    file->addSeparator();
    QAction *quit = file->addAction(
        QIcon::fromTheme(QStringLiteral("application-exit")), i18nc("@action:inmenu", "&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);
    quit->setMenuRole(QAction::QuitRole);

    QMenu *edit = menuBar()->addMenu(i18nc("@title:menu", "&Edit"));
    m_filterAction =
        edit->addAction(QIcon::fromTheme(QStringLiteral("view-filter")), i18nc("@action:inmenu", "&Filter by Name"));
    m_filterAction->setShortcut(QKeySequence::Find);
    connect(m_filterAction, &QAction::triggered, this, [this] { currentList()->focusFilter(); });
    const auto update = [this] { m_filterAction->setEnabled(currentList()); };
    connect(m_pages, &QTabWidget::currentChanged, this, update);
    update();

    QMenu *help = menuBar()->addMenu(i18nc("@title:menu", "&Help"));
    QAction *about = help->addAction(QIcon::fromTheme(QStringLiteral("help-about")),
                                     i18nc("@action:inmenu", "&About Ormel Users"),
                                     this,
                                     [this] { About::createDialog(this)->open(); });
    about->setMenuRole(QAction::AboutRole);
    help->addAction(i18nc("@action:inmenu", "About &Qt"), qApp, &QApplication::aboutQt)
        ->setMenuRole(QAction::AboutQtRole);
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
    if (event->type() == QEvent::Paint && !m_painted) {
        m_painted = true;
        QTimer::singleShot(0, this, &MainWindow::reload);
    }
    return QMainWindow::event(event);
}

void MainWindow::reload()
{
    if (m_reading) {
        return;
    }
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
        (m_store->*steps[step].read)();
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
        m_pages->setFocus();
    }
    Q_EMIT reloaded();
}

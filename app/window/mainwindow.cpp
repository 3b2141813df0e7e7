/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "mainwindow.h"

#include "about.h"
#include "accountstore.h"
#include "copiedtext.h"
#include "groupspage.h"
#include "help.h"
#include "history.h"
#include "limitspage.h"
#include "newaccountpage.h"
#include "problemspage.h"
#include "problemstore.h"
#include "readingorder.h"
#include "readingprogress.h"
#include "recordlist.h"
#include "rowactions.h"
#include "userspage.h"
#include "visibletext.h"

#include <KLocalizedString>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QStyle>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>

namespace
{
/** The arrows of a theme point to where they lead, in languages that are read from right to left as well. */
QIcon arrow(bool back, const QWidget &widget)
{
    const bool left = back == (widget.layoutDirection() == Qt::LeftToRight);
    const QIcon fallback = widget.style()->standardIcon(left ? QStyle::SP_ArrowLeft : QStyle::SP_ArrowRight);
    return QIcon::fromTheme(left ? QStringLiteral("go-previous") : QStringLiteral("go-next"), fallback);
}
}

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_store(new AccountStore(this))
    , m_problems(new ProblemStore(m_store, this))
    , m_pages(new QTabWidget(this))
    , m_history(new History(this))
    , m_pageActions(new QActionGroup(this))
{
    setWindowTitle(i18nc("@title name of the application", "Ormel Users"));
    resize(960, 700);
    m_pages->setObjectName(QStringLiteral("pages"));
    m_pages->setDocumentMode(true);
    setCentralWidget(m_pages);
    statusBar()->addWidget(new ReadingProgress(m_store), 1);
    addPages();
    addMenus();
    addGoButtons();
    CopiedText::removeMarks(this);
    connect(m_pages, &QTabWidget::currentChanged, this, &MainWindow::updatePage);
    connect(m_store, &AccountStore::started, this, &MainWindow::updateReading);
    connect(m_store, &AccountStore::ended, this, &MainWindow::updateReading);
    connect(m_store, &AccountStore::ended, this, &MainWindow::reportReloaded);
    connect(m_problems, &ProblemStore::ended, this, &MainWindow::updateProblems);
    connect(m_problems, &ProblemStore::ended, this, &MainWindow::reportReloaded);
    connect(m_history, &History::changed, this, &MainWindow::updateGoing);
    updatePage();
    updateReading();
    updateGoing();
}

void MainWindow::addPages()
{
    m_usersPage = new UsersPage(m_store);
    m_groupsPage = new GroupsPage(m_store);
    m_limitsPage = new LimitsPage(m_store);
    addPage(m_usersPage, "users", i18nc("@title:tab also in a menu", "&Users"));
    addPage(m_groupsPage, "groups", i18nc("@title:tab also in a menu", "&Groups"));
    addPage(m_limitsPage, "limits", i18nc("@title:tab also in a menu", "&Limits"));
    m_problemsPage = new ProblemsPage(m_problems);
    addPage(m_problemsPage, "problems", i18nc("@title:tab also in a menu", "&Problems"));
    m_newAccountPage = new NewAccountPage(m_store);
    addPage(m_newAccountPage, "new-account", i18nc("@title:tab also in a menu", "&New Account"));
    connect(m_limitsPage, &LimitsPage::followed, this, &MainWindow::follow);
    for (ListPage *page : {m_usersPage, m_groupsPage, m_problemsPage}) {
        connect(page, &ListPage::followed, this, &MainWindow::follow);
    }
}

void MainWindow::addPage(QWidget *page, const char *name, const QString &title)
{
    page->setObjectName(QString::fromLatin1(name));
    // The mnemonics of the pages are for the fields in them.
    m_pages->addTab(page, KLocalizedString::removeAcceleratorMarker(title));

    QAction *action = m_pageActions->addAction(title);
    action->setCheckable(true);
    action->setShortcut(QKeySequence(QStringLiteral("Alt+%1").arg(m_pages->count()), QKeySequence::PortableText));
    connect(action, &QAction::triggered, m_pages, [=] { m_pages->setCurrentWidget(page); });
}

void MainWindow::addMenus()
{
    addFileMenu();
    addEditMenu();
    addViewMenu();
    addHelpMenu();
}

void MainWindow::addFileMenu()
{
    m_fileMenu = menuBar()->addMenu(i18nc("@title:menu", "&File"));
    m_fileMenu->addAction(QIcon::fromTheme(QStringLiteral("view-refresh")),
                          i18nc("@action:inmenu read the accounts again", "&Reload"),
                          this,
                          &MainWindow::reload,
                          QKeySequence::Refresh);
    m_cancelAction = m_fileMenu->addAction(QIcon::fromTheme(QStringLiteral("process-stop")),
                                           i18nc("@action:inmenu stop reading the accounts", "&Cancel Reading"),
                                           m_store,
                                           &AccountStore::cancel,
                                           QKeySequence(Qt::Key_Escape));
    m_fileMenu->addSeparator();
    m_quitSeparator = m_fileMenu->addSeparator();
    QAction *quit = m_fileMenu->addAction(QIcon::fromTheme(QStringLiteral("application-exit")),
                                          i18nc("@action:inmenu", "&Quit"),
                                          this,
                                          &QWidget::close,
                                          QKeySequence(QStringLiteral("Ctrl+Q"), QKeySequence::PortableText));
    quit->setMenuRole(QAction::QuitRole);
}

void MainWindow::addEditMenu()
{
    m_editMenu = menuBar()->addMenu(i18nc("@title:menu", "&Edit"));
}

void MainWindow::addViewMenu()
{
    QMenu *menu = menuBar()->addMenu(i18nc("@title:menu", "&View"));
    menu->addActions(m_pageActions->actions());
    menu->addSeparator();
    m_searchAction = menu->addAction(
        QIcon::fromTheme(QStringLiteral("edit-find")),
        i18nc("@action:inmenu", "&Search"),
        this,
        [this] { currentList()->focusSearch(); },
        QKeySequence::Find);
    menu->addSeparator();
    addGoActions(menu);
}

void MainWindow::addGoActions(QMenu *menu)
{
    m_backAction = menu->addAction(
        arrow(true, *this),
        i18nc("@action:inmenu", "&Back"),
        this,
        [this] { go(m_history->back(place())); },
        QKeySequence::Back);
    m_forwardAction = menu->addAction(
        arrow(false, *this),
        i18nc("@action:inmenu", "&Forward"),
        this,
        [this] { go(m_history->forward(place())); },
        QKeySequence::Forward);
}

void MainWindow::addGoButtons()
{
    auto *buttons = new QWidget;
    auto *layout = new QHBoxLayout(buttons);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    for (QAction *action : {m_backAction, m_forwardAction}) {
        auto *button = new QToolButton;
        button->setDefaultAction(action);
        button->setAutoRaise(true);
        button->setAccessibleName(KLocalizedString::removeAcceleratorMarker(action->text()));
        layout->addWidget(button);
    }
    m_pages->setCornerWidget(buttons, Qt::TopLeftCorner);
}

void MainWindow::addHelpMenu()
{
    QMenu *menu = menuBar()->addMenu(i18nc("@title:menu", "&Help"));
    menu->addAction(QIcon::fromTheme(QStringLiteral("help-contents")),
                    i18nc("@action:inmenu", "&Help on This Page"),
                    this,
                    &MainWindow::showHelp,
                    QKeySequence::HelpContents);
    menu->addSeparator();
    const auto showAbout = [this] { About::createDialog(this)->open(); };
    menu->addAction(QApplication::windowIcon(), i18nc("@action:inmenu", "&About Ormel Users"), this, showAbout)
        ->setMenuRole(QAction::AboutRole);
    menu->addAction(i18nc("@action:inmenu", "About &Qt"), qApp, &QApplication::aboutQt)
        ->setMenuRole(QAction::AboutQtRole);
}

QDialog *MainWindow::showHelp()
{
    QList<QAction *> actions;
    const QList<QAction *> menus = menuBar()->actions();
    for (const QAction *menu : menus) {
        actions += menu->menu()->actions();
    }
    const QString page = m_pages->currentWidget()->objectName();
    const QString title = KLocalizedString::removeAcceleratorMarker(m_pageActions->checkedAction()->text());
    QDialog *dialog = Help::createDialog(page, title, actions, this);
    dialog->open();
    return dialog;
}

void MainWindow::updatePage()
{
    m_pageActions->actions().at(m_pages->currentIndex())->setChecked(true);
    RecordList *list = currentList();
    m_searchAction->setEnabled(list);
    updateExport();
    m_editMenu->clear();
    if (list) {
        m_editMenu->addActions(list->rowActions()->actions());
        m_editMenu->addSeparator();
        m_editMenu->addActions(m_pages->currentWidget()->actions());
    }
    m_editMenu->menuAction()->setVisible(list);
}

/** Each list has an action of its own. */
void MainWindow::updateExport()
{
    if (m_exportAction) {
        m_fileMenu->removeAction(m_exportAction);
    }
    const RecordList *list = currentList();
    m_exportAction = list ? list->rowActions()->exportAction() : nullptr;
    if (m_exportAction) {
        m_fileMenu->insertAction(m_quitSeparator, m_exportAction);
    }
}

void MainWindow::updateReading()
{
    m_cancelAction->setEnabled(m_store->isReading());
}

void MainWindow::updateGoing()
{
    m_backAction->setEnabled(m_history->canGoBack());
    m_forwardAction->setEnabled(m_history->canGoForward());
}

void MainWindow::updateProblems()
{
    const int count = m_problems->seriousCount();
    const QString title = count == 0 ? i18nc("@title:tab", "Problems")
                                     : i18nc("@title:tab %1 is a number", "Problems (%1)", QString::number(count));
    m_pages->setTabText(m_pages->indexOf(m_problemsPage), title);
}

void MainWindow::reportReloaded()
{
    if (!m_store->isReading() && !m_problems->isChecking()) {
        Q_EMIT reloaded();
    }
}

AccountLink MainWindow::place() const
{
    const auto *page = qobject_cast<ListPage *>(m_pages->currentWidget());
    if (page) {
        return page->place();
    }
    return m_pages->currentWidget() == m_limitsPage ? AccountLink{AccountLink::Kind::Limit, m_limitsPage->place()}
                                                    : AccountLink{AccountLink::Kind::NewAccount, QString()};
}

void MainWindow::follow(const AccountLink &link)
{
    m_history->follow(place(), link);
    go(link);
}

void MainWindow::go(const AccountLink &link)
{
    if (link.kind == AccountLink::Kind::Limit) {
        m_pages->setCurrentWidget(m_limitsPage);
        m_limitsPage->showLine(link.name);
        return;
    }
    if (link.kind == AccountLink::Kind::NewAccount) {
        m_pages->setCurrentWidget(m_newAccountPage);
        return;
    }
    ListPage *page = pageOf(link.kind);
    m_pages->setCurrentWidget(page);
    // A problem may be solved by now.
    if (!page->showEntry(link.name) && page != m_problemsPage) {
        const QString name = VisibleText::isolated(link.name);
        const QString text = page == m_usersPage ? i18n("There is no user '%1' in /etc/passwd.", name)
                                                 : i18n("There is no group '%1' in /etc/group.", name);
        statusBar()->showMessage(ReadingOrder::ofSentence(text));
    }
    page->list()->focusList();
}

ListPage *MainWindow::pageOf(AccountLink::Kind kind) const
{
    if (kind == AccountLink::Kind::Problem) {
        return m_problemsPage;
    }
    return kind == AccountLink::Kind::User ? m_usersPage : m_groupsPage;
}

QTabWidget *MainWindow::pages() const
{
    return m_pages;
}

RecordList *MainWindow::currentList() const
{
    const auto *page = qobject_cast<ListPage *>(m_pages->currentWidget());
    return page ? page->list() : nullptr;
}

bool MainWindow::event(QEvent *event)
{
    if (event->type() == QEvent::Paint && !m_started) {
        QTimer::singleShot(0, this, &MainWindow::reload);
    }
    return QMainWindow::event(event);
}

void MainWindow::reload()
{
    if (!m_started && currentList()) {
        currentList()->focusList();
    }
    m_started = true;
    m_store->read();
}

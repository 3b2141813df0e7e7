/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "dialogparts.h"
#include "mainwindow.h"
#include "patience.h"
#include "problemaccounts.h"
#include "problemspage.h"
#include "recordview.h"
#include "texts.h"
#include "windowfixture.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>

using namespace ProblemAccounts;

namespace
{
/** A problem of a user, of a group, of a limit, and of another line. */
void setLinkedProblems()
{
    addProblems("bob:*:1000:50:Bob:/nonexistent:/bin/sh\n", "crew:*:51:eve\n");
}

/** The page of problems in @p window, which becomes the current one. */
ProblemsPage &goToProblems(MainWindow &window)
{
    auto *page = window.findChild<ProblemsPage *>();
    window.pages()->setCurrentWidget(page);
    return *page;
}

void selectProblem(ProblemsPage &page, const char *problem)
{
    part<QLineEdit>(page, "searchField")->setText(text(problem));
}

QString tabTitle(const MainWindow &window)
{
    return window.pages()->tabText(window.pages()->indexOf(window.findChild<ProblemsPage *>()));
}
}

/** The page of problems in the window: its links, and the way back. */
class ProblemLinksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void leadsToUsers();
    void leadsToGroups();
    void leadsToLimits();
    void leadsNowhereFromBrokenLine();
    void countsInTitle();
};

void ProblemLinksTest::init()
{
    prepareWindow();
    Sandbox::remove(text("/etc/shadow"));
    Sandbox::remove(text("/etc/gshadow"));
    Sandbox::setAccounts(goodUsers, goodGroups);
    clearLimits();
}

void ProblemLinksTest::leadsToUsers()
{
    setLinkedProblems();
    MainWindow window;
    QVERIFY(open(window));
    selectProblem(goToProblems(window), "same UID");
    QTest::keyClick(accountsView(window), Qt::Key_Return);
    QCOMPARE(window.pages()->currentWidget()->objectName(), text("users"));
    QCOMPARE(accountsView(window)->currentName(), text("bob"));
    QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(window.pages()->currentWidget()->objectName(), text("problems"));
    QVERIFY(accountsView(window)->currentName().contains(text("duplicate-uid")));
}

void ProblemLinksTest::leadsToGroups()
{
    setLinkedProblems();
    MainWindow window;
    QVERIFY(open(window));
    ProblemsPage &page = goToProblems(window);
    selectProblem(page, "eve");
    auto *link = part<QLabel>(page, "problemLink");
    Q_EMIT link->linkActivated(AccountLink{AccountLink::Kind::Group, text("crew")}.toUrl());
    QCOMPARE(window.pages()->currentWidget()->objectName(), text("groups"));
    QCOMPARE(accountsView(window)->currentName(), text("crew"));
}

void ProblemLinksTest::leadsToLimits()
{
    setLinkedProblems();
    MainWindow window;
    QVERIFY(open(window));
    ProblemsPage &page = goToProblems(window);
    const auto *lines = part<QTreeView>(window, "linesTable");
    QTRY_COMPARE_WITH_TIMEOUT(lines->model()->rowCount(), 2, patience);
    auto *filter = part<QComboBox>(*window.pages()->widget(2), "lineFilter");
    filter->setCurrentIndex(1);
    selectProblem(page, "ghost");
    accountsView(window)->actions().constFirst()->trigger();
    QCOMPARE(window.pages()->currentWidget()->objectName(), text("limits"));
    QCOMPARE(lines->currentIndex().siblingAtColumn(0).data().toString(), text("/etc/security/limits.conf:2"));
    QVERIFY(lines->hasFocus());
}

void ProblemLinksTest::leadsNowhereFromBrokenLine()
{
    setLinkedProblems();
    MainWindow window;
    QVERIFY(open(window));
    selectProblem(goToProblems(window), "comment");
    QVERIFY(!accountsView(window)->actions().constFirst()->isEnabled());
    QTest::keyClick(accountsView(window), Qt::Key_Return);
    QCOMPARE(window.pages()->currentWidget()->objectName(), text("problems"));
}

void ProblemLinksTest::countsInTitle()
{
    MainWindow window;
    QVERIFY(open(window));
    QCOMPARE(tabTitle(window), text("Problems"));
    setLinkedProblems();
    window.reload();
    QVERIFY(waitUntilRead(window));
    QVERIFY(waitUntilShown(window));
    QCOMPARE(tabTitle(window), text("Problems (3)"));
}

QTEST_MAIN(ProblemLinksTest)

#include "problemlinkstest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountlink.h"

#include "contrast.h"
#include "darkpalette.h"
#include "dialogparts.h"
#include "history.h"
#include "linklabel.h"
#include "mainwindow.h"
#include "patience.h"
#include "recordview.h"
#include "sandbox.h"
#include "texts.h"
#include "windowfixture.h"
#include "windowparts.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStatusBar>
#include <QStyle>
#include <QTabWidget>
#include <QTest>
#include <QTextDocument>
#include <QToolButton>
#include <QTreeView>

namespace
{
AccountLink user(const char *name)
{
    return {AccountLink::Kind::User, text(name)};
}

AccountLink group(const char *name)
{
    return {AccountLink::Kind::Group, text(name)};
}

/** Follows the link to @p group of the current user. */
void followGroup(MainWindow &window, const char *group)
{
    auto *groups = part<QLabel>(window, "groups");
    Q_EMIT groups->linkActivated(AccountLink{AccountLink::Kind::Group, text(group)}.toUrl());
}

/** Page and title of what is shown. */
QString place(const MainWindow &window)
{
    const QWidget &page = *window.pages()->currentWidget();
    return page.objectName() + QLatin1Char(' ') + part<QLabel>(page, "title")->text();
}
}

/** Links between users and groups, and the way back. */
class LinksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void keepsNamesInUrls_data();
    void keepsNamesInUrls();
    void showsNamesAsTheyAre();
    void staysReadableWhenColorsChange();
    void goesBackAndForth();
    void forgetsPlacesAhead();
    void leadsFromUsersToGroupsAndBack();
    void comesBackToWhereTheOperatorWent();
    void showsWhatSearchAndFilterHide();
    void tellsThatGroupIsMissing();
    void leadsBackByButtons();
    void leadsFromLimitToItsLine();
    void leadsFromLineToUser();
    void comesBackToWhatSearchShows();
    void comesBackToNewAccount();
};

void LinksTest::init()
{
    prepareWindow();
    Sandbox::setAccounts("root:x:0:0:root:/root:/bin/bash\n"
                         "ada:x:1000:50:Ada:/home/ada:/bin/sh\n"
                         "bob:x:1001:50:Bob:/home/bob:/bin/sh\n",
                         "root:x:0:\naudio:x:29:ada\nstaff:x:50:\n");
}

void LinksTest::keepsNamesInUrls_data()
{
    QTest::addColumn<QString>("name");

    for (const char *name : {"ada", "", "a b", "%41", "a&b=c#d?e", "<b>\"'", "user:x", "J\xc3\xbcrg", "a/../b"}) {
        QTest::newRow(name) << QString::fromUtf8(name);
    }
}

void LinksTest::keepsNamesInUrls()
{
    QFETCH(QString, name);

    for (const auto kind :
         {AccountLink::Kind::User, AccountLink::Kind::Group, AccountLink::Kind::Limit, AccountLink::Kind::Problem}) {
        const AccountLink link = AccountLink::fromUrl(AccountLink{kind, name}.toUrl());
        QCOMPARE(link.kind, kind);
        QCOMPARE(link.name, name);
    }
}

void LinksTest::showsNamesAsTheyAre()
{
    QTextDocument document;
    document.setHtml(user("<b>a</b>&lt;\"x\"").toRichText());
    QCOMPARE(document.toPlainText(), text("<b>a</b>&lt;\"x\""));
    document.setHtml(AccountLink{AccountLink::Kind::User, QStringLiteral(u"a\u202eb")}.toRichText());
    QVERIFY(!document.toPlainText().contains(QChar(0x202e)));
}

void LinksTest::staysReadableWhenColorsChange()
{
    LinkLabel label;
    label.setLinks(AccountLink::Kind::Group, {text("staff")});
    label.show();
    const QPalette light = QApplication::style()->standardPalette();
    for (const QPalette &palette : {light, darkPalette(), light}) {
        QApplication::setPalette(palette);
        const qreal best = contrast(label.grab().toImage());
        QVERIFY2(best >= 4.5, qPrintable(QString::number(best)));
    }
}

void LinksTest::goesBackAndForth()
{
    History history;
    QSignalSpy changed(&history, &History::changed);
    QVERIFY(!history.canGoBack() && !history.canGoForward());
    history.follow(user("ada"), group("staff"));
    history.follow(group("audio"), user("bob"));
    QCOMPARE(changed.size(), 2);
    QVERIFY(history.canGoBack() && !history.canGoForward());
    QCOMPARE(history.back(user("eve")).name, text("audio"));
    QVERIFY(history.canGoBack() && history.canGoForward());
    QCOMPARE(history.back(group("audio")).name, text("ada"));
    QVERIFY(!history.canGoBack() && history.canGoForward());
    QCOMPARE(history.forward(user("ada")).name, text("audio"));
    QCOMPARE(history.forward(group("audio")).name, text("eve"));
    QVERIFY(history.canGoBack() && !history.canGoForward());
    QCOMPARE(changed.size(), 6);
}

void LinksTest::forgetsPlacesAhead()
{
    History history;
    history.follow(user("ada"), group("staff"));
    history.follow(group("staff"), user("bob"));
    history.back(user("bob"));
    history.back(group("staff"));
    history.follow(user("ada"), group("audio"));
    QVERIFY(!history.canGoForward());
    QCOMPARE(history.back(group("audio")).name, text("ada"));
    QVERIFY(!history.canGoBack());
}

void LinksTest::leadsFromUsersToGroupsAndBack()
{
    MainWindow window;
    QVERIFY(open(window));
    QCOMPARE(place(window), text("users ada"));
    followGroup(window, "staff");
    QCOMPARE(place(window), text("groups staff"));
    QCOMPARE(QApplication::focusWidget(), accountsView(window));
    auto *members = part<RecordView>(window, "membersView");
    clickText(*members, text("bob"));
    QTest::keyClick(members, Qt::Key_Return);
    QCOMPARE(place(window), text("users bob"));
    QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(place(window), text("groups staff"));
    QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(place(window), text("users ada"));
    QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(place(window), text("users ada"));
    QTest::keyClick(&window, Qt::Key_Right, Qt::AltModifier);
    QTest::keyClick(&window, Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(place(window), text("users bob"));
}

void LinksTest::comesBackToWhereTheOperatorWent()
{
    MainWindow window;
    QVERIFY(open(window));
    followGroup(window, "staff");
    accountsView(window)->setCurrentName(text("audio"));
    QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(place(window), text("users ada"));
    QTest::keyClick(&window, Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(place(window), text("groups audio"));
}

void LinksTest::showsWhatSearchAndFilterHide()
{
    MainWindow window;
    QVERIFY(open(window));
    const QWidget &groups = *window.pages()->widget(1);
    QTest::keyClicks(part<QLineEdit>(groups, "searchField"), text("audio"));
    followGroup(window, "staff");
    QCOMPARE(place(window), text("groups staff"));
    QCOMPARE(shownRows(*accountsView(window)).size(), 3);
}

void LinksTest::tellsThatGroupIsMissing()
{
    Sandbox::setExtraAccounts(QByteArray(), "remote:x:5000:ada\n");
    MainWindow window;
    QVERIFY(open(window));
    followGroup(window, "remote");
    QCOMPARE(place(window), text("groups audio"));
    QCOMPARE(window.statusBar()->currentMessage(), text("There is no group 'remote' in /etc/group."));
    Sandbox::removeExtraAccounts();
}

void LinksTest::leadsBackByButtons()
{
    MainWindow window;
    QVERIFY(open(window));
    const auto buttons = window.pages()->cornerWidget(Qt::TopLeftCorner)->findChildren<QToolButton *>();
    QCOMPARE(buttons.size(), 2);
    QVERIFY(!buttons.at(0)->isEnabled() && !buttons.at(1)->isEnabled());
    QCOMPARE(buttons.at(0)->accessibleName(), text("Back"));
    followGroup(window, "staff");
    QTest::mouseClick(buttons.at(0), Qt::LeftButton);
    QCOMPARE(place(window), text("users ada"));
    QTest::mouseClick(buttons.at(1), Qt::LeftButton);
    QCOMPARE(place(window), text("groups staff"));
}

void LinksTest::leadsFromLimitToItsLine()
{
    Sandbox::write(text("/etc/security/limits.conf"), "* soft core 0\n* hard nproc 9\nada hard nproc 8\n");
    MainWindow window;
    QVERIFY(open(window));
    const QWidget &users = *window.pages()->currentWidget();
    auto *limits = part<QTreeView>(users, "limitsTable");
    limits->setCurrentIndex(limits->model()->index(1, 0));
    auto *explanation = part<QLabel>(users, "limitExplanation");
    const AccountLink link{AccountLink::Kind::Limit, text("/etc/security/limits.conf:3")};
    QVERIFY2(explanation->text().contains(link.toRichText()), qPrintable(explanation->text()));
    Q_EMIT explanation->linkActivated(link.toUrl());
    const QWidget &page = *window.pages()->currentWidget();
    QCOMPARE(page.objectName(), text("limits"));
    QCOMPARE(part<QTreeView>(page, "linesTable")->currentIndex().row(), 2);
    QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(place(window), text("users ada"));
    QTest::keyClick(&window, Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(part<QTreeView>(page, "linesTable")->currentIndex().row(), 2);
}

void LinksTest::leadsFromLineToUser()
{
    Sandbox::write(text("/etc/security/limits.conf"), "* soft core 0\nbob hard nproc 8\n");
    MainWindow window;
    QVERIFY(open(window));
    window.pages()->setCurrentIndex(2);
    const QWidget &page = *window.pages()->currentWidget();
    auto *lines = part<QTreeView>(page, "linesTable");
    lines->setCurrentIndex(lines->model()->index(1, 0));
    auto *decides = part<QLabel>(page, "lineDecides");
    QTRY_COMPARE_WITH_TIMEOUT(shownText(*decides), text("bob"), patience);
    Q_EMIT decides->linkActivated(user("bob").toUrl());
    QCOMPARE(place(window), text("users bob"));
    lines->setCurrentIndex(lines->model()->index(0, 0));
    QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(window.pages()->currentWidget(), &page);
    QCOMPARE(lines->currentIndex().row(), 1);
}

/** A search hides what was chosen, and shows something else. */
void LinksTest::comesBackToWhatSearchShows()
{
    MainWindow window;
    QVERIFY(open(window));
    QTest::keyClicks(part<QLineEdit>(*window.pages()->currentWidget(), "searchField"), text("bob"));
    QCOMPARE(place(window), text("users bob"));
    followGroup(window, "staff");
    QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(place(window), text("users bob"));
    QCOMPARE(shownRows(*accountsView(window)).size(), 1);
}

void LinksTest::comesBackToNewAccount()
{
    MainWindow window;
    QVERIFY(open(window));
    followGroup(window, "staff");
    window.pages()->setCurrentIndex(4);
    QWidget *page = window.pages()->currentWidget();
    QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(place(window), text("users ada"));
    QTest::keyClick(&window, Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(window.pages()->currentWidget(), page);
}

QTEST_MAIN(LinksTest)

#include "linkstest.moc"

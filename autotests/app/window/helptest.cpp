/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "help.h"

#include "commandsdialog.h"
#include "dialogparts.h"
#include "mainwindow.h"
#include "patience.h"
#include "plan.h"
#include "texts.h"
#include "windowfixture.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

namespace
{
/** The help dialog of @p window; null when there is none. */
QDialog *helpDialog(const QWidget &window)
{
    const auto *browser = window.findChild<QTextBrowser *>(text("helpText"));
    return browser ? qobject_cast<QDialog *>(browser->window()) : nullptr;
}

QString helpText(const QWidget &window)
{
    const auto *browser = window.findChild<QTextBrowser *>(text("helpText"));
    return browser ? browser->toPlainText() : QString();
}
}

/** Help on what the window shows. */
class HelpTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void tellsAboutEachPage_data();
    void tellsAboutEachPage();
    void listsKeys();
    void listsKeysFromTheRight();
    void closesByButton();
    void closesByEscape();
    void tellsAboutCommands_data();
    void tellsAboutCommands();
};

void HelpTest::init()
{
    prepareWindow();
}

void HelpTest::tellsAboutEachPage_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("sentence");

    QTest::newRow("users") << text("users") << text("Users") << text("The list shows the users of /etc/passwd.");
    QTest::newRow("groups") << text("groups") << text("Groups") << text("The list shows the groups of /etc/group.");
    QTest::newRow("limits") << text("limits") << text("Limits")
                            << text("PAM reads these lines at each login, in this order.");
    QTest::newRow("problems") << text("problems") << text("Problems") << text("Errors come first");
    QTest::newRow("new account") << text("new-account") << text("New Account")
                                 << text("Enter the data of a new account.");
}

void HelpTest::tellsAboutEachPage()
{
    QFETCH(QString, page);
    QFETCH(QString, title);
    QFETCH(QString, sentence);

    MainWindow window;
    QVERIFY(open(window));
    window.pages()->setCurrentWidget(window.pages()->findChild<QWidget *>(page));
    QTest::keyClick(&window, Qt::Key_F1);
    QVERIFY(helpDialog(window));
    QVERIFY(QTest::qWaitForWindowActive(helpDialog(window), patience));
    QCOMPARE(helpText(window).section(QLatin1Char('\n'), 0, 0), title);
    QVERIFY2(helpText(window).contains(sentence), qPrintable(helpText(window)));
    QCOMPARE(unnamedAccessibles(*helpDialog(window)), QStringList());
}

void HelpTest::listsKeys()
{
    MainWindow window;
    QVERIFY(open(window));
    QTest::keyClick(&window, Qt::Key_F1);
    const QStringList lines = helpText(window).split(QLatin1Char('\n'));
    for (const char *key : {"F5", "F1", "Esc", "Alt+1", "Ctrl+F", "Alt+Left", "Ctrl+Q"}) {
        QVERIFY2(lines.contains(text(key)), key);
    }
    QCOMPARE(lines.at(lines.indexOf(text("F5")) + 2), text("Reload"));
}

void HelpTest::listsKeysFromTheRight()
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    MainWindow window;
    QVERIFY(open(window));
    QTest::keyClick(&window, Qt::Key_F1);
    QVERIFY(helpDialog(window));
    const QTextDocument &document = *window.findChild<QTextBrowser *>(text("helpText"))->document();
    const auto place = [&document](const char *word) {
        return document.documentLayout()->blockBoundingRect(document.find(text(word)).block());
    };
    QVERIFY(place("F5").left() > place("Reload").right());
    QVERIFY(place("F5").right() > document.size().width() * 0.9);
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

void HelpTest::closesByButton()
{
    MainWindow window;
    QVERIFY(open(window));
    QTest::keyClick(&window, Qt::Key_F1);
    const QPointer<QDialog> dialog = helpDialog(window);
    QVERIFY(dialog);
    dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Close)->click();
    QTRY_VERIFY_WITH_TIMEOUT(!dialog, patience);
}

void HelpTest::closesByEscape()
{
    MainWindow window;
    QVERIFY(open(window));
    QTest::keyClick(&window, Qt::Key_F1);
    const QPointer<QDialog> dialog = helpDialog(window);
    QVERIFY(dialog);
    QTest::keyClick(dialog, Qt::Key_Escape);
    QTRY_VERIFY_WITH_TIMEOUT(!dialog, patience);
}

void HelpTest::tellsAboutCommands_data()
{
    QTest::addColumn<bool>("byKey");

    QTest::newRow("F1") << true;
    QTest::newRow("button") << false;
}

void HelpTest::tellsAboutCommands()
{
    QFETCH(bool, byKey);

    Plan plan;
    plan.add({"gpasswd", "--delete", "ada"}, "staff");
    CommandsDialog dialog(text("Change the Groups of ada"), plan);
    QVERIFY(open(dialog));
    if (byKey) {
        QTest::keyClick(&dialog, Qt::Key_F1);
    } else {
        dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Help)->click();
    }
    const QPointer<QDialog> help = helpDialog(dialog);
    QVERIFY(help);
    QVERIFY(QTest::qWaitForWindowActive(help, patience));
    const QStringList lines = helpText(dialog).split(QLatin1Char('\n'));
    QCOMPARE(lines.first(), text("Commands"));
    QVERIFY2(lines.value(1).startsWith(text("These commands make the change.")), qPrintable(lines.value(1)));
    // There are no keys to list.
    QCOMPARE(lines.size(), 3);
    QCOMPARE(unnamedAccessibles(*help), QStringList());
    QTest::keyClick(help, Qt::Key_Escape);
    QTRY_VERIFY_WITH_TIMEOUT(!help, patience);
    QVERIFY(dialog.isVisible());
}

QTEST_MAIN(HelpTest)

#include "helptest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "about.h"
#include "dialogparts.h"
#include "limitsfixtures.h"
#include "mainwindow.h"
#include "orderofsight.h"
#include "pageparts.h"
#include "problemspage.h"
#include "readingorder.h"
#include "recordmodel.h"
#include "recordview.h"
#include "rowactions.h"
#include "rowtable.h"
#include "sandbox.h"
#include "texts.h"
#include "windowfixture.h"
#include "windowparts.h"

#include <KLocalizedString>
#include <KMessageWidget>

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStatusBar>
#include <QStyledItemDelegate>
#include <QTabWidget>
#include <QTest>
#include <QTextBrowser>
#include <QTextDocumentFragment>

#include <memory>

// In Arabic, paths and the like within sentences are seen from left to right, and are copied as they are.

namespace
{
/** The paths and options in @p sentences that are not seen as they are written. */
QStringList disordered(const QString &sentences)
{
    static const QRegularExpression pattern(text("(/[A-Za-z0-9][A-Za-z0-9_./-]*[A-Za-z0-9]|--[a-z-]+)(:[0-9]+)?"));
    QStringList found;
    const QStringList lines = sentences.split(QRegularExpression(QStringLiteral("[\n\u2028]")));
    for (const QString &line : lines) {
        const bool isArabic = line.contains(QRegularExpression(QStringLiteral("[\\x{0620}-\\x{064a}]")));
        const QString seen = inOrderOfSight(line, isArabic ? Qt::RightToLeft : Qt::LeftToRight);
        auto matches = pattern.globalMatch(ReadingOrder::withoutMarks(line));
        while (matches.hasNext()) {
            const QString part = matches.next().captured();
            if (!seen.contains(part)) {
                found.append(part + QLatin1String(" in ") + seen);
            }
        }
    }
    return found;
}
QString textOf(const QLabel &label)
{
    return Qt::mightBeRichText(label.text()) ? QTextDocumentFragment::fromHtml(label.text()).toPlainText()
                                             : label.text();
}

QStringList disorderedLabels(const QWidget &widget)
{
    QStringList found;
    const QList<QLabel *> labels = widget.findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->isVisible()) {
            found += disordered(textOf(*label));
        }
    }
    return found;
}

/** The sentences of a list, as its cells show them. */
QStringList sentencesOf(const RecordView &view)
{
    QStringList found;
    for (int row = 0; row < view.model()->rowCount(); ++row) {
        for (int column = 0; column < view.model()->columnCount(); ++column) {
            const QVariant sentence = view.model()->index(row, column).data(RecordModel::SentenceRole);
            if (sentence.isValid()) {
                found.append(sentence.toString());
            }
        }
    }
    return found;
}

void showPage(MainWindow &window, const char *name)
{
    window.pages()->setCurrentWidget(part<QWidget>(window, name));
    QCoreApplication::processEvents();
}
}

class SentenceOrderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void noticesDisorder();
    void keepsOrderInProblems();
    void keepsOrderInLimits();
    void keepsOrderInExplanations();
    void keepsOrderInNotes();
    void keepsOrderInHelp();
    void keepsOrderInStatusBar();
    void showsSignsOfHostileNames();
    void copiesAndFindsRowsWithoutMarks();
    void cleanupTestCase();
};

void SentenceOrderTest::initTestCase()
{
    for (const char *domain : {"ormel-users", "ormel_kcm_users"}) {
        KLocalizedString::addDomainLocaleDir(domain, QStringLiteral(LOCALE_DIR));
    }
    About::setApplicationData();
    KLocalizedString::setLanguages({text("ar")});
    QApplication::setLayoutDirection(Qt::RightToLeft);
}

void SentenceOrderTest::init()
{
    prepareWindow();
    Sandbox::setAccounts("root:x:0:0:root:/nonexistent:/bin/sh\n"
                         "ada:x:1000:50:Ada:/no/such/place:/usr/bin/env\n"
                         "bob:x:1001:50:Bob:/nonexistent:/no/such/shell\n",
                         "root:x:0:\nstaff:x:50:eve\n");
    Sandbox::write(text("/etc/shadow"), "root:*:1::::::\n");
    Sandbox::remove(text("/etc/gshadow"));
    Sandbox::write(text("/etc/gshadow"), "root:*::\nstaff:*::\n");
    QVERIFY(QFile::setPermissions(text("/etc/gshadow"), {}));
    Sandbox::write(limitsPath(),
                   "ada soft core 0\nada soft core 1\n* both nproc some\nghost soft core -5\n"
                   "* hard nofile 99999999999\n");
    Sandbox::write(dropInPath(text("a.txt")), "ada soft core 0\n");
}

void SentenceOrderTest::noticesDisorder()
{
    QCOMPARE(disordered(text("The home is /a/b.")).join(QLatin1Char('|')), QString());
    QCOMPARE(disordered(QStringLiteral("ليست في /etc/shells: لا")),
             QStringList(text("/etc/shells in ") + QStringLiteral("ال :etc/shells/ يف تسيل")));
}

void SentenceOrderTest::keepsOrderInProblems()
{
    MainWindow window;
    QVERIFY(open(window));
    showPage(window, "problems");
    const RecordView &view = *accountsView(window);
    const QString all = sentencesOf(view).join(QLatin1Char('\n'));
    for (const char *path : {"/etc/shells", "/no/such/place", "/no/such/shell", "--shell", ".conf"}) {
        QVERIFY2(ReadingOrder::withoutMarks(all).contains(text(path)), qPrintable(text(path) + all));
    }
    QCOMPARE(disordered(all).join(QLatin1Char('|')), QString());
    for (int row = 0; row < view.model()->rowCount(); ++row) {
        view.selectionModel()->setCurrentIndex(view.model()->index(row, 0), QItemSelectionModel::SelectCurrent);
        QCOMPARE(disorderedLabels(window).join(QLatin1Char('|')), QString());
    }
    const auto *unchecked = part<KMessageWidget>(window, "uncheckedFiles");
    QVERIFY(unchecked->isVisible() && unchecked->text().contains(text("/etc/gshadow")));
}

void SentenceOrderTest::keepsOrderInLimits()
{
    MainWindow window;
    QVERIFY(open(window));
    showPage(window, "limits");
    auto *lines = part<QAbstractItemView>(window, "linesTable");
    QString problems;
    for (int row = 0; row < lines->model()->rowCount(); ++row) {
        lines->setCurrentIndex(lines->model()->index(row, 0));
        QCOMPARE(disorderedLabels(window).join(QLatin1Char('|')), QString());
        problems += part<QLabel>(window, "lineProblem")->text();
        const QModelIndex meaning = lines->model()->index(row, 2);
        const auto *delegate = qobject_cast<const QStyledItemDelegate *>(lines->itemDelegate(meaning));
        QCOMPARE(disordered(delegate->displayText(meaning.data(), QLocale())).join(QLatin1Char('|')), QString());
        QCOMPARE(disordered(QTextDocumentFragment::fromHtml(toolTips(*lines, row).at(2)).toPlainText()), QStringList());
    }
    QVERIFY2(problems.contains(text("/proc/sys/fs/nr_open")), qPrintable(problems));
}

void SentenceOrderTest::keepsOrderInExplanations()
{
    MainWindow window;
    QVERIFY(open(window));
    accountsView(window)->setCurrentName(text("ada"));
    auto *table = part<QAbstractItemView>(*window.pages()->currentWidget(), "limitsTable");
    table->setCurrentIndex(table->model()->index(0, 0));
    const QString explanation = textOf(*part<QLabel>(*window.pages()->currentWidget(), "limitExplanation"));
    QCOMPARE(explanation.count(text("/etc/security/limits.conf:2")), 2); // it overrides the line before
    QCOMPARE(disordered(explanation).join(QLatin1Char('|')), QString());
    const QStringList tips = toolTips(*table, 0);
    for (const QString &toolTip : tips) {
        QCOMPARE(disordered(QTextDocumentFragment::fromHtml(toolTip).toPlainText()).join(QLatin1Char('|')), QString());
    }
}

void SentenceOrderTest::keepsOrderInNotes()
{
    MainWindow window;
    QVERIFY(open(window));
    showPage(window, "new-account");
    part<QLineEdit>(window, "fullNameEdit")->setText(text("a:b"));
    const auto *note = part<QLabel>(window, "fullNameEditNote");
    QVERIFY(note->isVisible() && note->text().contains(text("/etc/passwd")));
    QVERIFY(part<QLabel>(window, "encryptMethodNote")->text().contains(text("/etc/login.defs")));
    QCOMPARE(disorderedLabels(window).join(QLatin1Char('|')), QString());
}

void SentenceOrderTest::keepsOrderInHelp()
{
    MainWindow window;
    QVERIFY(open(window));
    for (const char *page : {"users", "groups", "limits", "problems", "new-account"}) {
        showPage(window, page);
        const std::unique_ptr<QDialog> help(window.showHelp());
        const QString shown = part<QTextBrowser>(*help, "helpText")->toPlainText();
        QVERIFY(shown.size() > 100);
        QCOMPARE(disordered(shown).join(QLatin1Char('|')), QString());
    }
}

void SentenceOrderTest::keepsOrderInStatusBar()
{
    MainWindow window;
    QVERIFY(open(window));
    showPage(window, "groups");
    accountsView(window)->setCurrentName(text("staff"));
    showPage(window, "problems");
    auto *page = part<ProblemsPage>(window, "problems");
    Q_EMIT page->followed({AccountLink::Kind::User, text("-eve-")});
    const QString message = window.statusBar()->currentMessage();
    QVERIFY(message.contains(text("/etc/passwd")));
    QCOMPARE(disordered(message).join(QLatin1Char('|')), QString());
    QVERIFY2(inOrderOfSight(message, Qt::RightToLeft).contains(text("-eve-")), qPrintable(message));
}

void SentenceOrderTest::showsSignsOfHostileNames()
{
    Sandbox::setAccounts("ada:x:1000:50:Ada:/nonexistent:/bin/sh\n" + QStringLiteral(u"e\u202e\u2069ve").toUtf8()
                             + ":x:1000:50::/nonexistent:/bin/sh\n",
                         "staff:x:50:\n");
    MainWindow window;
    QVERIFY(open(window));
    showPage(window, "problems");
    const QString all = sentencesOf(*accountsView(window)).join(QLatin1Char('\n'));
    QVERIFY2(all.contains(QStringLiteral(u"\u2068e\ufffd\ufffdve\u2069")), qPrintable(all));
    QVERIFY(!all.contains(QChar(0x202e)));
    const QString shown = part<QLabel>(window, "problemText")->text();
    QVERIFY2(!shown.contains(QChar(0x202e)), qPrintable(shown));
}

void SentenceOrderTest::copiesAndFindsRowsWithoutMarks()
{
    MainWindow window;
    QVERIFY(open(window));
    showPage(window, "problems");
    RecordList &list = *qobject_cast<ListPage *>(window.pages()->currentWidget())->list();
    list.view()->setShownColumns({1, 5, 6});
    part<QLineEdit>(list, "searchField")->setText(QStringLiteral("/etc/shells: /usr/bin/env"));
    QCOMPARE(list.view()->model()->rowCount(), 1);
    list.view()->selectAll();
    const RowTable rows = list.rowActions()->selectedRows();
    for (const QString &copied : {rows.toText(), rows.toCsv(), QString::fromUtf8(rows.toJson())}) {
        QVERIFY(copied.contains(text("/etc/shells: /usr/bin/env")));
        QCOMPARE(copied, ReadingOrder::withoutMarks(copied));
    }
}

void SentenceOrderTest::cleanupTestCase()
{
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

QTEST_MAIN(SentenceOrderTest)

#include "sentenceordertest.moc"

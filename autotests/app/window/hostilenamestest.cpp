/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountlink.h"
#include "accountstore.h"
#include "chosennames.h"
#include "dialogparts.h"
#include "groupspage.h"
#include "limitsfixtures.h"
#include "limitspage.h"
#include "linelabel.h"
#include "newaccountpage.h"
#include "notelabel.h"
#include "pageparts.h"
#include "patience.h"
#include "recordview.h"
#include "sandbox.h"
#include "userspage.h"
#include "windowparts.h"

#include <GroupSelectDialog>

#include <QDialogButtonBox>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyledItemDelegate>
#include <QTest>
#include <QToolTip>
#include <QTreeView>

// Names and other texts that users chose, as the window shows them.

namespace
{
QString sign()
{
    return QString(QChar(QChar::ReplacementCharacter));
}

QByteArray overriding()
{
    return QString(QChar(0x202e)).toUtf8();
}

template<typename AccountsPage>
struct Page {
    Page()
    {
        page.resize(900, 600);
        page.show();
        if (!readAccounts(store)) {
            qFatal("The accounts were not read");
        }
    }

    AccountStore store;
    AccountsPage page{&store};
};

/** What is drawn in a cell. */
QString drawnText(const QTreeView &view, int row, int column)
{
    const auto *delegate = qobject_cast<const QStyledItemDelegate *>(view.itemDelegate());
    return delegate ? delegate->displayText(view.model()->index(row, column).data(), QLocale()) : QString();
}

/** The labels that show markup, except links, in which it is escaped. */
QList<const QLabel *> labelsWithMarkup(const QWidget &page)
{
    static const QRegularExpression markup(QStringLiteral("<[bisu]>"));
    QList<const QLabel *> found;
    const QList<QLabel *> labels = page.findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->text().contains(markup)) {
            found.append(label);
        }
    }
    return found;
}
}

class HostileNamesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void showsRecordsAsUtf8();
    void findsNamesAsShown();
    void showsSignsInPlaceOfControls();
    void showsSignsInRows();
    void showsSignsInLines();
    void showsSignsInExplanations();
    void keepsDirectionOfNamesInLists();
    void showsGroupsAsUtf8();
    void showsMarkupAsText();
    void showsMarkupOfUserAsText();
    void showsMarkupOfLinesAsText();
    void showsMarkupOfChosenGroupsAsText();
    void showsMarkupInToolTips();
};

void HostileNamesTest::init()
{
    Sandbox::setAccounts("j\xc3\xbcrg:x:1000:50:a" + overriding() + "b\x1b:/home/j\xc3\xbcrg:/bin/" + overriding()
                             + "sh\n",
                         "ormel-admin:x:27:\ngr\xc3\xb6n:x:50:j\xc3\xbcrg\n\xd7\x90:x:51:j\xc3\xbcrg\n");
    clearLimits();
    Sandbox::write(limitsPath(), "j\xc3\xbcrg - nproc 7\n");
}

void HostileNamesTest::showsRecordsAsUtf8()
{
    const Page<UsersPage> users;
    QCOMPARE(shownRows(*users.page.list()->view()).value(0).section(QLatin1Char('|'), 0, 0),
             QStringLiteral(u"j\u00fcrg"));
    QCOMPARE(part<QLabel>(users.page, "title")->text(), QStringLiteral(u"j\u00fcrg"));
    QCOMPARE(fieldText(users.page, "Home directory:"), QStringLiteral(u"/home/j\u00fcrg"));
    QCOMPARE(fieldText(users.page, "Primary group:"), QStringLiteral(u"gr\u00f6n"));
    const QString limit = shownRows(*part<QTreeView>(users.page, "limitsTable")).value(0);
    QCOMPARE(limit.section(QLatin1Char('|'), 0, 3), QStringLiteral(u"nproc|7|7|j\u00fcrg limits.conf:1"));
}

void HostileNamesTest::findsNamesAsShown()
{
    const Page<UsersPage> users;
    auto *search = part<QLineEdit>(users.page, "searchField");
    QTest::keyClicks(search, QStringLiteral(u"J\u00dcR")); // in capitals
    QCOMPARE(shownRows(*users.page.list()->view()).size(), 1);
    QTest::keyClicks(search, QStringLiteral("."));
    QCOMPARE(shownRows(*users.page.list()->view()).size(), 0);
}

void HostileNamesTest::showsSignsInPlaceOfControls()
{
    const Page<UsersPage> users;
    QCOMPARE(fieldText(users.page, "Full name:"), QStringLiteral("a") + sign() + QStringLiteral(u"b\u241b"));
    QCOMPARE(fieldText(users.page, "Login shell:"), QStringLiteral("/bin/") + sign() + QStringLiteral("sh"));
}

void HostileNamesTest::showsSignsInRows()
{
    const Page<UsersPage> users;
    QCOMPARE(drawnText(*users.page.list()->view(), 0, 1), QStringLiteral("a") + sign() + QStringLiteral(u"b\u241b"));
}

void HostileNamesTest::showsSignsInLines()
{
    Sandbox::write(limitsPath(), "a\x1b" + overriding() + "b hard nproc 7\nc\x1b" + overriding() + "d hard no 7\n");
    const Page<LimitsPage> limits;
    auto *table = part<QTreeView>(limits.page, "linesTable");
    const QString name = QStringLiteral(u"\u241b") + sign();
    for (int row = 0; row < 2; ++row) {
        table->setCurrentIndex(table->model()->index(row, 0));
        const QString shown = drawnText(*table, row, 1) + toolTips(*table, row).join(QLatin1Char(' '))
            + part<QLabel>(limits.page, "lineMeaning")->text() + part<QLabel>(limits.page, "lineProblem")->text();
        QVERIFY2(shown.contains(name), qPrintable(shown));
        QVERIFY2(!shown.contains(QLatin1Char('\x1b')) && !shown.contains(QChar(0x202e)), qPrintable(shown));
    }
}

void HostileNamesTest::showsSignsInExplanations()
{
    const QByteArray name = "j" + overriding();
    Sandbox::setAccounts(name + ":x:1000:50::/:/bin/sh\n", "gr:x:50:\n");
    Sandbox::write(limitsPath(), name + " - nproc 7 # \x1b\n" + name + " - nproc 8\n");
    const Page<UsersPage> users;
    auto *table = part<QTreeView>(users.page, "limitsTable");
    table->setCurrentIndex(table->model()->index(0, 0));
    const QString explanation = shownText(*part<QLabel>(users.page, "limitExplanation"));
    const QString shown = explanation + toolTips(*table, 0).join(QLatin1Char(' '));
    QVERIFY2(explanation.contains(QLatin1Char('j') + sign()), qPrintable(shown));
    QVERIFY2(!shown.contains(QLatin1Char('\x1b')) && !shown.contains(QChar(0x202e)), qPrintable(shown));
}

void HostileNamesTest::keepsDirectionOfNamesInLists()
{
    const Page<UsersPage> users;
    QCOMPARE(fieldText(users.page, "All groups:"), QStringLiteral(u"gr\u00f6n, \u2068\u05d0\u2069"));
    const QString record = QString::fromLatin1("\xd7\x90");
    QVERIFY(chosenGroups({record, QStringLiteral("x")}).contains(QStringLiteral(u"\u2068\u05d0\u2069, x")));
}

void HostileNamesTest::showsGroupsAsUtf8()
{
    Page<GroupsPage> groups;
    auto *view = groups.page.list()->view();
    clickText(*view, QStringLiteral(u"gr\u00f6n"));
    QCOMPARE(part<QLabel>(groups.page, "title")->text(), QStringLiteral(u"gr\u00f6n"));
    const QString member = shownRows(*part<QTreeView>(groups.page, "membersView")).value(0);
    QCOMPARE(member.section(QLatin1Char('|'), 0, 0), QStringLiteral(u"j\u00fcrg"));
}

void HostileNamesTest::showsMarkupAsText()
{
    const QString markup = QStringLiteral("<b>x</b>");
    QLineEdit edit;
    NoteLabel note(&edit);
    note.setNote(markup);
    QCOMPARE(note.textFormat(), Qt::PlainText);
    const LineLabel line;
    QCOMPARE(line.textFormat(), Qt::PlainText);
    const QString link = AccountLink{AccountLink::Kind::Group, markup}.toRichText();
    QVERIFY2(link.endsWith(QLatin1String(">&lt;b&gt;x&lt;/b&gt;</a>")), qPrintable(link));
}

void HostileNamesTest::showsMarkupOfUserAsText()
{
    Sandbox::setAccounts("<b>u:x:1000:50:<i>f,<s>room:/<u>h:/bin/<s>s\n", "<b>g:x:50:\n");
    Sandbox::write(limitsPath(), "<b>u - nproc 7\n");
    const Page<UsersPage> users;
    auto *table = part<QTreeView>(users.page, "limitsTable");
    table->setCurrentIndex(table->model()->index(0, 0));
    const QList<const QLabel *> labels = labelsWithMarkup(users.page);
    for (const QLabel *label : labels) {
        QVERIFY2(label->textFormat() == Qt::PlainText, qPrintable(label->objectName() + label->text()));
    }
    QVERIFY(labels.contains(part<QLabel>(users.page, "title")));
    QCOMPARE(labels.size(), 5); // with the full name, the room, the home directory and the shell
    const QString explanation = shownText(*part<QLabel>(users.page, "limitExplanation"));
    QVERIFY2(explanation.contains(QLatin1String("  <b>u - nproc 7")), qPrintable(explanation));
    QCOMPARE(fieldText(users.page, "All groups:"), QStringLiteral("<b>g"));
}

void HostileNamesTest::showsMarkupOfLinesAsText()
{
    Sandbox::setAccounts("<b>u:x:1000:50::/:/bin/sh\n", "g:x:50:\n");
    Sandbox::write(limitsPath(), "<b>u hard nproc 7\nada hard <i>x 7\n");
    const Page<LimitsPage> limits;
    auto *table = part<QTreeView>(limits.page, "linesTable");
    const auto *decides = part<QLabel>(limits.page, "lineDecides");
    QTRY_COMPARE_WITH_TIMEOUT(shownText(*decides), QStringLiteral("<b>u"), patience);
    const auto *meaning = part<QLabel>(limits.page, "lineMeaning");
    QVERIFY(meaning->text().contains(QLatin1String("<b>u")));
    QCOMPARE(meaning->textFormat(), Qt::PlainText);
    table->setCurrentIndex(table->model()->index(1, 0));
    const auto *problem = part<QLabel>(limits.page, "lineProblem");
    QVERIFY(problem->text().contains(QLatin1String("<i>x")));
    QCOMPARE(problem->textFormat(), Qt::PlainText);
}

void HostileNamesTest::showsMarkupOfChosenGroupsAsText()
{
    Sandbox::setAccounts("ada:x:1000:50::/:/bin/sh\n", "<b>g:x:50:\n");
    AccountStore store;
    NewAccountPage page(&store);
    const auto choose = [](GroupSelectDialog &dialog) {
        clickCheckBox(*part<QTreeView>(dialog, "groupsTreeView"), QStringLiteral("<b>g"));
        part<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Ok)->click();
    };
    page.show();
    QVERIFY(withDialog<GroupSelectDialog>(*part<QPushButton>(page, "groupsButton"), choose));
    const auto *groups = part<QLabel>(page, "groupsLabel");
    QVERIFY2(groups->text().endsWith(QLatin1String("<b>g")), qPrintable(groups->text()));
    QCOMPARE(groups->textFormat(), Qt::PlainText);
}

void HostileNamesTest::showsMarkupInToolTips()
{
    LineLabel label;
    label.setText(QStringLiteral("<b>bold</b> ").repeated(20));
    label.resize(60, label.sizeHint().height());
    label.show();
    QVERIFY(QTest::qWaitForWindowExposed(&label, patience));
    QVERIFY(label.isSqueezed());
    QHelpEvent event(QEvent::ToolTip, QPoint(1, 1), label.mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(&label, &event);
    QVERIFY2(QToolTip::text().startsWith(QLatin1String("<qt>&lt;b&gt;bold&lt;/b&gt; ")), qPrintable(QToolTip::text()));
}

QTEST_MAIN(HostileNamesTest)

#include "hostilenamestest.moc"

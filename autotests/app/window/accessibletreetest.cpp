/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "about.h"
#include "accountdialogs.h"
#include "commandsdialog.h"
#include "dialogparts.h"
#include "filecontent.h"
#include "help.h"
#include "icons.h"
#include "mainwindow.h"
#include "plan.h"
#include "texts.h"
#include "windowfixture.h"

#include <GroupSelectDialog>
#include <UserIconDialog>
#include <UserSelectDialog>

#include <QAccessible>
#include <QDialog>
#include <QDir>
#include <QMessageBox>
#include <QMetaEnum>
#include <QTabWidget>
#include <QTest>

#include <algorithm>
#include <functional>

namespace
{
/** Rows and cells are left out, since their number depends on the accounts. */
bool isRow(QAccessible::Role role)
{
    return role == QAccessible::TreeItem || role == QAccessible::Row || role == QAccessible::Cell
        || role == QAccessible::ListItem;
}

QString describe(const QAccessibleInterface &element)
{
    const char *role = QMetaEnum::fromType<QAccessible::Role>().valueToKey(element.role());
    QString name = element.text(QAccessible::Name);
    return text(role) + QLatin1Char(' ') + name.replace(QLatin1Char('\n'), QLatin1Char(' '));
}

/** What screen readers read out: everything that has a name or should have one. */
void addElements(const QAccessibleInterface *element, QStringList &lines)
{
    if (!element || element->state().invisible || isRow(element->role())) {
        return;
    }
    if (!element->text(QAccessible::Name).isEmpty() || element->state().focusable) {
        lines.append(describe(*element));
    }
    for (int child = 0; child < element->childCount(); ++child) {
        addElements(element->child(child), lines);
    }
}

QStringList elementsOf(QWidget &widget)
{
    QStringList lines;
    addElements(QAccessible::queryAccessibleInterface(&widget), lines);
    return lines;
}

/** The expected names and roles of @p name. The actual ones are written to a file, which can replace the list. */
QString expectedElements(const QString &name, const QStringList &found)
{
    const QString results = QStringLiteral(RESULTS_DIR "/accessible");
    QDir().mkpath(results);
    QFile file(results + QLatin1Char('/') + name + QLatin1String(".txt"));
    if (file.open(QIODevice::WriteOnly)) {
        file.write(found.join(QLatin1Char('\n')).toUtf8() + '\n');
    }
    return QString::fromUtf8(contentOf(QStringLiteral(DATA_DIR "/accessible/") + name + QLatin1String(".txt")));
}

void compare(const QString &name, const QStringList &found)
{
    const QString shown = found.join(QLatin1Char('\n')) + QLatin1Char('\n');
    const QString expected = expectedElements(name, found);
    const QStringList list = expected.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (int i = 0; i < qMin(list.size(), found.size()); ++i) {
        QCOMPARE(found.at(i), list.at(i));
    }
    QCOMPARE(shown, expected);
}
}

using CreateDialog = std::function<QDialog *()>;
Q_DECLARE_METATYPE(CreateDialog)

/** Compares the accessibility tree of each page and dialog with a list of names and roles. */
class AccessibleTreeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void namesPages_data();
    void namesPages();
    void namesDialogs_data();
    void namesDialogs();
};

void AccessibleTreeTest::initTestCase()
{
    About::setApplicationData();
    Icons::findThemes();
    Icons::setFallback();
}

void AccessibleTreeTest::init()
{
    prepareWindow();
}

void AccessibleTreeTest::namesPages_data()
{
    QTest::addColumn<QString>("page");

    for (const char *page : {"users", "groups", "limits", "problems", "new-account"}) {
        QTest::newRow(page) << text(page);
    }
}

void AccessibleTreeTest::namesPages()
{
    QFETCH(QString, page);

    MainWindow window;
    QVERIFY(open(window));
    auto *widget = window.pages()->findChild<QWidget *>(page);
    window.pages()->setCurrentWidget(widget);
    QVERIFY(waitUntilShown(window));
    compare(text("page-") + page, elementsOf(*widget));
    QCOMPARE(unnamedAccessibles(*widget), QStringList());
}

void AccessibleTreeTest::namesDialogs_data()
{
    QTest::addColumn<CreateDialog>("create");

    QTest::newRow("about") << CreateDialog([] { return About::createDialog(); });
    QTest::newRow("commands") << CreateDialog([] {
        Plan plan;
        plan.add({"gpasswd", "--delete", "ada"}, "ormel-admin");
        return new CommandsDialog(text("Change the Members of ormel-admin"), plan);
    });
    QTest::newRow("help") << CreateDialog([] { return Help::createDialog(text("users"), text("Users"), {}, nullptr); });
    QTest::newRow("select-users") << CreateDialog(
        [] { return AccountDialogs::makeSelection<UserSelectDialog>().release(); });
    QTest::newRow("select-groups") << CreateDialog(
        [] { return AccountDialogs::makeSelection<GroupSelectDialog>().release(); });
    QTest::newRow("select-icon") << CreateDialog([] {
        auto *dialog = new UserIconDialog;
        AccountDialogs::prepareIcon(*dialog);
        return dialog;
    });
}

void AccessibleTreeTest::namesDialogs()
{
    QFETCH(CreateDialog, create);

    const std::unique_ptr<QDialog> dialog(create());
    dialog->setAttribute(Qt::WA_DeleteOnClose, false);
    QVERIFY(open(*dialog));
    compare(text("dialog-") + text(QTest::currentDataTag()), elementsOf(*dialog));
    QCOMPARE(unnamedAccessibles(*dialog), QStringList());
}

QTEST_MAIN(AccessibleTreeTest)

#include "accessibletreetest.moc"

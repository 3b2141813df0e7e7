/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "bothkinds.h"
#include "dialogkinds.h"
#include "patience.h"
#include "standin.h"

#include <QAccessible>
#include <QHeaderView>
#include <QScrollBar>

namespace
{
const char groupsFile[] = "ormel-admin:x:27:\nstaff:x:50:\nother:x:51:\n";

int lookups = 0;

/** Whether a screen reader is told what is selected. */
bool screenReader = false;

using Dialog = DialogOf<PickedUsers>;
using Operation = void (*)(Dialog &);

/** Counts how often rows are painted. */
class PaintCounter : public QObject
{
public:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int count = 0;
};

void open(Dialog &dialog)
{
    if (!::open(dialog)) {
        qFatal("The dialog does not get the focus");
    }
}

void pressKey(Dialog &dialog, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    dialog.view->setFocus();
    QTest::keyClick(dialog.view, key, modifiers);
}

void sort(Dialog &dialog)
{
    const QHeaderView *header = dialog.view->header();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(10, header->height() / 2));
}

void applyFilter(Dialog &dialog)
{
    dialog.comboBox->setCurrentText(text("All"));
}

void type(Dialog &dialog)
{
    QTest::keyClicks(dialog.lineEdit, text("99"));
}

void erase(Dialog &dialog)
{
    QTest::keyClicks(dialog.lineEdit, text("\b\b"));
}

void selectAll(Dialog &dialog)
{
    pressKey(dialog, Qt::Key_A, Qt::ControlModifier);
}

void scroll(Dialog &dialog)
{
    dialog.view->verticalScrollBar()->setValue(dialog.view->verticalScrollBar()->maximum());
}

void paint(Dialog &dialog)
{
    dialog.view->viewport()->update();
}

void clearSelection(Dialog &dialog)
{
    dialog.view->clearSelection();
}

void goDown(Dialog &dialog)
{
    pressKey(dialog, Qt::Key_Down);
}

void goToEnd(Dialog &dialog)
{
    pressKey(dialog, Qt::Key_End);
}

void click(Dialog &dialog)
{
    const QRect cell = dialog.view->visualRect(dialog.view->indexAt(QPoint(0, 30)));
    QTest::mouseClick(dialog.view->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
}

void check(Dialog &dialog)
{
    pressKey(dialog, Qt::Key_Space);
}

void hideCheckBoxes(Dialog &dialog)
{
    dialog.setSingleSelectionMode(true);
}

/** As many rows as there is room for, cut ones included. */
int visibleRows(const Dialog &dialog)
{
    return dialog.view->viewport()->height() / dialog.view->visualRect(dialog.view->indexAt(QPoint(0, 0))).height() + 2;
}
}

/** The C library's function, which the library under test finds here. */
Q_DECL_EXPORT passwd *getpwnam(const char *name)
{
    ++lookups;
    static const auto next = original(&getpwnam, "getpwnam");
    return next(name);
}

/** As Qt says where a screen reader runs; its widgets find this one. */
bool QAccessible::isActive()
{
    return screenReader;
}

/** Which account lookups a dialog with a group makes to find out which rows are locked. */
class SelectDialogLookupsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void looksUpVisibleRowsOnly_data();
    void looksUpVisibleRowsOnly();
    void looksUpEachVisibleRowOncePerPainting();
    void looksUpNothingForScreenReader();
    void looksUpNothingWithoutGroup();
    void asksAtClickAndKey();
    void asksModelOutsideOfView();
};

void SelectDialogLookupsTest::looksUpVisibleRowsOnly_data()
{
    QTest::addColumn<int>("rows");

    QTest::newRow("1000") << 1000;
    QTest::newRow("10000") << 10000;
}

void SelectDialogLookupsTest::looksUpVisibleRowsOnly()
{
    QFETCH(int, rows);

    Sandbox::setAccounts(manyUsers(rows), groupsFile);
    const GroupInfo other = GroupInfo::getGroup(text("other"));
    lookups = 0;
    Dialog dialog(other, {});
    QCOMPARE(lookups, 0);

    PaintCounter paints;
    dialog.view->viewport()->installEventFilter(&paints);
    const QPair<const char *, Operation> operations[] = {
        {"open", open},
        {"paint again", paint},
        {"sort", sort},
        {"type", type},
        {"erase", erase},
        {"change the filter", applyFilter},
        {"select all", selectAll},
        {"sort while all are selected", sort},
        {"select none", clearSelection},
        {"scroll to the end", scroll},
        {"click", click},
        {"check by key", check},
        {"go down by key", goDown},
        {"go to the end by key", goToEnd},
        {"hide check boxes", hideCheckBoxes},
    };
    for (const auto &[name, operation] : operations) {
        lookups = 0;
        paints.count = 0;
        operation(dialog);
        QTRY_VERIFY2_WITH_TIMEOUT(paints.count > 0, name, patience);
        QCoreApplication::processEvents();
        // The current row is asked for besides those that are painted.
        const int most = paints.count * visibleRows(dialog) + 10;
        QVERIFY2(lookups <= most, qPrintable(QStringLiteral("%1: %2 of %3").arg(text(name)).arg(lookups).arg(most)));
        qInfo("| %s | %d | %d | %d |", name, rows, lookups, paints.count);
    }
}

void SelectDialogLookupsTest::looksUpEachVisibleRowOncePerPainting()
{
    Sandbox::setAccounts(manyUsers(1000), groupsFile);
    Dialog dialog(GroupInfo::getGroup(text("other")), {});
    open(dialog);
    selectAll(dialog);
    QCoreApplication::processEvents();

    lookups = 0;
    dialog.view->viewport()->repaint();
    QVERIFY(lookups > 0);
    QVERIFY(lookups <= visibleRows(dialog));
    lookups = 0;
    dialog.view->header()->viewport()->repaint();
    QCOMPARE(lookups, 0);
}

void SelectDialogLookupsTest::looksUpNothingForScreenReader()
{
    Sandbox::setAccounts(manyUsers(1000), groupsFile);
    Dialog dialog(GroupInfo::getGroup(text("other")), {});
    open(dialog);
    pressKey(dialog, Qt::Key_Home);
    QCoreApplication::processEvents();

    // It is told of the first selected row, for which QTreeView lists them all.
    screenReader = true;
    lookups = 0;
    dialog.view->selectAll();
    const int selecting = lookups;
    lookups = 0;
    dialog.view->clearSelection();
    const int deselecting = lookups;
    screenReader = false;
    QCOMPARE(selecting, 0);
    QCOMPARE(deselecting, 0);
}

void SelectDialogLookupsTest::looksUpNothingWithoutGroup()
{
    Sandbox::setAccounts(manyUsers(100), groupsFile);
    lookups = 0;
    Dialog dialog;
    open(dialog);
    for (const Operation operation : {sort, applyFilter, type, erase, selectAll, scroll, hideCheckBoxes}) {
        operation(dialog);
        QCoreApplication::processEvents();
    }
    QCOMPARE(lookups, 0);
}

void SelectDialogLookupsTest::asksAtClickAndKey()
{
    Sandbox::setAccounts(manyUsers(3), groupsFile);
    Dialog dialog(GroupInfo::getGroup(text("other")), {});
    open(dialog);
    clickCheckBox(*dialog.view, text("user1"));
    QCOMPARE(dialog.pickedNames(), words("user1"));

    // Painted as free to change, but locked from now on.
    dialog.view->setCurrentIndex(viewIndex(*dialog.view, text("user1")));
    Sandbox::setAccounts(manyUsers(3).replace(":50:", ":51:"), groupsFile);
    pressKey(dialog, Qt::Key_Space);
    clickCheckBox(*dialog.view, text("user1"));
    clickCheckBox(*dialog.view, text("user2"));
    QCOMPARE(dialog.pickedNames(), words("user1"));

    Sandbox::setAccounts(manyUsers(3), groupsFile);
    pressKey(dialog, Qt::Key_Space);
    QCOMPARE(dialog.pickedNames(), QStringList());
}

void SelectDialogLookupsTest::asksModelOutsideOfView()
{
    Sandbox::setAccounts(manyUsers(3), groupsFile);
    Dialog dialog(GroupInfo::getGroup(text("other")), {});
    open(dialog);
    dialog.view->doItemsLayout();
    dialog.view->viewport()->repaint();

    const QModelIndex name = viewIndex(*dialog.view, text("user1"));
    QCOMPARE(name.flags(), Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
    QCOMPARE(name.siblingAtColumn(1).flags(), Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren);
    Sandbox::setAccounts(manyUsers(3).replace(":50:", ":51:"), groupsFile);
    QCOMPARE(name.flags(), Qt::NoItemFlags);
    QCOMPARE(name.siblingAtColumn(1).flags(), Qt::NoItemFlags);
}

QTEST_MAIN(SelectDialogLookupsTest)

#include "selectdialoglookupstest.moc"

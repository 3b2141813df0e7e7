/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "bothdialogs.h"

/** What is picked in UserSelectDialog and GroupSelectDialog. */
class SelectDialogSelectionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();

    void startsInMultipleSelectionMode();
    void singleSelectionHidesCheckBoxes();
    void singleSelectionTakesCurrentRow();
    void singleSelectionTakesCurrentRowRatherThanSelectedOnes();
    void singleSelectionFollowsSorting();
    void knowsSingleSelectionWhenReset();
    void multipleSelectionTakesCheckedRows();

    void checksWithMouse();
    void checksWithKeyboard();
    void keepsLockedRowsAsTheyAre();
};

void SelectDialogSelectionTest::initTestCase_data()
{
    addBothKinds();
}

void SelectDialogSelectionTest::init()
{
    setDialogAccounts();
}

void SelectDialogSelectionTest::startsInMultipleSelectionMode()
{
    withDialogForBob("", [](auto /*kind*/, auto &dialog) {
        QVERIFY(!dialog.singleSelectionMode());
        QVERIFY(dialog.model->isSelectable());
        QCOMPARE(dialog.pickedName(), QString());
        QCOMPARE(dialog.pickedNames(), QStringList());
        QCOMPARE(dialog.activatedName(), QString());
    });
}

void SelectDialogSelectionTest::singleSelectionHidesCheckBoxes()
{
    withDialogForBob("adam", [](auto /*kind*/, auto &dialog) {
        dialog.comboBox->setCurrentText(text("Ordinary"));
        dialog.setSingleSelectionMode(true);
        QVERIFY(dialog.singleSelectionMode());
        QVERIFY(!dialog.model->isSelectable());
        QCOMPARE(rowText(*dialog.view->model(), 1), text("adam | 1000 | No"));
        QCOMPARE(dialog.view->selectionMode(), QAbstractItemView::ExtendedSelection);

        dialog.setSingleSelectionMode(false);
        QVERIFY(!dialog.singleSelectionMode());
        QCOMPARE(rowText(*dialog.view->model(), 1), text("[x] adam | 1000 | No"));
    });
}

void SelectDialogSelectionTest::singleSelectionTakesCurrentRow()
{
    withDialogForBob("Zed root", [](auto /*kind*/, auto &dialog) {
        dialog.setSingleSelectionMode(true);
        QCOMPARE(dialog.pickedName(), QString());

        QVERIFY(open(dialog));
        clickText(*dialog.view, text("adam"));
        QCOMPARE(dialog.pickedName(), text("adam"));
    });
}

void SelectDialogSelectionTest::singleSelectionTakesCurrentRowRatherThanSelectedOnes()
{
    withDialog([](auto /*kind*/, auto &dialog) {
        dialog.setSingleSelectionMode(true);
        QItemSelectionModel *selection = dialog.view->selectionModel();
        dialog.view->setCurrentIndex(viewIndex(*dialog.view, bob()));
        selection->setCurrentIndex(viewIndex(*dialog.view, text("adam")), QItemSelectionModel::NoUpdate);
        QCOMPARE(selection->selectedRows().value(0).data().toString(), bob());
        QCOMPARE(dialog.pickedName(), text("adam"));
    });
}

void SelectDialogSelectionTest::singleSelectionFollowsSorting()
{
    withDialog([](auto /*kind*/, auto &dialog) {
        dialog.comboBox->setCurrentText(text("Ordinary"));
        dialog.setSingleSelectionMode(true);
        dialog.view->setCurrentIndex(viewIndex(*dialog.view, text("adam")).siblingAtColumn(2));
        QCOMPARE(dialog.pickedName(), text("adam"));
        dialog.view->sortByColumn(1, Qt::AscendingOrder);
        QCOMPARE(dialog.view->currentIndex().row(), 0);
        QCOMPARE(dialog.pickedName(), text("adam"));
    });
}

void SelectDialogSelectionTest::knowsSingleSelectionWhenReset()
{
    withDialog([this](auto /*kind*/, auto &dialog) {
        QVector<bool> modes;
        connect(
            dialog.model, &QAbstractItemModel::modelReset, this, [&] { modes.append(dialog.singleSelectionMode()); });
        dialog.setSingleSelectionMode(true);
        dialog.setSingleSelectionMode(false);
        QCOMPARE(modes, QVector<bool>({true, false}));
    });
}

void SelectDialogSelectionTest::multipleSelectionTakesCheckedRows()
{
    withDialogForBob("root adam Zed", [](auto /*kind*/, auto &dialog) {
        dialog.view->setCurrentIndex(viewIndex(*dialog.view, text("a.b")));
        QCOMPARE(dialog.pickedName(), text("Zed"));
        QCOMPARE(dialog.pickedNames(), words("Zed adam root"));
    });
}

void SelectDialogSelectionTest::checksWithMouse()
{
    withDialogForBob("", [](auto /*kind*/, auto &dialog) {
        QVERIFY(open(dialog));
        clickCheckBox(*dialog.view, text("adam"));
        QCOMPARE(dialog.pickedNames(), words("adam"));
        clickCheckBox(*dialog.view, text("Zed"));
        QCOMPARE(dialog.pickedNames(), words("Zed adam"));
        clickCheckBox(*dialog.view, text("adam"));
        QCOMPARE(dialog.pickedNames(), words("Zed"));
        clickText(*dialog.view, text("adam"));
        QCOMPARE(dialog.pickedNames(), words("Zed"));
    });
}

void SelectDialogSelectionTest::checksWithKeyboard()
{
    withDialogForBob("", [](auto /*kind*/, auto &dialog) {
        QVERIFY(open(dialog));
        dialog.view->setFocus();
        dialog.view->setCurrentIndex(viewIndex(*dialog.view, text("adam")));
        QTest::keyClick(dialog.view, Qt::Key_Space);
        QCOMPARE(dialog.pickedNames(), words("adam"));
        QTest::keyClick(dialog.view, Qt::Key_Down);
        QTest::keyClick(dialog.view, Qt::Key_Space);
        QCOMPARE(dialog.pickedNames(), words("a.b adam"));
        QTest::keyClick(dialog.view, Qt::Key_Space);
        QCOMPARE(dialog.pickedNames(), words("adam"));
    });
}

void SelectDialogSelectionTest::keepsLockedRowsAsTheyAre()
{
    withDialogForBob("bob", [](auto /*kind*/, auto &dialog) {
        QCOMPARE(viewIndex(*dialog.view, bob()).flags(), Qt::NoItemFlags);
        QVERIFY(open(dialog));
        clickCheckBox(*dialog.view, bob());
        QCOMPARE(dialog.pickedNames(), words("bob"));

        dialog.view->setFocus();
        dialog.view->setCurrentIndex(viewIndex(*dialog.view, bob()));
        QTest::keyClick(dialog.view, Qt::Key_Space);
        QCOMPARE(dialog.pickedNames(), words("bob"));

        // The view also reports a double click on a disabled row.
        doubleClickText(*dialog.view, bob());
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.activatedName(), bob());
        QCOMPARE(dialog.pickedNames(), words("bob"));
    });
}

QTEST_MAIN(SelectDialogSelectionTest)

#include "selectdialogselectiontest.moc"

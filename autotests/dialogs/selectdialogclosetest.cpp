/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "bothdialogs.h"

#include <QPushButton>
#include <QSignalSpy>

/** How UserSelectDialog and GroupSelectDialog are closed. */
class SelectDialogCloseTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();

    void acceptsOnDoubleClick();
    void knowsActivatedNameWhenAccepted();
    void acceptsOnDoubleClickOnPlaceholder();
    void staysOpenOnDoubleClickOutside();
    void acceptsForIndexOfNoRow();
    void closesWithButtons_data();
    void closesWithButtons();
};

void SelectDialogCloseTest::initTestCase_data()
{
    addBothKinds();
}

void SelectDialogCloseTest::init()
{
    setDialogAccounts();
}

void SelectDialogCloseTest::acceptsOnDoubleClick()
{
    withDialogForBob("Zed", [](auto /*kind*/, auto &dialog) {
        QVERIFY(open(dialog));
        doubleClickText(*dialog.view, text("adam"));
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.activatedName(), text("adam"));
        QCOMPARE(dialog.pickedNames(), words("Zed"));
    });
}

void SelectDialogCloseTest::knowsActivatedNameWhenAccepted()
{
    withDialog([this](auto /*kind*/, auto &dialog) {
        QStringList names;
        connect(&dialog, &QDialog::accepted, this, [&] { names.append(dialog.activatedName()); });
        QVERIFY(open(dialog));
        doubleClickText(*dialog.view, text("adam"));
        QCOMPARE(names, QStringList(text("adam")));
    });
}

void SelectDialogCloseTest::acceptsOnDoubleClickOnPlaceholder()
{
    withDialog([](auto kind, auto &dialog) {
        kind.setNewName(*dialog.model, text("carol"));
        QVERIFY(open(dialog));
        doubleClickText(*dialog.view, text("adam"));
        QCOMPARE(dialog.activatedName(), text("adam"));

        QVERIFY(open(dialog));
        dialog.setResult(QDialog::Rejected);
        doubleClickText(*dialog.view, text("carol"));
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        // The row has a record with an empty name.
        QCOMPARE(dialog.activatedName(), QString());
    });
}

void SelectDialogCloseTest::staysOpenOnDoubleClickOutside()
{
    withDialog([](auto /*kind*/, auto &dialog) {
        QVERIFY(open(dialog));
        const QPoint below(10, dialog.view->viewport()->height() - 5);
        QVERIFY(!dialog.view->indexAt(below).isValid());
        QTest::mouseDClick(dialog.view->viewport(), Qt::LeftButton, Qt::NoModifier, below);
        QVERIFY(dialog.isVisible());
        QCOMPARE(dialog.activatedName(), QString());
    });
}

void SelectDialogCloseTest::acceptsForIndexOfNoRow()
{
    withDialog([](auto kind, auto &dialog) {
        QVERIFY(open(dialog));
        doubleClickText(*dialog.view, text("adam"));

        QVERIFY(open(dialog));
        dialog.setResult(QDialog::Rejected);
        kind.activate(dialog, QModelIndex());
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.activatedName(), text("adam"));
    });
}

void SelectDialogCloseTest::closesWithButtons_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("result");

    QTest::newRow("Ok") << int(QDialogButtonBox::Ok) << 0 << int(QDialog::Accepted);
    QTest::newRow("Cancel") << int(QDialogButtonBox::Cancel) << 0 << int(QDialog::Rejected);
    QTest::newRow("return key") << 0 << int(Qt::Key_Return) << int(QDialog::Accepted);
    QTest::newRow("escape key") << 0 << int(Qt::Key_Escape) << int(QDialog::Rejected);
}

void SelectDialogCloseTest::closesWithButtons()
{
    QFETCH(int, button);
    QFETCH(int, key);
    QFETCH(int, result);

    withDialog([&](auto /*kind*/, auto &dialog) {
        QSignalSpy finished(&dialog, &QDialog::finished);
        QVERIFY(finished.isValid());
        QVERIFY(open(dialog));
        if (button) {
            QTest::mouseClick(dialog.buttonBox->button(QDialogButtonBox::StandardButton(button)), Qt::LeftButton);
        } else {
            QTest::keyClick(dialog.lineEdit, Qt::Key(key));
        }
        QCOMPARE(finished, QList<QVariantList>({{result}}));
        QVERIFY(!dialog.isVisible());
    });
}

QTEST_MAIN(SelectDialogCloseTest)

#include "selectdialogclosetest.moc"

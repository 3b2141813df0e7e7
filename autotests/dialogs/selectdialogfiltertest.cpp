/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "bothdialogs.h"

#include <QHeaderView>
#include <QSignalSpy>

/** How the rows of UserSelectDialog and GroupSelectDialog are filtered and sorted. */
class SelectDialogFilterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();

    void filterClearsTextAfterApplying();
    void filterTakesUnknownDataForAll();
    void fitsNameColumnToEachFilter();
    void fitsNameColumnBeforeClearingText();
    void keepsTextWhenFilterIsChosenAgain();
    void textNarrowsNames_data();
    void textNarrowsNames();
    void sortsByClickOnHeader();
};

void SelectDialogFilterTest::initTestCase_data()
{
    addBothKinds();
}

void SelectDialogFilterTest::init()
{
    setDialogAccounts();
}

void SelectDialogFilterTest::filterClearsTextAfterApplying()
{
    withDialog([this](auto /*kind*/, auto &dialog) {
        dialog.comboBox->setCurrentText(text("Ordinary"));
        dialog.lineEdit->setText(text("b"));
        QCOMPARE(dialog.shownNames(), text("bob a.b"));

        QStringList events;
        connect(dialog.model, &QAbstractItemModel::modelReset, this, [&events] { events.append(text("filter")); });
        connect(dialog.lineEdit, &QLineEdit::textChanged, this, [&events] { events.append(text("text")); });
        dialog.comboBox->setCurrentText(text("System"));
        QCOMPARE(dialog.lineEdit->text(), QString());
        QCOMPARE(events, words("filter text"));
        QCOMPARE(dialog.view->model()->rowCount(), 3);
    });
}

void SelectDialogFilterTest::filterTakesUnknownDataForAll()
{
    withDialog([](auto /*kind*/, auto &dialog) {
        dialog.comboBox->setCurrentText(text("System"));
        dialog.comboBox->addItem(text("?"), text("no number"));
        dialog.comboBox->setCurrentText(text("?"));
        QCOMPARE(dialog.model->filter(), dialog.model->All);

        dialog.comboBox->setCurrentText(text("System"));
        QCOMPARE(dialog.model->filter(), dialog.model->System);
        dialog.comboBox->setCurrentIndex(-1);
        QCOMPARE(dialog.model->filter(), dialog.model->All);
    });
}

void SelectDialogFilterTest::fitsNameColumnToEachFilter()
{
    withDialog([](auto /*kind*/, auto &dialog) {
        const QString firstFilter = dialog.comboBox->currentText();
        const int first = dialog.view->columnWidth(0);
        dialog.comboBox->setCurrentText(text("System"));
        const int system = dialog.view->columnWidth(0);
        QVERIFY(system >= dialog.fontMetrics().horizontalAdvance(text("a-system-account-of-a-very-long-name")));
        dialog.comboBox->setCurrentText(text("Ordinary"));
        QVERIFY(dialog.view->columnWidth(0) < system);
        dialog.comboBox->setCurrentText(firstFilter);
        QCOMPARE(dialog.view->columnWidth(0), first);
        QCOMPARE(dialog.view->columnWidth(1), dialog.view->header()->defaultSectionSize());
    });
}

void SelectDialogFilterTest::fitsNameColumnBeforeClearingText()
{
    withDialog([](auto /*kind*/, auto &dialog) {
        dialog.comboBox->setCurrentText(text("Ordinary"));
        dialog.lineEdit->setText(text("bob"));
        dialog.view->resizeColumnToContents(0);
        const int widthForBob = dialog.view->columnWidth(0);
        dialog.comboBox->setCurrentText(text("All"));
        QCOMPARE(dialog.view->columnWidth(0), widthForBob);

        dialog.view->resizeColumnToContents(0);
        QVERIFY(dialog.view->columnWidth(0) > widthForBob);
    });
}

void SelectDialogFilterTest::keepsTextWhenFilterIsChosenAgain()
{
    withDialog([](auto /*kind*/, auto &dialog) {
        QSignalSpy activated(dialog.comboBox, QOverload<int>::of(&QComboBox::activated));
        QVERIFY(activated.isValid());
        QVERIFY(open(dialog));
        QTest::keyClicks(dialog.lineEdit, text("bob"));
        dialog.comboBox->showPopup();
        QTest::keyClick(dialog.comboBox->view(), Qt::Key_Return);
        QCOMPARE(activated.count(), 1);
        QCOMPARE(dialog.lineEdit->text(), text("bob"));
    });
}

void SelectDialogFilterTest::textNarrowsNames_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");

    QTest::newRow("start") << text("ad") << text("adam");
    QTest::newRow("middle") << text("b") << text("bob a.b");
    QTest::newRow("no regular expression") << text(".") << text("a.b");
    QTest::newRow("no wildcard") << text("a*") << QString();
    QTest::newRow("case counts") << text("zed") << QString();
    QTest::newRow("names only") << text("1000") << QString();
}

void SelectDialogFilterTest::textNarrowsNames()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);

    withDialog([&](auto /*kind*/, auto &dialog) {
        dialog.comboBox->setCurrentText(text("Ordinary"));
        QVERIFY(open(dialog));
        QTest::keyClicks(dialog.lineEdit, typed);
        QCOMPARE(dialog.shownNames(), shown);
        dialog.lineEdit->clear();
        QCOMPARE(dialog.shownNames(), text("bob adam a.b Zed"));
    });
}

void SelectDialogFilterTest::sortsByClickOnHeader()
{
    withDialog([](auto /*kind*/, auto &dialog) {
        dialog.comboBox->setCurrentText(text("All"));
        QVERIFY(open(dialog));
        const QHeaderView *header = dialog.view->header();
        const int x = header->sectionViewportPosition(1) + header->sectionSize(1) / 2;
        const auto clickId = [&] {
            QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(x, header->height() / 2));
        };

        // Sorted as numbers, not as texts.
        clickId();
        const QString ascending = text("root ormel-admin a-system-account-of-a-very-long-name adam Zed bob a.b");
        if (dialog.shownNames() != ascending) {
            clickId();
        }
        QCOMPARE(dialog.shownNames(), ascending);
    });
}

QTEST_MAIN(SelectDialogFilterTest)

#include "selectdialogfiltertest.moc"

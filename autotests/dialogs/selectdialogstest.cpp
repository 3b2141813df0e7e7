/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "bothkinds.h"
#include "dialogkinds.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QSignalSpy>
#include <QSortFilterProxyModel>

#include <memory>

namespace
{
/** The user whose own group it is, and the group that is the user's own. */
QString bob()
{
    return text("bob");
}

/** Does @p test with a dialog that was made without arguments. */
template<typename Test>
void withDialog(const Test &test)
{
    withKind<PickedUsers, PickedGroups>([&test](auto kind) {
        DialogOf<decltype(kind)> dialog;
        test(kind, dialog);
    });
}

/** Does @p test with a dialog for bob, in which @p names, parted by blanks, are checked. */
template<typename Test>
void withDialogForBob(const char *names, const Test &test)
{
    withKind<PickedUsers, PickedGroups>([names, &test](auto kind) {
        DialogOf<decltype(kind)> dialog(kind.lockedBy(bob()), words(names));
        test(kind, dialog);
    });
}
}

/** What UserSelectDialog and GroupSelectDialog do alike. */
class SelectDialogsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();

    void registersFilterTypeOnFirstUse();
    void isPlainDialog();
    void laysOutForm();
    void setsUpWidgets();
    void ownsItsParts();
    void showsModelThroughProxy();

    void filterClearsTextAfterApplying();
    void filterTakesUnknownDataForAll();
    void fitsNameColumnToEachFilter();
    void fitsNameColumnBeforeClearingText();
    void keepsTextWhenFilterIsChosenAgain();
    void textNarrowsNames_data();
    void textNarrowsNames();
    void sortsByClickOnHeader();

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
    void survivesExpandingByKey();

    void acceptsOnDoubleClick();
    void knowsActivatedNameWhenAccepted();
    void acceptsOnDoubleClickOnPlaceholder();
    void staysOpenOnDoubleClickOutside();
    void acceptsForIndexOfNoRow();
    void closesWithButtons_data();
    void closesWithButtons();

    void tabFollowsVisualOrder();
    void namesEverythingForScreenReaders();
    void worksWithoutAccounts();
};

void SelectDialogsTest::initTestCase_data()
{
    addBothKinds();
}

void SelectDialogsTest::init()
{
    setUsersAndGroups({
        {"root", 0},
        {"ormel-admin", 27},
        {"a-system-account-of-a-very-long-name", 900},
        {"bob", 1002},
        {"adam", 1000},
        {"Zed", 1001},
        {"a.b", 1003},
    });
}

void SelectDialogsTest::registersFilterTypeOnFirstUse()
{
    withDialog([](auto kind, auto &dialog) {
        const QByteArray filter = decltype(kind)::Model::staticMetaObject.className() + QByteArray("::Filter");
        QCOMPARE(QMetaType::type(filter), int(QMetaType::UnknownType));
        dialog.comboBox->setCurrentText(text("System"));
        QVERIFY(QMetaType::type(filter) != QMetaType::UnknownType);
    });
}

void SelectDialogsTest::isPlainDialog()
{
    withKind<PickedUsers, PickedGroups>([](auto kind) {
        const QMetaObject &meta = decltype(kind)::Dialog::staticMetaObject;
        QCOMPARE(meta.superClass(), &QDialog::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset() + 1);
        const QMetaMethod slot = meta.method(meta.methodOffset());
        QCOMPARE(slot.methodSignature(), QByteArray(QByteArray("on_") + kind.view + "_doubleClicked(QModelIndex)"));
        QCOMPARE(slot.access(), QMetaMethod::Public);
    });
}

void SelectDialogsTest::laysOutForm()
{
    withDialog([](auto kind, auto &dialog) {
        QCOMPARE(dialog.objectName(), text(decltype(kind)::Dialog::staticMetaObject.className()));
        QCOMPARE(dialog.windowTitle(), text(kind.title));
        QCOMPARE(dialog.size(), QSize(594, 424));
        QCOMPARE(dialog.windowModality(), Qt::NonModal);

        auto *layout = qobject_cast<QGridLayout *>(dialog.layout());
        QVERIFY(layout);
        QCOMPARE(layout->objectName(), text("gridLayout"));
        QCOMPARE(gridCells(*layout),
                 QStringList({text(kind.comboBox) + text(" 0,0 1x1"),
                              text("filterLineEdit 0,1 1x1"),
                              text(kind.view) + text(" 1,0 1x2"),
                              text("buttonBox 2,0 1x2")}));
    });
}

void SelectDialogsTest::setsUpWidgets()
{
    withDialog([](auto /*kind*/, auto &dialog) {
        QVERIFY(dialog.lineEdit->isClearButtonEnabled());
        QCOMPARE(dialog.lineEdit->placeholderText(), text("Filter"));
        QCOMPARE(dialog.lineEdit->text(), QString());
        QVERIFY(!dialog.comboBox->isEditable());

        QCOMPARE(dialog.view->selectionMode(), QAbstractItemView::ExtendedSelection);
        QVERIFY(!dialog.view->rootIsDecorated());
        QVERIFY(dialog.view->uniformRowHeights());
        QVERIFY(dialog.view->isSortingEnabled());
        QVERIFY(dialog.view->itemsExpandable());

        QCOMPARE(dialog.buttonBox->orientation(), Qt::Horizontal);
        QCOMPARE(int(dialog.buttonBox->standardButtons()), int(QDialogButtonBox::Ok | QDialogButtonBox::Cancel));
    });
}

void SelectDialogsTest::ownsItsParts()
{
    withKind<PickedUsers, PickedGroups>([](auto kind) {
        auto dialog = std::make_unique<DialogOf<decltype(kind)>>();
        QVERIFY(dialog->model);
        QCOMPARE(dialog->model->parent(), dialog.get());
        const auto proxies =
            dialog->template findChildren<QSortFilterProxyModel *>(QString(), Qt::FindDirectChildrenOnly);
        QCOMPARE(proxies.size(), 1);

        QSignalSpy modelDestroyed(dialog->model, &QObject::destroyed);
        QSignalSpy proxyDestroyed(proxies.first(), &QObject::destroyed);
        QVERIFY(modelDestroyed.isValid() && proxyDestroyed.isValid());
        dialog.reset();
        QCOMPARE(modelDestroyed.count(), 1);
        QCOMPARE(proxyDestroyed.count(), 1);
    });
}

void SelectDialogsTest::showsModelThroughProxy()
{
    withDialog([](auto /*kind*/, auto &dialog) {
        const auto *proxy = qobject_cast<QSortFilterProxyModel *>(dialog.view->model());
        QVERIFY(proxy);
        QCOMPARE(proxy->metaObject(), &QSortFilterProxyModel::staticMetaObject);
        QCOMPARE(proxy->sourceModel(), dialog.model);
        QCOMPARE(proxy->filterKeyColumn(), 0);

        const QSortFilterProxyModel untouched;
        QCOMPARE(proxy->filterCaseSensitivity(), untouched.filterCaseSensitivity());
        QCOMPARE(proxy->sortCaseSensitivity(), untouched.sortCaseSensitivity());
        QCOMPARE(proxy->isSortLocaleAware(), untouched.isSortLocaleAware());
        QCOMPARE(proxy->dynamicSortFilter(), untouched.dynamicSortFilter());
        QCOMPARE(proxy->sortRole(), untouched.sortRole());
        QCOMPARE(proxy->filterRole(), untouched.filterRole());
        QCOMPARE(proxy->isRecursiveFilteringEnabled(), untouched.isRecursiveFilteringEnabled());
    });
}

void SelectDialogsTest::filterClearsTextAfterApplying()
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

void SelectDialogsTest::filterTakesUnknownDataForAll()
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

void SelectDialogsTest::fitsNameColumnToEachFilter()
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

void SelectDialogsTest::fitsNameColumnBeforeClearingText()
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

void SelectDialogsTest::keepsTextWhenFilterIsChosenAgain()
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

void SelectDialogsTest::textNarrowsNames_data()
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

void SelectDialogsTest::textNarrowsNames()
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

void SelectDialogsTest::sortsByClickOnHeader()
{
    withDialog([](auto /*kind*/, auto &dialog) {
        dialog.comboBox->setCurrentText(text("All"));
        QVERIFY(open(dialog));
        const QHeaderView *header = dialog.view->header();
        const int x = header->sectionViewportPosition(1) + header->sectionSize(1) / 2;
        const auto clickId = [&] {
            QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(x, header->height() / 2));
        };

        // As numbers, not as texts.
        clickId();
        const QString ascending = text("root ormel-admin a-system-account-of-a-very-long-name adam Zed bob a.b");
        if (dialog.shownNames() != ascending) {
            clickId();
        }
        QCOMPARE(dialog.shownNames(), ascending);
    });
}

void SelectDialogsTest::startsInMultipleSelectionMode()
{
    withDialogForBob("", [](auto /*kind*/, auto &dialog) {
        QVERIFY(!dialog.singleSelectionMode());
        QVERIFY(dialog.model->isSelectable());
        QCOMPARE(dialog.pickedName(), QString());
        QCOMPARE(dialog.pickedNames(), QStringList());
        QCOMPARE(dialog.activatedName(), QString());
    });
}

void SelectDialogsTest::singleSelectionHidesCheckBoxes()
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

void SelectDialogsTest::singleSelectionTakesCurrentRow()
{
    withDialogForBob("Zed root", [](auto /*kind*/, auto &dialog) {
        dialog.setSingleSelectionMode(true);
        QCOMPARE(dialog.pickedName(), QString());

        QVERIFY(open(dialog));
        clickText(*dialog.view, text("adam"));
        QCOMPARE(dialog.pickedName(), text("adam"));
    });
}

void SelectDialogsTest::singleSelectionTakesCurrentRowRatherThanSelectedOnes()
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

void SelectDialogsTest::singleSelectionFollowsSorting()
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

void SelectDialogsTest::knowsSingleSelectionWhenReset()
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

void SelectDialogsTest::multipleSelectionTakesCheckedRows()
{
    withDialogForBob("root adam Zed", [](auto /*kind*/, auto &dialog) {
        dialog.view->setCurrentIndex(viewIndex(*dialog.view, text("a.b")));
        QCOMPARE(dialog.pickedName(), text("Zed"));
        QCOMPARE(dialog.pickedNames(), words("Zed adam root"));
    });
}

void SelectDialogsTest::checksWithMouse()
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

void SelectDialogsTest::checksWithKeyboard()
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

void SelectDialogsTest::keepsLockedRowsAsTheyAre()
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

        // The view reports a double click on a disabled row, too.
        doubleClickText(*dialog.view, bob());
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.activatedName(), bob());
        QCOMPARE(dialog.pickedNames(), words("bob"));
    });
}

void SelectDialogsTest::survivesExpandingByKey()
{
    withDialog([](auto /*kind*/, auto &dialog) {
        QVERIFY(open(dialog));
        const QString shown = dialog.shownNames();
        const QModelIndex first = dialog.view->model()->index(0, 0);
        QVERIFY(!dialog.view->model()->hasChildren(first));
        QCOMPARE(dialog.view->model()->rowCount(first), 0);

        dialog.view->setCurrentIndex(first);
        QTest::keyClick(dialog.view, Qt::Key_Asterisk);
        QCOMPARE(dialog.shownNames(), shown);
    });
}

void SelectDialogsTest::acceptsOnDoubleClick()
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

void SelectDialogsTest::knowsActivatedNameWhenAccepted()
{
    withDialog([this](auto /*kind*/, auto &dialog) {
        QStringList names;
        connect(&dialog, &QDialog::accepted, this, [&] { names.append(dialog.activatedName()); });
        QVERIFY(open(dialog));
        doubleClickText(*dialog.view, text("adam"));
        QCOMPARE(names, QStringList(text("adam")));
    });
}

void SelectDialogsTest::acceptsOnDoubleClickOnPlaceholder()
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
        // The record of the row is there, with an empty name.
        QCOMPARE(dialog.activatedName(), QString());
    });
}

void SelectDialogsTest::staysOpenOnDoubleClickOutside()
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

void SelectDialogsTest::acceptsForIndexOfNoRow()
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

void SelectDialogsTest::closesWithButtons_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("result");

    QTest::newRow("Ok") << int(QDialogButtonBox::Ok) << 0 << int(QDialog::Accepted);
    QTest::newRow("Cancel") << int(QDialogButtonBox::Cancel) << 0 << int(QDialog::Rejected);
    QTest::newRow("return key") << 0 << int(Qt::Key_Return) << int(QDialog::Accepted);
    QTest::newRow("escape key") << 0 << int(Qt::Key_Escape) << int(QDialog::Rejected);
}

void SelectDialogsTest::closesWithButtons()
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

void SelectDialogsTest::tabFollowsVisualOrder()
{
    withDialog([](auto kind, auto &dialog) {
        QVERIFY(open(dialog));
        const QStringList order = tabOrder(dialog, dialog.comboBox);
        QCOMPARE(order.mid(0, 3), QStringList({text(kind.comboBox), text("filterLineEdit"), text(kind.view)}));
        QCOMPARE(order.size(), 5);
        const auto *ok = dialog.buttonBox->button(QDialogButtonBox::Ok);
        const auto *cancel = dialog.buttonBox->button(QDialogButtonBox::Cancel);
        const bool okFirst = ok->mapToGlobal(QPoint()).x() < cancel->mapToGlobal(QPoint()).x();
        QCOMPARE(order.mid(3),
                 okFirst ? QStringList({ok->text(), cancel->text()}) : QStringList({cancel->text(), ok->text()}));
    });
}

void SelectDialogsTest::namesEverythingForScreenReaders()
{
    withDialogForBob("adam", [](auto /*kind*/, auto &dialog) {
        QVERIFY(open(dialog));
        QCOMPARE(unnamedAccessibles(dialog), QStringList());
    });
}

void SelectDialogsTest::worksWithoutAccounts()
{
    withKind<PickedUsers, PickedGroups>([](auto kind) {
        const auto lockedBy = kind.lockedBy(bob());
        Sandbox::setAccounts("", "");
        DialogOf<decltype(kind)> dialog(lockedBy, words("adam"));
        QVERIFY(open(dialog));
        QCOMPARE(dialog.pickedNames(), QStringList());
        dialog.comboBox->setCurrentText(text("System"));
        QTest::keyClicks(dialog.lineEdit, text("a"));
        dialog.setSingleSelectionMode(true);
        QCOMPARE(dialog.pickedName(), QString());
    });
}

QTEST_MAIN(SelectDialogsTest)

#include "selectdialogstest.moc"

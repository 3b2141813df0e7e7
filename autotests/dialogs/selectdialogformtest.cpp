/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "bothdialogs.h"

#include <QGridLayout>
#include <QPushButton>
#include <QSignalSpy>
#include <QSortFilterProxyModel>

#include <memory>

/** The form of UserSelectDialog and GroupSelectDialog. */
class SelectDialogFormTest : public QObject
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

    void survivesExpandingByKey();

    void tabFollowsVisualOrder();
    void namesEverythingForScreenReaders();
    void worksWithoutAccounts();
};

void SelectDialogFormTest::initTestCase_data()
{
    addBothKinds();
}

void SelectDialogFormTest::init()
{
    setDialogAccounts();
}

void SelectDialogFormTest::registersFilterTypeOnFirstUse()
{
    withDialog([](auto kind, auto &dialog) {
        const QByteArray filter = decltype(kind)::Model::staticMetaObject.className() + QByteArray("::Filter");
        QCOMPARE(QMetaType::type(filter), int(QMetaType::UnknownType));
        dialog.comboBox->setCurrentText(text("System"));
        QVERIFY(QMetaType::type(filter) != QMetaType::UnknownType);
    });
}

void SelectDialogFormTest::isPlainDialog()
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

void SelectDialogFormTest::laysOutForm()
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

void SelectDialogFormTest::setsUpWidgets()
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

void SelectDialogFormTest::ownsItsParts()
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

void SelectDialogFormTest::showsModelThroughProxy()
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

void SelectDialogFormTest::survivesExpandingByKey()
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

void SelectDialogFormTest::tabFollowsVisualOrder()
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

void SelectDialogFormTest::namesEverythingForScreenReaders()
{
    withDialogForBob("adam", [](auto /*kind*/, auto &dialog) {
        QVERIFY(open(dialog));
        QCOMPARE(unnamedAccessibles(dialog), QStringList());
    });
}

void SelectDialogFormTest::worksWithoutAccounts()
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

QTEST_MAIN(SelectDialogFormTest)

#include "selectdialogformtest.moc"

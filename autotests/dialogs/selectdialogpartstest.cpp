/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "bothkinds.h"
#include "dialogkinds.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QMetaProperty>
#include <QSortFilterProxyModel>

namespace
{
/** The objects below @p object by class and name; widgets that do not show have parentheses. */
QStringList objectsBelow(const QObject &object)
{
    QStringList objects;
    const auto children = object.findChildren<QObject *>();
    for (const QObject *child : children) {
        const auto *widget = qobject_cast<const QWidget *>(child);
        const bool hides = widget && !widget->isVisibleTo(widget->window());
        const QString name = text(child->metaObject()->className()) + QLatin1Char(' ') + child->objectName();
        objects.append(hides ? QLatin1Char('(') + name + QLatin1Char(')') : name);
    }
    objects.sort();
    return objects;
}

/** The properties that @p object has from QFrame and the classes derived from it. */
QStringList frameProperties(const QObject &object)
{
    QStringList properties;
    const QMetaObject &meta = *object.metaObject();
    for (int i = QFrame::staticMetaObject.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        const QVariant value = property.read(&object);
        properties.append(text(property.name()) + QLatin1Char(' ') + value.toString());
    }
    return properties;
}

/** A form built of Qt's own classes. */
template<typename Kind>
struct PlainForm : QDialog {
    PlainForm()
    {
        setObjectName(text(Kind::Dialog::staticMetaObject.className()));
        auto *layout = new QGridLayout(this);
        layout->setObjectName(QStringLiteral("gridLayout"));
        layout->addWidget(comboBox, 0, 0);
        layout->addWidget(lineEdit, 0, 1);
        layout->addWidget(view, 1, 0, 1, 2);
        layout->addWidget(buttonBox, 2, 0, 1, 2);
        comboBox->setObjectName(text(Kind::comboBox));
        comboBox->addItem(QStringLiteral("All"));
        lineEdit->setObjectName(QStringLiteral("filterLineEdit"));
        lineEdit->setClearButtonEnabled(true);
        view->setObjectName(text(Kind::view));
        view->setSelectionMode(QAbstractItemView::ExtendedSelection);
        view->setRootIsDecorated(false);
        view->setUniformRowHeights(true);
        view->setSortingEnabled(true);
        buttonBox->setObjectName(QStringLiteral("buttonBox"));
        buttonBox->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        proxy->setSourceModel(new typename Kind::Model(this));
        view->setModel(proxy);
        view->resizeColumnToContents(0);
        resize(594, 424);
    }

    QComboBox *comboBox = new QComboBox(this);
    QLineEdit *lineEdit = new QLineEdit(this);
    QTreeView *view = new QTreeView(this);
    QDialogButtonBox *buttonBox = new QDialogButtonBox(this);
    QSortFilterProxyModel *proxy = new QSortFilterProxyModel(this);
};
}

/** The select dialogs beside the same forms built of Qt's own classes. */
class SelectDialogPartsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();

    void hasNoOtherObjects();
    void hasViewAsQtBuildsIt();
    void createsListWhenItPopsUp_data();
    void createsListWhenItPopsUp();
};

void SelectDialogPartsTest::initTestCase_data()
{
    addBothKinds();
}

void SelectDialogPartsTest::init()
{
    setUsersAndGroups({{"root", 0}, {"ormel-admin", 27}, {"adam", 1000}});
}

void SelectDialogPartsTest::hasNoOtherObjects()
{
    withKind<PickedUsers, PickedGroups>([](auto kind) {
        DialogOf<decltype(kind)> dialog;
        PlainForm<decltype(kind)> form;
        QCOMPARE(objectsBelow(dialog), objectsBelow(form));
        QVERIFY(open(dialog));
        dialog.hide();
        QVERIFY(open(form));
        QCOMPARE(objectsBelow(dialog), objectsBelow(form));
    });
}

void SelectDialogPartsTest::hasViewAsQtBuildsIt()
{
    withKind<PickedUsers, PickedGroups>([](auto kind) {
        DialogOf<decltype(kind)> dialog;
        PlainForm<decltype(kind)> form;
        dialog.comboBox->setCurrentText(text("Ordinary"));
        dialog.comboBox->setCurrentText(text("All"));
        QCOMPARE(frameProperties(*dialog.view), frameProperties(*form.view));
        QCOMPARE(frameProperties(*dialog.view->header()), frameProperties(*form.view->header()));
        QCOMPARE(dialog.view->header()->sectionsMovable(), form.view->header()->sectionsMovable());
        QCOMPARE(dialog.view->header()->sectionsClickable(), form.view->header()->sectionsClickable());
    });
}

void SelectDialogPartsTest::createsListWhenItPopsUp_data()
{
    QTest::addColumn<bool>("byKey");

    QTest::newRow("mouse") << false;
    QTest::newRow("keyboard") << true;
}

void SelectDialogPartsTest::createsListWhenItPopsUp()
{
    QFETCH(bool, byKey);

    withKind<PickedUsers, PickedGroups>([byKey](auto kind) {
        DialogOf<decltype(kind)> dialog;
        QVERIFY(open(dialog));
        QCOMPARE(dialog.comboBox->template findChildren<QAbstractItemView *>().size(), 0);
        if (byKey) {
            QTest::keyClick(dialog.comboBox, Qt::Key_F4);
        } else {
            QTest::mousePress(dialog.comboBox, Qt::LeftButton);
        }
        const auto lists = dialog.comboBox->template findChildren<QAbstractItemView *>();
        QCOMPARE(lists.size(), 1);
        QVERIFY(lists.first()->isVisible());
        QCOMPARE(lists.first()->accessibleName(), text("Filter"));
    });
}

QTEST_MAIN(SelectDialogPartsTest)

#include "selectdialogpartstest.moc"

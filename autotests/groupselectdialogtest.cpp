/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "dialogparts.h"
#include "modellog.h"
#include "sandbox.h"

#include <GroupListModel>
#include <GroupSelectDialog>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QTest>
#include <QTreeView>

#include <memory>

namespace
{
const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                         "bob:x:1000:1000::/home/bob:/bin/sh\n";

const char groupsFile[] = "root:x:0:\n"
                          "a-system-group-of-a-very-long-name:x:900:\n"
                          "bob:x:1002:\n"
                          "adam:x:1000:zed\n"
                          "Zed:x:1001:zed\n"
                          "a.b:x:1003:\n";

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/** The user whose own group is among the groups. */
QString bob()
{
    return text("bob");
}

/** A dialog with its parts at hand. */
struct Dialog : GroupSelectDialog {
    using GroupSelectDialog::GroupSelectDialog;

    QComboBox *comboBox = part<QComboBox>(*this, "groupFilterComboBox");
    QLineEdit *lineEdit = part<QLineEdit>(*this, "filterLineEdit");
    QTreeView *view = part<QTreeView>(*this, "groupsTreeView");
    QDialogButtonBox *buttonBox = part<QDialogButtonBox>(*this, "buttonBox");
    GroupListModel *model = findChild<GroupListModel *>();

    QString shownNames() const
    {
        return ::shownNames(*view->model());
    }
};
}

class GroupSelectDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void registersFilterTypeOnFirstUse();
    void isPlainDialog();
    void laysOutForm();
    void setsUpWidgets();
    void offersFilters();
    void ownsItsParts();
    void showsModelThroughProxy();
    void startsWithAllGroups();

    void filterNarrowsGroups_data();
    void filterNarrowsGroups();
    void filterClearsTextAfterApplying();
    void filterTakesUnknownDataForAll();
    void fitsNameColumnToEachFilter();
    void textNarrowsNames_data();
    void textNarrowsNames();
    void sortsByClickOnHeader();

    void startsInMultipleSelectionMode();
    void singleSelectionHidesCheckBoxes();
    void singleSelectionTakesCurrentGroup();
    void singleSelectionLeavesCheckedGroupsAlone();
    void singleSelectionFollowsSorting();
    void multipleSelectionTakesCheckedGroups();

    void checksWithMouse();
    void checksWithKeyboard();
    void keepsLockedGroupsAsTheyAre();
    void survivesExpandingByKey();

    void acceptsOnDoubleClick();
    void acceptsOnDoubleClickOnPlaceholder();
    void staysOpenOnDoubleClickOutside();
    void acceptsForIndexOfNoGroup();
    void closesWithButtons_data();
    void closesWithButtons();

    void tabFollowsVisualOrder();
    void namesEverythingForScreenReaders();
    void worksWithoutGroups();
    void handlesTenThousandGroups();
};

void GroupSelectDialogTest::init()
{
    Sandbox::setAccounts(usersFile, groupsFile);
}

void GroupSelectDialogTest::registersFilterTypeOnFirstUse()
{
    const Dialog dialog;
    QCOMPARE(QMetaType::type("GroupListModel::Filter"), int(QMetaType::UnknownType));
    dialog.comboBox->setCurrentIndex(1);
    QVERIFY(QMetaType::type("GroupListModel::Filter") != QMetaType::UnknownType);
}

void GroupSelectDialogTest::isPlainDialog()
{
    const QMetaObject &meta = GroupSelectDialog::staticMetaObject;
    QCOMPARE(meta.className(), "GroupSelectDialog");
    QCOMPARE(meta.superClass(), &QDialog::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset() + 1);
    const QMetaMethod slot = meta.method(meta.methodOffset());
    QCOMPARE(slot.methodSignature(), QByteArray("on_groupsTreeView_doubleClicked(QModelIndex)"));
    QCOMPARE(slot.access(), QMetaMethod::Public);
}

void GroupSelectDialogTest::laysOutForm()
{
    const Dialog dialog;
    QCOMPARE(dialog.objectName(), text("GroupSelectDialog"));
    QCOMPARE(dialog.windowTitle(), text("Select Groups"));
    QCOMPARE(dialog.size(), QSize(594, 424));
    QCOMPARE(dialog.windowModality(), Qt::NonModal);

    auto *layout = qobject_cast<QGridLayout *>(dialog.layout());
    QVERIFY(layout);
    QCOMPARE(layout->objectName(), text("gridLayout"));
    QCOMPARE(
        gridCells(*layout),
        lines(
            {"groupFilterComboBox 0,0 1x1", "filterLineEdit 0,1 1x1", "groupsTreeView 1,0 1x2", "buttonBox 2,0 1x2"}));
}

void GroupSelectDialogTest::setsUpWidgets()
{
    const Dialog dialog;
    QVERIFY(dialog.lineEdit->isClearButtonEnabled());
    QCOMPARE(dialog.lineEdit->placeholderText(), text("Filter"));
    QCOMPARE(dialog.lineEdit->text(), QString());

    QCOMPARE(dialog.view->selectionMode(), QAbstractItemView::ExtendedSelection);
    QVERIFY(!dialog.view->rootIsDecorated());
    QVERIFY(dialog.view->uniformRowHeights());
    QVERIFY(dialog.view->isSortingEnabled());
    QVERIFY(dialog.view->itemsExpandable());

    QCOMPARE(dialog.buttonBox->orientation(), Qt::Horizontal);
    QCOMPARE(int(dialog.buttonBox->standardButtons()), int(QDialogButtonBox::Ok | QDialogButtonBox::Cancel));
}

void GroupSelectDialogTest::offersFilters()
{
    const Dialog dialog;
    QCOMPARE(comboBoxEntries(*dialog.comboBox),
             lines({"All int 0", "Ordinary int 1", "System int 2", "Selected int 3", "Unselected int 4"}));
    QCOMPARE(dialog.comboBox->currentText(), text("All"));
    QVERIFY(!dialog.comboBox->isEditable());
}

void GroupSelectDialogTest::ownsItsParts()
{
    auto dialog = std::make_unique<Dialog>();
    QVERIFY(dialog->model);
    QCOMPARE(dialog->model->parent(), dialog.get());
    const auto proxies = dialog->findChildren<QSortFilterProxyModel *>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(proxies.size(), 1);

    QSignalSpy modelDestroyed(dialog->model, &QObject::destroyed);
    QSignalSpy proxyDestroyed(proxies.first(), &QObject::destroyed);
    QVERIFY(modelDestroyed.isValid() && proxyDestroyed.isValid());
    dialog.reset();
    QCOMPARE(modelDestroyed.count(), 1);
    QCOMPARE(proxyDestroyed.count(), 1);
}

void GroupSelectDialogTest::showsModelThroughProxy()
{
    const Dialog dialog;
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
}

void GroupSelectDialogTest::startsWithAllGroups()
{
    // A tree view that sorts starts with the first column, descending.
    const Dialog all;
    QCOMPARE(rowTexts(*all.view->model()),
             lines({"[ ] root | 0 | Yes",
                    "[ ] bob | 1002 | No",
                    "[ ] adam | 1000 | No",
                    "[ ] a.b | 1003 | No",
                    "[ ] a-system-group-of-a-very-long-name | 900 | Yes",
                    "[ ] Zed | 1001 | No"}));
    QCOMPARE(all.selectedGroupNames(), QStringList());

    const Dialog groups(bob(), words("adam root"));
    QCOMPARE(rowText(*groups.view->model(), 2), text("[x] adam | 1000 | No"));
    QCOMPARE(groups.selectedGroupNames(), words("adam root"));
    QCOMPARE(viewIndex(*groups.view, text("bob")).flags(), Qt::NoItemFlags);
}

void GroupSelectDialogTest::filterNarrowsGroups_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<int>("filter");
    QTest::addColumn<QString>("shown");

    const QString longName = text("a-system-group-of-a-very-long-name");
    QTest::newRow("Ordinary") << text("Ordinary") << 1 << text("bob adam a.b Zed");
    QTest::newRow("System") << text("System") << 2 << QStringLiteral("root %1").arg(longName);
    QTest::newRow("Selected") << text("Selected") << 3 << text("root adam");
    QTest::newRow("Unselected") << text("Unselected") << 4 << QStringLiteral("bob a.b %1 Zed").arg(longName);
}

void GroupSelectDialogTest::filterNarrowsGroups()
{
    QFETCH(QString, entry);
    QFETCH(int, filter);
    QFETCH(QString, shown);

    const Dialog dialog(bob(), words("adam root"));
    const QString all = dialog.shownNames();
    dialog.comboBox->setCurrentText(entry);
    QCOMPARE(dialog.model->filter(), filter);
    QCOMPARE(dialog.shownNames(), shown);

    dialog.comboBox->setCurrentText(text("All"));
    QCOMPARE(dialog.shownNames(), all);
}

void GroupSelectDialogTest::filterClearsTextAfterApplying()
{
    const Dialog dialog;
    dialog.lineEdit->setText(text("b"));
    QCOMPARE(dialog.shownNames(), text("bob a.b"));

    QStringList events;
    connect(dialog.model, &GroupListModel::modelReset, this, [&events] { events.append(text("filter")); });
    connect(dialog.lineEdit, &QLineEdit::textChanged, this, [&events] { events.append(text("text")); });
    dialog.comboBox->setCurrentIndex(2);
    QCOMPARE(dialog.lineEdit->text(), QString());
    QCOMPARE(events, words("filter text"));
    QCOMPARE(dialog.view->model()->rowCount(), 2);
}

void GroupSelectDialogTest::filterTakesUnknownDataForAll()
{
    const Dialog dialog;
    dialog.comboBox->addItem(text("?"), text("no number"));
    dialog.comboBox->setCurrentIndex(5);
    QCOMPARE(dialog.model->filter(), GroupListModel::All);
    dialog.comboBox->setCurrentIndex(-1);
    QCOMPARE(dialog.model->filter(), GroupListModel::All);
}

void GroupSelectDialogTest::fitsNameColumnToEachFilter()
{
    const Dialog dialog;
    const int all = dialog.view->columnWidth(0);
    QVERIFY(all >= dialog.fontMetrics().horizontalAdvance(text("a-system-group-of-a-very-long-name")));
    dialog.comboBox->setCurrentText(text("Ordinary"));
    QVERIFY(dialog.view->columnWidth(0) < all);
    dialog.comboBox->setCurrentText(text("System"));
    QCOMPARE(dialog.view->columnWidth(0), all);
    QCOMPARE(dialog.view->columnWidth(1), dialog.view->header()->defaultSectionSize());
}

void GroupSelectDialogTest::textNarrowsNames_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");

    QTest::newRow("start") << text("ad") << text("adam");
    QTest::newRow("middle") << text("o") << text("root bob a-system-group-of-a-very-long-name");
    QTest::newRow("no regular expression") << text(".") << text("a.b");
    QTest::newRow("no wildcard") << text("a*") << QString();
    QTest::newRow("case counts") << text("zed") << QString();
    QTest::newRow("names only") << text("1000") << QString();
}

void GroupSelectDialogTest::textNarrowsNames()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);

    Dialog dialog;
    QVERIFY(open(dialog));
    const QString all = dialog.shownNames();
    QTest::keyClicks(dialog.lineEdit, typed);
    QCOMPARE(dialog.shownNames(), shown);
    dialog.lineEdit->clear();
    QCOMPARE(dialog.shownNames(), all);
}

void GroupSelectDialogTest::sortsByClickOnHeader()
{
    Dialog dialog;
    QVERIFY(open(dialog));
    const QHeaderView *header = dialog.view->header();
    const int x = header->sectionViewportPosition(1) + header->sectionSize(1) / 2;
    const auto clickGid = [&] {
        QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(x, header->height() / 2));
    };

    // As numbers, not as texts.
    clickGid();
    const QString ascending = text("root a-system-group-of-a-very-long-name adam Zed bob a.b");
    if (dialog.shownNames() != ascending) {
        clickGid();
    }
    QCOMPARE(dialog.shownNames(), ascending);
}

void GroupSelectDialogTest::startsInMultipleSelectionMode()
{
    const Dialog dialog(bob(), {});
    QVERIFY(!dialog.singleSelectionMode());
    QVERIFY(dialog.model->isSelectable());
    QCOMPARE(dialog.selectedGroupName(), QString());
    QCOMPARE(dialog.selectedGroupNames(), QStringList());
    QCOMPARE(dialog.activatedGroupName(), QString());
}

void GroupSelectDialogTest::singleSelectionHidesCheckBoxes()
{
    Dialog dialog(bob(), words("adam"));
    dialog.setSingleSelectionMode(true);
    QVERIFY(dialog.singleSelectionMode());
    QVERIFY(!dialog.model->isSelectable());
    QCOMPARE(rowText(*dialog.view->model(), 2), text("adam | 1000 | No"));
    QCOMPARE(dialog.view->selectionMode(), QAbstractItemView::ExtendedSelection);

    dialog.setSingleSelectionMode(false);
    QVERIFY(!dialog.singleSelectionMode());
    QCOMPARE(rowText(*dialog.view->model(), 2), text("[x] adam | 1000 | No"));
}

void GroupSelectDialogTest::singleSelectionTakesCurrentGroup()
{
    Dialog dialog(bob(), words("Zed root"));
    dialog.setSingleSelectionMode(true);
    QCOMPARE(dialog.selectedGroupName(), QString());

    QVERIFY(open(dialog));
    clickText(*dialog.view, text("adam"));
    QCOMPARE(dialog.selectedGroupName(), text("adam"));
}

void GroupSelectDialogTest::singleSelectionLeavesCheckedGroupsAlone()
{
    Dialog none;
    none.setSingleSelectionMode(true);
    none.view->setCurrentIndex(viewIndex(*none.view, text("adam")));
    QCOMPARE(none.selectedGroupNames(), QStringList());

    Dialog some(bob(), words("root Zed bob"));
    some.setSingleSelectionMode(true);
    some.view->setCurrentIndex(viewIndex(*some.view, text("adam")));
    QCOMPARE(some.selectedGroupNames(), words("bob Zed root"));
}

void GroupSelectDialogTest::singleSelectionFollowsSorting()
{
    Dialog dialog;
    dialog.setSingleSelectionMode(true);
    dialog.view->setCurrentIndex(viewIndex(*dialog.view, text("adam")).siblingAtColumn(2));
    QCOMPARE(dialog.selectedGroupName(), text("adam"));
    dialog.view->sortByColumn(1, Qt::AscendingOrder);
    QCOMPARE(dialog.view->currentIndex().row(), 2);
    QCOMPARE(dialog.selectedGroupName(), text("adam"));
}

void GroupSelectDialogTest::multipleSelectionTakesCheckedGroups()
{
    const Dialog dialog(bob(), words("root adam Zed"));
    dialog.view->setCurrentIndex(viewIndex(*dialog.view, text("a.b")));
    QCOMPARE(dialog.selectedGroupName(), text("Zed"));
    QCOMPARE(dialog.selectedGroupNames(), words("Zed adam root"));

    const Dialog withOwn(bob(), words("root bob Zed"));
    QCOMPARE(withOwn.selectedGroupName(), text("bob"));
    QCOMPARE(withOwn.selectedGroupNames(), words("bob Zed root"));
}

void GroupSelectDialogTest::checksWithMouse()
{
    Dialog dialog(bob(), {});
    QVERIFY(open(dialog));
    clickCheckBox(*dialog.view, text("adam"));
    QCOMPARE(dialog.selectedGroupNames(), words("adam"));
    clickCheckBox(*dialog.view, text("Zed"));
    QCOMPARE(dialog.selectedGroupNames(), words("Zed adam"));
    clickCheckBox(*dialog.view, text("adam"));
    QCOMPARE(dialog.selectedGroupNames(), words("Zed"));
    clickText(*dialog.view, text("adam"));
    QCOMPARE(dialog.selectedGroupNames(), words("Zed"));
}

void GroupSelectDialogTest::checksWithKeyboard()
{
    Dialog dialog(bob(), {});
    QVERIFY(open(dialog));
    dialog.view->setFocus();
    dialog.view->setCurrentIndex(viewIndex(*dialog.view, text("adam")));
    QTest::keyClick(dialog.view, Qt::Key_Space);
    QCOMPARE(dialog.selectedGroupNames(), words("adam"));
    QTest::keyClick(dialog.view, Qt::Key_Down);
    QTest::keyClick(dialog.view, Qt::Key_Space);
    QCOMPARE(dialog.selectedGroupNames(), words("a.b adam"));
    QTest::keyClick(dialog.view, Qt::Key_Space);
    QCOMPARE(dialog.selectedGroupNames(), words("adam"));
}

void GroupSelectDialogTest::keepsLockedGroupsAsTheyAre()
{
    Dialog dialog(bob(), words("bob"));
    QVERIFY(open(dialog));
    clickCheckBox(*dialog.view, text("bob"));
    QCOMPARE(dialog.selectedGroupNames(), words("bob"));

    dialog.view->setFocus();
    dialog.view->setCurrentIndex(viewIndex(*dialog.view, text("bob")));
    QTest::keyClick(dialog.view, Qt::Key_Space);
    QCOMPARE(dialog.selectedGroupNames(), words("bob"));

    // The view reports a double click on a disabled row, too.
    doubleClickText(*dialog.view, text("bob"));
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.activatedGroupName(), text("bob"));
    QCOMPARE(dialog.selectedGroupNames(), words("bob"));
}

void GroupSelectDialogTest::survivesExpandingByKey()
{
    Dialog dialog;
    QVERIFY(open(dialog));
    const QModelIndex first = dialog.view->model()->index(0, 0);
    QVERIFY(!dialog.view->model()->hasChildren(first));
    QCOMPARE(dialog.view->model()->rowCount(first), 0);

    dialog.view->setCurrentIndex(first);
    QTest::keyClick(dialog.view, Qt::Key_Asterisk);
    QCOMPARE(dialog.view->model()->rowCount(), 6);
}

void GroupSelectDialogTest::acceptsOnDoubleClick()
{
    Dialog dialog(bob(), words("Zed"));
    QVERIFY(open(dialog));
    doubleClickText(*dialog.view, text("adam"));
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.activatedGroupName(), text("adam"));
    QCOMPARE(dialog.selectedGroupNames(), words("Zed"));
}

void GroupSelectDialogTest::acceptsOnDoubleClickOnPlaceholder()
{
    Dialog dialog;
    dialog.model->setNewGroupName(text("staff2"));
    QVERIFY(open(dialog));
    doubleClickText(*dialog.view, text("adam"));
    QCOMPARE(dialog.activatedGroupName(), text("adam"));

    QVERIFY(open(dialog));
    dialog.setResult(QDialog::Rejected);
    doubleClickText(*dialog.view, text("staff2"));
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    // The record of the row is there, with an empty name.
    QCOMPARE(dialog.activatedGroupName(), QString());
}

void GroupSelectDialogTest::staysOpenOnDoubleClickOutside()
{
    Dialog dialog;
    QVERIFY(open(dialog));
    const QPoint below(10, dialog.view->viewport()->height() - 5);
    QVERIFY(!dialog.view->indexAt(below).isValid());
    QTest::mouseDClick(dialog.view->viewport(), Qt::LeftButton, Qt::NoModifier, below);
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.activatedGroupName(), QString());
}

void GroupSelectDialogTest::acceptsForIndexOfNoGroup()
{
    Dialog dialog;
    QVERIFY(open(dialog));
    doubleClickText(*dialog.view, text("adam"));

    QVERIFY(open(dialog));
    dialog.setResult(QDialog::Rejected);
    dialog.on_groupsTreeView_doubleClicked(QModelIndex());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.activatedGroupName(), text("adam"));
}

void GroupSelectDialogTest::closesWithButtons_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("result");

    QTest::newRow("Ok") << int(QDialogButtonBox::Ok) << 0 << int(QDialog::Accepted);
    QTest::newRow("Cancel") << int(QDialogButtonBox::Cancel) << 0 << int(QDialog::Rejected);
    QTest::newRow("return key") << 0 << int(Qt::Key_Return) << int(QDialog::Accepted);
    QTest::newRow("escape key") << 0 << int(Qt::Key_Escape) << int(QDialog::Rejected);
}

void GroupSelectDialogTest::closesWithButtons()
{
    QFETCH(int, button);
    QFETCH(int, key);
    QFETCH(int, result);

    Dialog dialog;
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
}

void GroupSelectDialogTest::tabFollowsVisualOrder()
{
    Dialog dialog;
    QVERIFY(open(dialog));
    const QStringList order = tabOrder(dialog, dialog.comboBox);
    QCOMPARE(order.mid(0, 3), words("groupFilterComboBox filterLineEdit groupsTreeView"));
    QCOMPARE(order.size(), 5);
    const auto *ok = dialog.buttonBox->button(QDialogButtonBox::Ok);
    const auto *cancel = dialog.buttonBox->button(QDialogButtonBox::Cancel);
    const bool okFirst = ok->mapToGlobal(QPoint()).x() < cancel->mapToGlobal(QPoint()).x();
    QCOMPARE(order.mid(3),
             okFirst ? QStringList({ok->text(), cancel->text()}) : QStringList({cancel->text(), ok->text()}));
}

void GroupSelectDialogTest::namesEverythingForScreenReaders()
{
    Dialog dialog(bob(), words("adam"));
    QVERIFY(open(dialog));
    QCOMPARE(unnamedAccessibles(dialog), QStringList());
}

void GroupSelectDialogTest::worksWithoutGroups()
{
    Sandbox::setAccounts("", "");
    Dialog dialog(bob(), words("adam"));
    QVERIFY(open(dialog));
    QCOMPARE(dialog.selectedGroupNames(), QStringList());
    dialog.comboBox->setCurrentText(text("System"));
    QTest::keyClicks(dialog.lineEdit, text("a"));
    dialog.setSingleSelectionMode(true);
    QCOMPARE(dialog.selectedGroupName(), QString());
}

void GroupSelectDialogTest::handlesTenThousandGroups()
{
    Sandbox::setAccounts(usersFile, manyGroups(10000));
    Dialog dialog(text("group99"), words("group4242 group99"));
    QVERIFY(open(dialog));
    QCOMPARE(dialog.view->model()->rowCount(), 10000);
    QTest::keyClicks(dialog.lineEdit, text("group77"));
    QCOMPARE(dialog.view->model()->rowCount(), 111);
    clickCheckBox(*dialog.view, text("group7777"));
    QCOMPARE(dialog.selectedGroupNames(), words("group99 group4242 group7777"));
    dialog.comboBox->setCurrentText(text("Selected"));
    QCOMPARE(dialog.shownNames(), text("group99 group7777 group4242"));
}

QTEST_MAIN(GroupSelectDialogTest)

#include "groupselectdialogtest.moc"

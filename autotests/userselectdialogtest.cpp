/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "dialogparts.h"
#include "modellog.h"
#include "sandbox.h"

#include <GroupInfo>
#include <UserListModel>
#include <UserSelectDialog>

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
                         "a-system-account-of-a-very-long-name:x:900:50::/:/bin/false\n"
                         "bob:x:1002:50::/home/bob:/bin/sh\n"
                         "adam:x:1000:1000::/home/adam:/bin/sh\n"
                         "Zed:x:1001:1001::/home/zed:/bin/sh\n"
                         "a.b:x:1003:1000::/:/bin/sh\n";

const char groupsFile[] = "root:x:0:\n"
                          "ormel-admin:x:27:bob\n"
                          "staff:x:50:adam\n"
                          "adam:x:1000:\n"
                          "zed:x:1001:\n";

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

GroupInfo staff()
{
    return GroupInfo::getGroup(QStringLiteral("staff"));
}

/** A dialog with its parts at hand. */
struct Dialog : UserSelectDialog {
    using UserSelectDialog::UserSelectDialog;

    QComboBox *comboBox = part<QComboBox>(*this, "userFilterComboBox");
    QLineEdit *lineEdit = part<QLineEdit>(*this, "filterLineEdit");
    QTreeView *view = part<QTreeView>(*this, "usersTreeView");
    QDialogButtonBox *buttonBox = part<QDialogButtonBox>(*this, "buttonBox");
    UserListModel *model = findChild<UserListModel *>();

    QString shownNames() const
    {
        return ::shownNames(*view->model());
    }
};
}

class UserSelectDialogTest : public QObject
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
    void startsWithOrdinaryUsers();

    void filterNarrowsUsers_data();
    void filterNarrowsUsers();
    void filterClearsTextAfterApplying();
    void filterTakesUnknownDataForAll();
    void fitsNameColumnToEachFilter();
    void textNarrowsNames_data();
    void textNarrowsNames();
    void sortsByClickOnHeader();

    void startsInMultipleSelectionMode();
    void singleSelectionHidesCheckBoxes();
    void singleSelectionTakesCurrentUser();
    void singleSelectionFollowsSorting();
    void multipleSelectionTakesCheckedUsers();

    void checksWithMouse();
    void checksWithKeyboard();
    void keepsLockedUsersAsTheyAre();
    void survivesExpandingByKey();

    void acceptsOnDoubleClick();
    void acceptsOnDoubleClickOnPlaceholder();
    void staysOpenOnDoubleClickOutside();
    void acceptsForIndexOfNoUser();
    void closesWithButtons_data();
    void closesWithButtons();

    void tabFollowsVisualOrder();
    void namesEverythingForScreenReaders();
    void worksWithoutUsers();
    void handlesTenThousandUsers();
};

void UserSelectDialogTest::init()
{
    Sandbox::setAccounts(usersFile, groupsFile);
}

void UserSelectDialogTest::registersFilterTypeOnFirstUse()
{
    const Dialog dialog;
    QCOMPARE(QMetaType::type("UserListModel::Filter"), int(QMetaType::UnknownType));
    dialog.comboBox->setCurrentIndex(0);
    QVERIFY(QMetaType::type("UserListModel::Filter") != QMetaType::UnknownType);
}

void UserSelectDialogTest::isPlainDialog()
{
    const QMetaObject &meta = UserSelectDialog::staticMetaObject;
    QCOMPARE(meta.className(), "UserSelectDialog");
    QCOMPARE(meta.superClass(), &QDialog::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset() + 1);
    const QMetaMethod slot = meta.method(meta.methodOffset());
    QCOMPARE(slot.methodSignature(), QByteArray("on_usersTreeView_doubleClicked(QModelIndex)"));
    QCOMPARE(slot.access(), QMetaMethod::Public);
}

void UserSelectDialogTest::laysOutForm()
{
    const Dialog dialog;
    QCOMPARE(dialog.objectName(), text("UserSelectDialog"));
    QCOMPARE(dialog.windowTitle(), text("Select Users"));
    QCOMPARE(dialog.size(), QSize(594, 424));
    QCOMPARE(dialog.windowModality(), Qt::NonModal);

    auto *layout = qobject_cast<QGridLayout *>(dialog.layout());
    QVERIFY(layout);
    QCOMPARE(layout->objectName(), text("gridLayout"));
    QCOMPARE(
        gridCells(*layout),
        lines({"userFilterComboBox 0,0 1x1", "filterLineEdit 0,1 1x1", "usersTreeView 1,0 1x2", "buttonBox 2,0 1x2"}));
}

void UserSelectDialogTest::setsUpWidgets()
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

void UserSelectDialogTest::offersFilters()
{
    const Dialog dialog;
    QCOMPARE(comboBoxEntries(*dialog.comboBox),
             lines({"All int 0",
                    "Ordinary int 1",
                    "System int 2",
                    "Administrators int 3",
                    "Selected int 4",
                    "Unselected int 5"}));
    QCOMPARE(dialog.comboBox->currentText(), text("Ordinary"));
    QVERIFY(!dialog.comboBox->isEditable());
}

void UserSelectDialogTest::ownsItsParts()
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

void UserSelectDialogTest::showsModelThroughProxy()
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

void UserSelectDialogTest::startsWithOrdinaryUsers()
{
    // A tree view that sorts starts with the first column, descending.
    const Dialog all;
    QCOMPARE(rowTexts(*all.view->model()),
             lines({"[ ] bob | 1002 | No", "[ ] adam | 1000 | No", "[ ] a.b | 1003 | No", "[ ] Zed | 1001 | No"}));
    QCOMPARE(all.selectedUserNames(), QStringList());

    const Dialog members(staff(), words("adam root"));
    QCOMPARE(rowTexts(*members.view->model()),
             lines({"[ ] bob | 1002 | No", "[x] adam | 1000 | No", "[ ] a.b | 1003 | No", "[ ] Zed | 1001 | No"}));
    QCOMPARE(members.selectedUserNames(), words("adam root"));
    QCOMPARE(viewIndex(*members.view, text("bob")).flags(), Qt::NoItemFlags);
}

void UserSelectDialogTest::filterNarrowsUsers_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<int>("filter");
    QTest::addColumn<QString>("shown");

    const QString longName = text("a-system-account-of-a-very-long-name");
    QTest::newRow("All") << text("All") << 0 << QStringLiteral("root bob adam a.b %1 Zed").arg(longName);
    QTest::newRow("System") << text("System") << 2 << QStringLiteral("root %1").arg(longName);
    QTest::newRow("Administrators") << text("Administrators") << 3 << text("bob");
    QTest::newRow("Selected") << text("Selected") << 4 << text("root adam");
    QTest::newRow("Unselected") << text("Unselected") << 5 << QStringLiteral("bob a.b %1 Zed").arg(longName);
}

void UserSelectDialogTest::filterNarrowsUsers()
{
    QFETCH(QString, entry);
    QFETCH(int, filter);
    QFETCH(QString, shown);

    const Dialog dialog(staff(), words("adam root"));
    dialog.comboBox->setCurrentText(entry);
    QCOMPARE(dialog.model->filter(), filter);
    QCOMPARE(dialog.shownNames(), shown);

    dialog.comboBox->setCurrentText(text("Ordinary"));
    QCOMPARE(dialog.shownNames(), text("bob adam a.b Zed"));
}

void UserSelectDialogTest::filterClearsTextAfterApplying()
{
    const Dialog dialog;
    dialog.lineEdit->setText(text("b"));
    QCOMPARE(dialog.shownNames(), text("bob a.b"));

    QStringList events;
    connect(dialog.model, &UserListModel::modelReset, this, [&events] { events.append(text("filter")); });
    connect(dialog.lineEdit, &QLineEdit::textChanged, this, [&events] { events.append(text("text")); });
    dialog.comboBox->setCurrentIndex(2);
    QCOMPARE(dialog.lineEdit->text(), QString());
    QCOMPARE(events, words("filter text"));
    QCOMPARE(dialog.view->model()->rowCount(), 2);
}

void UserSelectDialogTest::filterTakesUnknownDataForAll()
{
    const Dialog dialog;
    dialog.comboBox->addItem(text("?"), text("no number"));
    dialog.comboBox->setCurrentIndex(6);
    QCOMPARE(dialog.model->filter(), UserListModel::All);
    dialog.comboBox->setCurrentIndex(-1);
    QCOMPARE(dialog.model->filter(), UserListModel::All);
}

void UserSelectDialogTest::fitsNameColumnToEachFilter()
{
    const Dialog dialog;
    const int first = dialog.view->columnWidth(0);
    dialog.comboBox->setCurrentText(text("System"));
    const int system = dialog.view->columnWidth(0);
    QVERIFY(system >= dialog.fontMetrics().horizontalAdvance(text("a-system-account-of-a-very-long-name")));
    QVERIFY(system > first);
    dialog.comboBox->setCurrentText(text("Ordinary"));
    QCOMPARE(dialog.view->columnWidth(0), first);
    QCOMPARE(dialog.view->columnWidth(1), dialog.view->header()->defaultSectionSize());
}

void UserSelectDialogTest::textNarrowsNames_data()
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

void UserSelectDialogTest::textNarrowsNames()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);

    Dialog dialog;
    QVERIFY(open(dialog));
    QTest::keyClicks(dialog.lineEdit, typed);
    QCOMPARE(dialog.shownNames(), shown);
    dialog.lineEdit->clear();
    QCOMPARE(dialog.shownNames(), text("bob adam a.b Zed"));
}

void UserSelectDialogTest::sortsByClickOnHeader()
{
    Dialog dialog;
    dialog.comboBox->setCurrentText(text("All"));
    QVERIFY(open(dialog));
    const QHeaderView *header = dialog.view->header();
    const int x = header->sectionViewportPosition(1) + header->sectionSize(1) / 2;
    const auto clickUid = [&] {
        QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(x, header->height() / 2));
    };

    // As numbers, not as texts.
    clickUid();
    const QString ascending = text("root a-system-account-of-a-very-long-name adam Zed bob a.b");
    if (dialog.shownNames() != ascending) {
        clickUid();
    }
    QCOMPARE(dialog.shownNames(), ascending);
}

void UserSelectDialogTest::startsInMultipleSelectionMode()
{
    const Dialog dialog(staff(), {});
    QVERIFY(!dialog.singleSelectionMode());
    QVERIFY(dialog.model->isSelectable());
    QCOMPARE(dialog.selectedUserName(), QString());
    QCOMPARE(dialog.selectedUserNames(), QStringList());
    QCOMPARE(dialog.activatedUserName(), QString());
}

void UserSelectDialogTest::singleSelectionHidesCheckBoxes()
{
    Dialog dialog(staff(), words("adam"));
    dialog.setSingleSelectionMode(true);
    QVERIFY(dialog.singleSelectionMode());
    QVERIFY(!dialog.model->isSelectable());
    QCOMPARE(rowText(*dialog.view->model(), 1), text("adam | 1000 | No"));
    QCOMPARE(dialog.view->selectionMode(), QAbstractItemView::ExtendedSelection);

    dialog.setSingleSelectionMode(false);
    QVERIFY(!dialog.singleSelectionMode());
    QCOMPARE(rowText(*dialog.view->model(), 1), text("[x] adam | 1000 | No"));
}

void UserSelectDialogTest::singleSelectionTakesCurrentUser()
{
    Dialog dialog(staff(), words("Zed"));
    dialog.setSingleSelectionMode(true);
    QCOMPARE(dialog.selectedUserName(), QString());
    QCOMPARE(dialog.selectedUserNames(), QStringList(QString()));

    QVERIFY(open(dialog));
    clickText(*dialog.view, text("adam"));
    QCOMPARE(dialog.selectedUserName(), text("adam"));
    QCOMPARE(dialog.selectedUserNames(), words("adam"));
}

void UserSelectDialogTest::singleSelectionFollowsSorting()
{
    Dialog dialog;
    dialog.setSingleSelectionMode(true);
    dialog.view->setCurrentIndex(viewIndex(*dialog.view, text("adam")).siblingAtColumn(2));
    QCOMPARE(dialog.selectedUserName(), text("adam"));
    dialog.view->sortByColumn(1, Qt::AscendingOrder);
    QCOMPARE(dialog.view->currentIndex().row(), 0);
    QCOMPARE(dialog.selectedUserName(), text("adam"));
}

void UserSelectDialogTest::multipleSelectionTakesCheckedUsers()
{
    const Dialog dialog(staff(), words("root adam Zed"));
    dialog.view->setCurrentIndex(viewIndex(*dialog.view, text("a.b")));
    QCOMPARE(dialog.selectedUserName(), text("Zed"));
    QCOMPARE(dialog.selectedUserNames(), words("Zed adam root"));
}

void UserSelectDialogTest::checksWithMouse()
{
    Dialog dialog(staff(), {});
    QVERIFY(open(dialog));
    clickCheckBox(*dialog.view, text("adam"));
    QCOMPARE(dialog.selectedUserNames(), words("adam"));
    clickCheckBox(*dialog.view, text("Zed"));
    QCOMPARE(dialog.selectedUserNames(), words("Zed adam"));
    clickCheckBox(*dialog.view, text("adam"));
    QCOMPARE(dialog.selectedUserNames(), words("Zed"));
    clickText(*dialog.view, text("adam"));
    QCOMPARE(dialog.selectedUserNames(), words("Zed"));
}

void UserSelectDialogTest::checksWithKeyboard()
{
    Dialog dialog(staff(), {});
    QVERIFY(open(dialog));
    dialog.view->setFocus();
    dialog.view->setCurrentIndex(viewIndex(*dialog.view, text("adam")));
    QTest::keyClick(dialog.view, Qt::Key_Space);
    QCOMPARE(dialog.selectedUserNames(), words("adam"));
    QTest::keyClick(dialog.view, Qt::Key_Down);
    QTest::keyClick(dialog.view, Qt::Key_Space);
    QCOMPARE(dialog.selectedUserNames(), words("a.b adam"));
    QTest::keyClick(dialog.view, Qt::Key_Space);
    QCOMPARE(dialog.selectedUserNames(), words("adam"));
}

void UserSelectDialogTest::keepsLockedUsersAsTheyAre()
{
    Dialog dialog(staff(), words("bob"));
    QVERIFY(open(dialog));
    clickCheckBox(*dialog.view, text("bob"));
    QCOMPARE(dialog.selectedUserNames(), words("bob"));

    dialog.view->setFocus();
    dialog.view->setCurrentIndex(viewIndex(*dialog.view, text("bob")));
    QTest::keyClick(dialog.view, Qt::Key_Space);
    QCOMPARE(dialog.selectedUserNames(), words("bob"));

    // The view reports a double click on a disabled row, too.
    doubleClickText(*dialog.view, text("bob"));
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.activatedUserName(), text("bob"));
    QCOMPARE(dialog.selectedUserNames(), words("bob"));
}

void UserSelectDialogTest::survivesExpandingByKey()
{
    Dialog dialog;
    QVERIFY(open(dialog));
    const QModelIndex first = dialog.view->model()->index(0, 0);
    QVERIFY(!dialog.view->model()->hasChildren(first));
    QCOMPARE(dialog.view->model()->rowCount(first), 0);

    dialog.view->setCurrentIndex(first);
    QTest::keyClick(dialog.view, Qt::Key_Asterisk);
    QCOMPARE(dialog.shownNames(), text("bob adam a.b Zed"));
}

void UserSelectDialogTest::acceptsOnDoubleClick()
{
    Dialog dialog(staff(), words("Zed"));
    QVERIFY(open(dialog));
    doubleClickText(*dialog.view, text("adam"));
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.activatedUserName(), text("adam"));
    QCOMPARE(dialog.selectedUserNames(), words("Zed"));
}

void UserSelectDialogTest::acceptsOnDoubleClickOnPlaceholder()
{
    Dialog dialog;
    dialog.model->setNewUserName(text("carol"));
    QVERIFY(open(dialog));
    doubleClickText(*dialog.view, text("adam"));
    QCOMPARE(dialog.activatedUserName(), text("adam"));

    QVERIFY(open(dialog));
    dialog.setResult(QDialog::Rejected);
    doubleClickText(*dialog.view, text("carol"));
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    // The record of the row is there, with an empty name.
    QCOMPARE(dialog.activatedUserName(), QString());
}

void UserSelectDialogTest::staysOpenOnDoubleClickOutside()
{
    Dialog dialog;
    QVERIFY(open(dialog));
    const QPoint below(10, dialog.view->viewport()->height() - 5);
    QVERIFY(!dialog.view->indexAt(below).isValid());
    QTest::mouseDClick(dialog.view->viewport(), Qt::LeftButton, Qt::NoModifier, below);
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.activatedUserName(), QString());
}

void UserSelectDialogTest::acceptsForIndexOfNoUser()
{
    Dialog dialog;
    QVERIFY(open(dialog));
    doubleClickText(*dialog.view, text("adam"));

    QVERIFY(open(dialog));
    dialog.setResult(QDialog::Rejected);
    dialog.on_usersTreeView_doubleClicked(QModelIndex());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.activatedUserName(), text("adam"));
}

void UserSelectDialogTest::closesWithButtons_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("result");

    QTest::newRow("Ok") << int(QDialogButtonBox::Ok) << 0 << int(QDialog::Accepted);
    QTest::newRow("Cancel") << int(QDialogButtonBox::Cancel) << 0 << int(QDialog::Rejected);
    QTest::newRow("return key") << 0 << int(Qt::Key_Return) << int(QDialog::Accepted);
    QTest::newRow("escape key") << 0 << int(Qt::Key_Escape) << int(QDialog::Rejected);
}

void UserSelectDialogTest::closesWithButtons()
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

void UserSelectDialogTest::tabFollowsVisualOrder()
{
    Dialog dialog;
    QVERIFY(open(dialog));
    const QStringList order = tabOrder(dialog, dialog.comboBox);
    QCOMPARE(order.mid(0, 3), words("userFilterComboBox filterLineEdit usersTreeView"));
    QCOMPARE(order.size(), 5);
    const auto *ok = dialog.buttonBox->button(QDialogButtonBox::Ok);
    const auto *cancel = dialog.buttonBox->button(QDialogButtonBox::Cancel);
    const bool okFirst = ok->mapToGlobal(QPoint()).x() < cancel->mapToGlobal(QPoint()).x();
    QCOMPARE(order.mid(3),
             okFirst ? QStringList({ok->text(), cancel->text()}) : QStringList({cancel->text(), ok->text()}));
}

void UserSelectDialogTest::namesEverythingForScreenReaders()
{
    Dialog dialog(staff(), words("adam"));
    QVERIFY(open(dialog));
    QCOMPARE(unnamedAccessibles(dialog), QStringList());
}

void UserSelectDialogTest::worksWithoutUsers()
{
    Sandbox::setAccounts("", "");
    Dialog dialog(GroupInfo(), words("adam"));
    QVERIFY(open(dialog));
    QCOMPARE(dialog.selectedUserNames(), QStringList());
    dialog.comboBox->setCurrentText(text("All"));
    QTest::keyClicks(dialog.lineEdit, text("a"));
    dialog.setSingleSelectionMode(true);
    QCOMPARE(dialog.selectedUserName(), QString());
}

void UserSelectDialogTest::handlesTenThousandUsers()
{
    Sandbox::setAccounts(manyUsers(10000), groupsFile);
    Dialog dialog(GroupInfo(), words("user4242"));
    QVERIFY(open(dialog));
    QCOMPARE(dialog.view->model()->rowCount(), 10000);
    QTest::keyClicks(dialog.lineEdit, text("user77"));
    QCOMPARE(dialog.view->model()->rowCount(), 111);
    clickCheckBox(*dialog.view, text("user7777"));
    QCOMPARE(dialog.selectedUserNames(), words("user4242 user7777"));
    dialog.comboBox->setCurrentText(text("Selected"));
    QCOMPARE(dialog.shownNames(), text("user7777 user4242"));
}

QTEST_MAIN(UserSelectDialogTest)

#include "userselectdialogtest.moc"

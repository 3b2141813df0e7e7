/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "bothkinds.h"
#include "dialogparts.h"

#include <GroupSelectDialog>
#include <UserSelectDialog>

#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTreeView>

namespace
{
QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

struct PickedUsers : Users {
    using Dialog = UserSelectDialog;
    static constexpr char comboBox[] = "userFilterComboBox";
    static constexpr char view[] = "usersTreeView";

    static QString selectedName(const Dialog &dialog)
    {
        return dialog.selectedUserName();
    }

    static QString activatedName(const Dialog &dialog)
    {
        return dialog.activatedUserName();
    }
};

struct PickedGroups : Groups {
    using Dialog = GroupSelectDialog;
    static constexpr char comboBox[] = "groupFilterComboBox";
    static constexpr char view[] = "groupsTreeView";

    static QString selectedName(const Dialog &dialog)
    {
        return dialog.selectedGroupName();
    }

    static QString activatedName(const Dialog &dialog)
    {
        return dialog.activatedGroupName();
    }
};

/** A dialog with its parts at hand. */
template<typename Kind>
struct DialogOf : Kind::Dialog {
    QComboBox *comboBox = part<QComboBox>(*this, Kind::comboBox);
    QLineEdit *lineEdit = part<QLineEdit>(*this, "filterLineEdit");
    QTreeView *view = part<QTreeView>(*this, Kind::view);
    typename Kind::Model *model = this->template findChild<typename Kind::Model *>();
};

template<typename Test>
void withDialog(const Test &test)
{
    withKind<PickedUsers, PickedGroups>([&test](auto kind) {
        DialogOf<decltype(kind)> dialog;
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

    void knowsActivatedNameWhenAccepted();
    void takesCurrentRowRatherThanSelectedOnes();
    void knowsSingleSelectionWhenReset();
    void fitsNameColumnBeforeClearingText();
    void keepsTextWhenFilterIsChosenAgain();
};

void SelectDialogsTest::initTestCase_data()
{
    addBothKinds();
}

void SelectDialogsTest::init()
{
    setUsersAndGroups(
        {{"ormel-admin", 27}, {"a-system-account-of-a-very-long-name", 900}, {"adam", 1000}, {"bob", 1001}});
}

void SelectDialogsTest::knowsActivatedNameWhenAccepted()
{
    withDialog([this](auto kind, auto &dialog) {
        QStringList names;
        connect(&dialog, &QDialog::accepted, this, [&] { names.append(decltype(kind)::activatedName(dialog)); });
        QVERIFY(open(dialog));
        doubleClickText(*dialog.view, text("adam"));
        QCOMPARE(names, QStringList(text("adam")));
    });
}

void SelectDialogsTest::takesCurrentRowRatherThanSelectedOnes()
{
    withDialog([](auto kind, auto &dialog) {
        dialog.setSingleSelectionMode(true);
        QItemSelectionModel *selection = dialog.view->selectionModel();
        dialog.view->setCurrentIndex(viewIndex(*dialog.view, text("bob")));
        selection->setCurrentIndex(viewIndex(*dialog.view, text("adam")), QItemSelectionModel::NoUpdate);
        QCOMPARE(selection->selectedRows().value(0).data().toString(), text("bob"));
        QCOMPARE(decltype(kind)::selectedName(dialog), text("adam"));
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

QTEST_MAIN(SelectDialogsTest)

#include "selectdialogstest.moc"

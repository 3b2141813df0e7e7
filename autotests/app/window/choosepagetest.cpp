/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "choosepage.h"
#include "dialogparts.h"
#include "pageparts.h"
#include "sandbox.h"
#include "standin.h"

#include <GroupSelectDialog>
#include <UserSelectDialog>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include <cstdio>

#include <grp.h>
#include <pwd.h>

namespace
{
/** What was asked of the C library, and what of that without the wait cursor. */
struct Questions {
    QStringList all;
    QStringList unexpected;
};

Questions *s_questions = nullptr;

void note(const char *question)
{
    if (!s_questions) {
        return;
    }
    s_questions->all.append(QString::fromLatin1(question));
    if (!isCursorShown(Qt::WaitCursor)) {
        s_questions->unexpected.append(s_questions->all.constLast());
    }
}
}

extern "C" Q_DECL_EXPORT FILE *fopen(const char *path, const char *mode)
{
    static const auto next = original(fopen, "fopen");
    note(path);
    return next(path, mode);
}

extern "C" Q_DECL_EXPORT passwd *getpwnam(const char *name)
{
    static const auto next = original(getpwnam, "getpwnam");
    note(name);
    return next(name);
}

extern "C" Q_DECL_EXPORT group *getgrnam(const char *name)
{
    static const auto next = original(getgrnam, "getgrnam");
    note(name);
    return next(name);
}

namespace
{
const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                         "alice:x:1000:1000::/home/alice:/bin/sh\n"
                         "bob:x:1001:50::/home/bob:/bin/sh\n"
                         "carol:x:1002:1002::/home/carol:/bin/sh\n";

const char groupsFile[] = "root:x:0:\n"
                          "ormel-admin:x:27:\n"
                          "staff:x:50:alice\n"
                          "video:x:44:alice\n"
                          "alice:x:1000:\n";

/** What makes a dialog end. */
void press(const QDialog &dialog, QDialogButtonBox::StandardButton button)
{
    part<QDialogButtonBox>(dialog, "buttonBox")->button(button)->click();
}

/** One half of the page with its parts at hand. */
struct Box {
    Box(const ChoosePage &page, const char *name)
        : widget(part<QWidget>(page, name))
    {
    }

    QWidget *widget;
    QLineEdit *name = part<QLineEdit>(*widget, "nameEdit");
    QLabel *note = part<QLabel>(*widget, "nameEditNote");
    QPushButton *nameButton = part<QPushButton>(*widget, "nameButton");
    QPushButton *severalButton = part<QPushButton>(*widget, "severalButton");
    QPlainTextEdit *chosen = part<QPlainTextEdit>(*widget, "chosenEdit");
};

struct Page : ChoosePage {
    Box group = Box(*this, "groupBox");
    Box user = Box(*this, "userBox");

    bool open()
    {
        show();
        return QTest::qWaitForWindowActive(this);
    }
};

QTreeView *view(const UserSelectDialog &dialog)
{
    return part<QTreeView>(dialog, "usersTreeView");
}

QTreeView *view(const GroupSelectDialog &dialog)
{
    return part<QTreeView>(dialog, "groupsTreeView");
}
}

class ChoosePageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void startsWithNothingChosen();
    void choosesOneGroup();
    void choosesOneUser();
    void keepsNameOnCancel();
    void choosesMembers();
    void choosesGroups();
    void choosesAmongAllWithoutName();
    void keepsChoiceOnCancel();
    void tellsEmptyChoice();
    void tellsUnknownNames();
    void showsWaitCursorWhileReading();

    void leadsToEverythingByKeyboard();
    void namesEverythingForScreenReaders();
};

void ChoosePageTest::init()
{
    Sandbox::setAccounts(usersFile, groupsFile);
}

void ChoosePageTest::startsWithNothingChosen()
{
    const Page page;
    QCOMPARE(page.group.chosen->toPlainText(), QStringLiteral("No users chosen."));
    QCOMPARE(page.user.chosen->toPlainText(), QStringLiteral("No groups chosen."));
    QVERIFY(page.group.chosen->isReadOnly());
    QVERIFY(page.user.chosen->isReadOnly());
}

void ChoosePageTest::choosesOneGroup()
{
    Page page;
    QVERIFY(page.open());
    QVERIFY(withDialog<GroupSelectDialog>(*page.group.nameButton, [](GroupSelectDialog &dialog) {
        QVERIFY(dialog.singleSelectionMode());
        clickText(*view(dialog), QStringLiteral("video"));
        press(dialog, QDialogButtonBox::Ok);
    }));
    QCOMPARE(page.group.name->text(), QStringLiteral("video"));
    QVERIFY(withDialog<GroupSelectDialog>(*page.group.nameButton, [](GroupSelectDialog &dialog) {
        doubleClickText(*view(dialog), QStringLiteral("staff"));
    }));
    QCOMPARE(page.group.name->text(), QStringLiteral("staff"));
}

void ChoosePageTest::choosesOneUser()
{
    Page page;
    QVERIFY(page.open());
    QVERIFY(withDialog<UserSelectDialog>(*page.user.nameButton, [](UserSelectDialog &dialog) {
        QVERIFY(dialog.singleSelectionMode());
        clickText(*view(dialog), QStringLiteral("bob"));
        press(dialog, QDialogButtonBox::Ok);
    }));
    QCOMPARE(page.user.name->text(), QStringLiteral("bob"));
}

void ChoosePageTest::keepsNameOnCancel()
{
    Page page;
    QVERIFY(page.open());
    page.group.name->setText(QStringLiteral("staff"));
    QVERIFY(withDialog<GroupSelectDialog>(*page.group.nameButton, [](GroupSelectDialog &dialog) {
        clickText(*view(dialog), QStringLiteral("video"));
        press(dialog, QDialogButtonBox::Cancel);
    }));
    QCOMPARE(page.group.name->text(), QStringLiteral("staff"));
    page.user.name->setText(QStringLiteral("alice"));
    QVERIFY(withDialog<UserSelectDialog>(*page.user.nameButton, [](UserSelectDialog &dialog) {
        clickText(*view(dialog), QStringLiteral("bob"));
        press(dialog, QDialogButtonBox::Cancel);
    }));
    QCOMPARE(page.user.name->text(), QStringLiteral("alice"));
}

void ChoosePageTest::choosesMembers()
{
    Page page;
    QVERIFY(page.open());
    QTest::keyClicks(page.group.name, QStringLiteral("staff"));
    QVERIFY(withDialog<UserSelectDialog>(*page.group.severalButton, [](UserSelectDialog &dialog) {
        QVERIFY(!dialog.singleSelectionMode());
        QCOMPARE(dialog.selectedUserNames(), QStringList({QStringLiteral("alice"), QStringLiteral("bob")}));
        clickCheckBox(*view(dialog), QStringLiteral("alice"));
        clickCheckBox(*view(dialog), QStringLiteral("bob")); // whose primary group it is
        clickCheckBox(*view(dialog), QStringLiteral("carol"));
        press(dialog, QDialogButtonBox::Ok);
    }));
    QCOMPARE(page.group.chosen->toPlainText(), QStringLiteral("2 users: bob, carol"));
    QTest::keyClicks(page.group.name, QStringLiteral("s"));
    QCOMPARE(page.group.chosen->toPlainText(), QStringLiteral("No users chosen."));
}

void ChoosePageTest::choosesGroups()
{
    Page page;
    QVERIFY(page.open());
    QTest::keyClicks(page.user.name, QStringLiteral("alice"));
    QVERIFY(withDialog<GroupSelectDialog>(*page.user.severalButton, [](GroupSelectDialog &dialog) {
        QVERIFY(!dialog.singleSelectionMode());
        clickCheckBox(*view(dialog), QStringLiteral("alice")); // the user's own
        clickCheckBox(*view(dialog), QStringLiteral("video"));
        clickCheckBox(*view(dialog), QStringLiteral("root"));
        press(dialog, QDialogButtonBox::Ok);
    }));
    QCOMPARE(page.user.chosen->toPlainText(), QStringLiteral("3 groups: alice, root, staff"));
    page.user.name->clear();
    QCOMPARE(page.user.chosen->toPlainText(), QStringLiteral("No groups chosen."));
}

void ChoosePageTest::choosesAmongAllWithoutName()
{
    Page page;
    QVERIFY(page.open());
    QVERIFY(withDialog<UserSelectDialog>(*page.group.severalButton, [](UserSelectDialog &dialog) {
        QCOMPARE(dialog.selectedUserNames(), QStringList());
        clickCheckBox(*view(dialog), QStringLiteral("bob"));
        press(dialog, QDialogButtonBox::Ok);
    }));
    QCOMPARE(page.group.chosen->toPlainText(), QStringLiteral("1 user: bob"));
    QVERIFY(withDialog<GroupSelectDialog>(*page.user.severalButton, [](GroupSelectDialog &dialog) {
        QCOMPARE(dialog.selectedGroupNames(), QStringList());
        clickCheckBox(*view(dialog), QStringLiteral("alice"));
        press(dialog, QDialogButtonBox::Ok);
    }));
    QCOMPARE(page.user.chosen->toPlainText(), QStringLiteral("1 group: alice"));
}

void ChoosePageTest::keepsChoiceOnCancel()
{
    Page page;
    QVERIFY(page.open());
    page.group.name->setText(QStringLiteral("staff"));
    QVERIFY(withDialog<UserSelectDialog>(*page.group.severalButton,
                                         [](UserSelectDialog &dialog) { press(dialog, QDialogButtonBox::Cancel); }));
    QCOMPARE(page.group.chosen->toPlainText(), QStringLiteral("No users chosen."));
    page.user.name->setText(QStringLiteral("alice"));
    QVERIFY(withDialog<GroupSelectDialog>(*page.user.severalButton,
                                          [](GroupSelectDialog &dialog) { press(dialog, QDialogButtonBox::Cancel); }));
    QCOMPARE(page.user.chosen->toPlainText(), QStringLiteral("No groups chosen."));
}

void ChoosePageTest::tellsEmptyChoice()
{
    Page page;
    QVERIFY(page.open());
    page.group.name->setText(QStringLiteral("video"));
    const auto accept = [](UserSelectDialog &dialog) { press(dialog, QDialogButtonBox::Ok); };
    QVERIFY(withDialog<UserSelectDialog>(*page.group.severalButton, accept));
    QCOMPARE(page.group.chosen->toPlainText(), QStringLiteral("1 user: alice"));
    QVERIFY(withDialog<UserSelectDialog>(*page.group.severalButton, [](UserSelectDialog &dialog) {
        clickCheckBox(*view(dialog), QStringLiteral("alice"));
        press(dialog, QDialogButtonBox::Ok);
    }));
    QCOMPARE(page.group.chosen->toPlainText(), QStringLiteral("No users chosen."));
}

void ChoosePageTest::tellsUnknownNames()
{
    Page page;
    QVERIFY(page.open());
    QVERIFY(!page.group.note->isVisible() && !page.user.note->isVisible());
    page.group.name->setText(QStringLiteral("<b>"));
    const auto nothing = [](QDialog &) {};
    QVERIFY(!withDialog<QDialog>(*page.group.severalButton, nothing));
    QVERIFY(page.group.note->isVisible());
    QCOMPARE(page.group.note->text(), QStringLiteral("There is no group '<b>'."));
    QCOMPARE(page.group.note->textFormat(), Qt::PlainText);
    QTest::keyClicks(page.group.name, QStringLiteral("x"));
    QVERIFY(!page.group.note->isVisible());

    page.user.name->setText(QStringLiteral("nobody-else"));
    QVERIFY(!withDialog<QDialog>(*page.user.severalButton, nothing));
    QVERIFY(page.user.note->isVisible());
    QCOMPARE(page.user.note->text(), QStringLiteral("There is no user 'nobody-else'."));
}

void ChoosePageTest::showsWaitCursorWhileReading()
{
    Page page;
    QVERIFY(page.open());
    page.group.name->setText(QStringLiteral("staff"));
    page.user.name->setText(QStringLiteral("alice"));
    const struct {
        QPushButton *button;
        const char *firstQuestion;
    } buttons[] = {
        {page.group.severalButton, "staff"},
        {page.user.severalButton, "alice"},
        {page.group.nameButton, "/etc/group"},
        {page.user.nameButton, "/etc/passwd"},
    };
    for (const auto &[button, firstQuestion] : buttons) {
        Questions questions;
        s_questions = &questions;
        const bool opened = withDialog<QDialog>(*button, [](QDialog &dialog) { dialog.reject(); });
        s_questions = nullptr;
        QVERIFY(opened);
        QCOMPARE(questions.all.value(0), QString::fromLatin1(firstQuestion));
        QCOMPARE(questions.unexpected, QStringList());
        QVERIFY(!QApplication::overrideCursor());
    }
}

void ChoosePageTest::leadsToEverythingByKeyboard()
{
    Page page;
    QVERIFY(page.open());
    const QList<QWidget *> ordered{
        page.group.name,
        page.group.nameButton,
        page.group.severalButton,
        page.group.chosen,
        page.user.name,
        page.user.nameButton,
        page.user.severalButton,
        page.user.chosen,
    };
    page.group.name->setFocus();
    for (const QWidget *widget : ordered) {
        QCOMPARE(page.focusWidget(), widget);
        QTest::keyClick(page.focusWidget(), Qt::Key_Tab);
    }
    QStringList keys = mnemonics(page);
    QCOMPARE(keys.size(), 8);
    QCOMPARE(keys.removeDuplicates(), 0);
}

void ChoosePageTest::namesEverythingForScreenReaders()
{
    Page page;
    QVERIFY(page.open());
    QCOMPARE(unnamedAccessibles(page).join(QLatin1Char(' ')), QString());
}

QTEST_MAIN(ChoosePageTest)

#include "choosepagetest.moc"

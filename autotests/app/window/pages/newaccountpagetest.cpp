/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "newaccountpageparts.h"
#include "pageparts.h"
#include "patience.h"
#include "sandbox.h"
#include "windowparts.h"

#include <GroupSelectDialog>
#include <UserIconDialog>

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

using namespace NewAccountParts;

namespace
{
/** The expression of a rule, which stands apart from the text around it. */
QString hasToMatch(const char *word, const char *expression)
{
    return QStringLiteral("%1: the whole text has to match \u2066%2\u2069")
        .arg(QLatin1String(word), QLatin1String(expression));
}

/** Whether the commands are below the form, and not beside it. */
bool isStacked(const QWidget &page)
{
    const int commands = part<QLabel>(page, "commandsHeading")->mapTo(&page, QPoint()).y();
    return commands >= part<QScrollArea>(page, "newAccount")->geometry().bottom();
}
}

class NewAccountPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void usesWholeWidth();
    void saysWhatIsWrong_data();
    void saysWhatIsWrong();
    void tellsUnfinishedName();
    void readsRulesAgain();
    void tellsThatNameIsTaken();
    void keepsLabelsBesideTheirFields();

    void showsStockPicture();
    void showsPictureThatIsChosen();
    void keepsPictureWhenNoneIsChosen();
    void showsGroupsThatAreChosen();
    void locksGroupOfNewUser();

    void leadsToEverythingByKeyboard();
    void namesEverythingForScreenReaders();
    void stacksItsPartsInLittleRoom();
    void stacksItsPartsForCommands();
    void stacksItsPartsForLines();
};

void NewAccountPageTest::init()
{
    Sandbox::setAccounts(existingUsers, existingGroups);
    Sandbox::remove(QStringLiteral("/etc/adduser.conf"));
    Sandbox::clear(facesPath());
}

void NewAccountPageTest::usesWholeWidth()
{
    Page page;
    QVERIFY(page.open());
    const auto *box = page.findChild<QGroupBox *>();
    QVERIFY(box);
    QCOMPARE(box->geometry().left(), 0);
    QCOMPARE(box->width(), box->parentWidget()->width());
}

void NewAccountPageTest::saysWhatIsWrong_data()
{
    QTest::addColumn<QString>("edit");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("note");

    const auto add = [](const char *edit, const QString &text, const QString &note) {
        QTest::addRow("%s '%s'", edit, qPrintable(text)) << QString::fromLatin1(edit) << text << note;
    };
    const auto letters = [](int count) { return QStringLiteral("a").repeated(count); };
    const QString userRule = QStringLiteral(
        "rejected: a user name begins with a lowercase letter; lowercase letters, digits, '_' and '-' may follow");
    const QString groupRule = QStringLiteral("rejected: a group name begins with a lowercase letter or '_'; lowercase "
                                             "letters, digits, '_' and '-' may follow, and '$' at the end");
    const QString tooLong = QStringLiteral("rejected: a name has at most 32 characters");
    const QString commas = QStringLiteral("rejected: commas separate these fields");

    add("userNameEdit", QStringLiteral("user1"), QString());
    add("userNameEdit", QStringLiteral("User"), userRule);
    add("userNameEdit", QStringLiteral("user$"), userRule);
    add("userNameEdit", letters(32), QString());
    add("userNameEdit", letters(33), tooLong);
    add("groupNameEdit", QStringLiteral("machine$"), QString());
    add("groupNameEdit", QStringLiteral("1grp"), groupRule);
    add("groupNameEdit", letters(33), tooLong);
    for (const char *edit : {"fullNameEdit", "roomEdit", "workPhoneEdit", "homePhoneEdit", "otherEdit"}) {
        add(edit, QStringLiteral("12, Main Street"), commas);
        add(edit, QStringLiteral("12 Main Street ") + letters(33), QString());
        add(edit, QStringLiteral("a:b"), QStringLiteral("rejected: a colon separates the fields of /etc/passwd"));
    }
    add("fullNameEdit", QStringLiteral("a=b"), QStringLiteral("rejected: chfn does not accept an equals sign"));
    add("otherEdit", QStringLiteral("a=b"), QString());
    const QString noUid = QStringLiteral("rejected: a UID is a number up to 4294967294");
    const QString system = QStringLiteral("This UID makes it a system account.");
    add("uidEdit", QStringLiteral("1002"), QString());
    add("uidEdit", QStringLiteral("4294967294"), QString());
    add("uidEdit", QStringLiteral("4294967295"), noUid);
    add("uidEdit", QStringLiteral("-1"), noUid);
    add("uidEdit", QStringLiteral("1e3"), noUid);
    add("uidEdit", QStringLiteral("999"), system);
    add("uidEdit", QStringLiteral("65534"), system);
}

void NewAccountPageTest::saysWhatIsWrong()
{
    QFETCH(QString, edit);
    QFETCH(QString, text);
    QFETCH(QString, note);

    Page page;
    QVERIFY(page.open());
    auto *lineEdit = part<QLineEdit>(page, qPrintable(edit));
    QCOMPARE(page.shownNote(edit), QString());
    QTest::keyClicks(lineEdit, text);
    QCOMPARE(lineEdit->text(), text);
    QCOMPARE(page.shownNote(edit), note);
    QCOMPARE(lineEdit->accessibleDescription(), note);

    lineEdit->selectAll();
    QTest::keyClick(lineEdit, Qt::Key_Delete);
    QCOMPARE(page.shownNote(edit), QString());
    QCOMPARE(lineEdit->accessibleDescription(), QString());
}

void NewAccountPageTest::tellsUnfinishedName()
{
    Sandbox::write(QStringLiteral("/etc/adduser.conf"), "NAME_REGEX=\"[a-z]+-[0-9]\"\n");
    Page page;
    QVERIFY(page.open());
    QTest::keyClicks(page.userName, QStringLiteral("user"));
    QCOMPARE(page.shownNote(QStringLiteral("userNameEdit")), hasToMatch("unfinished", "[a-z]+-[0-9]"));
    QTest::keyClicks(page.userName, QStringLiteral("-1"));
    QCOMPARE(page.shownNote(QStringLiteral("userNameEdit")), QString());
}

void NewAccountPageTest::readsRulesAgain()
{
    Page page;
    QVERIFY(page.open());
    QTest::keyClicks(page.userName, QStringLiteral("user"));
    QCOMPARE(page.shownNote(QStringLiteral("userNameEdit")), QString());
    Sandbox::write(QStringLiteral("/etc/adduser.conf"), "NAME_REGEX=\"[0-9]+\"\n");
    QVERIFY(readAccounts(page.store));
    QCOMPARE(page.shownNote(QStringLiteral("userNameEdit")), hasToMatch("rejected", "[0-9]+"));
    QTest::keyClick(page.userName, Qt::Key_Backspace);
    QCOMPARE(page.shownNote(QStringLiteral("userNameEdit")), hasToMatch("rejected", "[0-9]+"));
}

void NewAccountPageTest::tellsThatNameIsTaken()
{
    Page page;
    QVERIFY(page.open());
    QTest::keyClicks(page.userName, QStringLiteral("alice"));
    QCOMPARE(page.shownNote(QStringLiteral("userNameEdit")), QString());
    QVERIFY(readAccounts(page.store));
    QCOMPARE(page.shownNote(QStringLiteral("userNameEdit")), QStringLiteral("There is already a user of this name."));
    QTest::keyClicks(page.userName, QStringLiteral("x"));
    QCOMPARE(page.shownNote(QStringLiteral("userNameEdit")), QString());
}

void NewAccountPageTest::keepsLabelsBesideTheirFields()
{
    Page page;
    QVERIFY(page.open());
    QTest::keyClicks(page.userName, QStringLiteral("User"));
    QVERIFY(page.note(QStringLiteral("userNameEdit"))->isVisible());
    QCoreApplication::processEvents();
    const auto labels = page.findChildren<QLabel *>();
    int compared = 0;
    for (const QLabel *label : labels) {
        if (const auto *edit = qobject_cast<QLineEdit *>(label->buddy())) {
            const QPoint labelCentre = label->mapTo(&page, label->rect().center());
            const QPoint editCentre = edit->mapTo(&page, edit->rect().center());
            QVERIFY2(qAbs(labelCentre.y() - editCentre.y()) <= 1, qPrintable(label->text()));
            ++compared;
        }
    }
    QCOMPARE(compared, 11);
}

void NewAccountPageTest::showsStockPicture()
{
    QVERIFY(plainPicture(Qt::red).save(facesPath() + QStringLiteral("/red.png")));
    const Page page;
    QCOMPARE(page.pictureColour(), QColor(Qt::red).rgb());
}

void NewAccountPageTest::showsPictureThatIsChosen()
{
    QVERIFY(plainPicture(Qt::red).save(facesPath() + QStringLiteral("/red.png")));
    Page page;
    QVERIFY(page.open());
    QVERIFY(withDialog<UserIconDialog>(*page.pictureButton, [](UserIconDialog &dialog) {
        QCOMPARE(dialog.selectedPixmap().toImage().pixel(4, 4), QColor(Qt::red).rgb());
        dialog.setPixmap(plainPicture(Qt::green));
        dialog.accept();
    }));
    QCOMPARE(page.pictureColour(), QColor(Qt::green).rgb());
}

void NewAccountPageTest::keepsPictureWhenNoneIsChosen()
{
    QVERIFY(plainPicture(Qt::red).save(facesPath() + QStringLiteral("/red.png")));
    Page page;
    QVERIFY(page.open());
    QVERIFY(withDialog<UserIconDialog>(*page.pictureButton, [](UserIconDialog &dialog) {
        dialog.setPixmap(plainPicture(Qt::green));
        dialog.reject();
    }));
    QCOMPARE(page.pictureColour(), QColor(Qt::red).rgb());
    QVERIFY(withDialog<UserIconDialog>(*page.pictureButton, [](UserIconDialog &dialog) {
        dialog.setPixmap(QPixmap());
        dialog.accept();
    }));
    QCOMPARE(page.pictureColour(), QColor(Qt::red).rgb());
}

void NewAccountPageTest::showsGroupsThatAreChosen()
{
    Page page;
    QVERIFY(page.open());
    QCOMPARE(page.groups->text(), QStringLiteral("No groups chosen."));
    QVERIFY(withDialog<GroupSelectDialog>(*page.groupsButton, [](GroupSelectDialog &dialog) {
        QCOMPARE(dialog.selectedGroupNames(), QStringList());
        pickGroups(dialog, {QStringLiteral("video")});
    }));
    QCOMPARE(page.groups->text(), QStringLiteral("1 group: video"));

    QVERIFY(withDialog<GroupSelectDialog>(*page.groupsButton, [](GroupSelectDialog &dialog) {
        QCOMPARE(dialog.selectedGroupNames(), QStringList(QStringLiteral("video")));
        pickGroups(dialog, {QStringLiteral("audio")});
    }));
    QCOMPARE(page.groups->text(), QStringLiteral("2 groups: audio, video"));

    QVERIFY(withDialog<GroupSelectDialog>(*page.groupsButton, [](GroupSelectDialog &dialog) { dialog.reject(); }));
    QCOMPARE(page.groups->text(), QStringLiteral("2 groups: audio, video"));
}

void NewAccountPageTest::locksGroupOfNewUser()
{
    Page page;
    QVERIFY(page.open());
    QTest::keyClicks(page.userName, QStringLiteral("newbie"));
    QVERIFY(withDialog<GroupSelectDialog>(*page.groupsButton, [](GroupSelectDialog &dialog) {
        pickGroups(dialog, {QStringLiteral("newbie"), QStringLiteral("audio")});
    }));
    QCOMPARE(page.groups->text(), QStringLiteral("1 group: audio"));
}

void NewAccountPageTest::leadsToEverythingByKeyboard()
{
    Page page;
    QVERIFY(page.open());
    page.hashButton->click(); // enables the buttons that copy
    QCOMPARE(tabOrder(page, page.userName),
             QStringList({
                 QStringLiteral("userNameEdit"),
                 QStringLiteral("groupNameEdit"),
                 QStringLiteral("uidEdit"),
                 QStringLiteral("fullNameEdit"),
                 QStringLiteral("roomEdit"),
                 QStringLiteral("workPhoneEdit"),
                 QStringLiteral("homePhoneEdit"),
                 QStringLiteral("otherEdit"),
                 QStringLiteral("pictureButton"),
                 QStringLiteral("groupsButton"),
                 QStringLiteral("passwordEdit"),
                 QStringLiteral("revealCheckBox"),
                 QStringLiteral("hashButton"),
                 QStringLiteral("sha512HashEdit"),
                 QStringLiteral("copySha512Button"),
                 QStringLiteral("gostHashEdit"),
                 QStringLiteral("copyGostButton"),
                 QStringLiteral("hashComboBox"),
             }));
    QStringList keys = mnemonics(page);
    QCOMPARE(keys.removeDuplicates(), 0);
}

void NewAccountPageTest::namesEverythingForScreenReaders()
{
    Page page;
    QVERIFY(page.open());
    QCOMPARE(unnamedAccessibles(page).join(QLatin1Char(' ')), QString());
}

void NewAccountPageTest::stacksItsPartsInLittleRoom()
{
    Page page;
    page.resize(1200, 700);
    QVERIFY(page.open());
    auto *form = part<QScrollArea>(page, "newAccount");
    QVERIFY(!isStacked(page));
    page.resize(form->widget()->minimumSizeHint().width() + 60, 480);
    QTRY_VERIFY_WITH_TIMEOUT(isStacked(page), patience);
    QCOMPARE(form->horizontalScrollBar()->maximum(), 0);
    page.resize(1200, 700);
    QTRY_VERIFY_WITH_TIMEOUT(!isStacked(page), patience);
}

void NewAccountPageTest::stacksItsPartsForCommands()
{
    Page page;
    page.resize(1200, 700);
    QVERIFY(page.open());
    const auto *form = part<QScrollArea>(page, "newAccount");
    const int heading = part<QLabel>(page, "commandsHeading")->minimumWidth();
    page.resize(form->widget()->minimumSizeHint().width() + heading + 50, 700); // enough for the heading alone
    QTRY_VERIFY_WITH_TIMEOUT(!isStacked(page), patience);
    // In some languages the buttons are wider than any sentence has to be.
    part<QPushButton>(page, "copyCommandsButton")->setMinimumWidth(heading + 50);
    page.userName->setText(QStringLiteral("newbie"));
    QTRY_VERIFY_WITH_TIMEOUT(isStacked(page), patience);
    QCOMPARE(form->horizontalScrollBar()->maximum(), 0);
}

void NewAccountPageTest::stacksItsPartsForLines()
{
    Page page;
    QVERIFY(page.open());
    const auto *form = part<QScrollArea>(page, "newAccount");
    const auto *heading = part<QLabel>(page, "commandsHeading");
    const int word = heading->fontMetrics().horizontalAdvance(QStringLiteral("cannot be created"));
    page.userName->setText(QStringLiteral("a:b"));
    QCOMPARE(page.shownCommands(), QString());
    page.resize(form->widget()->minimumSizeHint().width() + word + 60, 480);
    QTRY_VERIFY_WITH_TIMEOUT(isStacked(page), patience);
    QVERIFY(heading->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(heading->heightForWidth(heading->width()) < 3 * heading->fontMetrics().lineSpacing(),
                             patience);
    QCOMPARE(form->horizontalScrollBar()->maximum(), 0);
}

QTEST_MAIN(NewAccountPageTest)

#include "newaccountpagetest.moc"

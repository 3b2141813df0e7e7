/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "dialogsequence.h"
#include "newaccountpageparts.h"
#include "pageparts.h"
#include "patience.h"
#include "sandbox.h"
#include "texts.h"
#include "windowparts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QTemporaryDir>

using namespace NewAccountParts;

/** The commands that create a new account, and what prevents them. */
class NewAccountPlanTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void refusesNamesThatNoToolTakes();
    void refusesInvisibleCharacters();
    void tellsThatGroupExists();
    void tellsWhoseUidItIs();
    void showsCommands();
    void setsChosenHash();
    void coversNothingInLittleRoom();
    void revealsPassword();
    void tellsMethodOfSystem();
    void exportsPicture();
};

void NewAccountPlanTest::init()
{
    Sandbox::setAccounts(existingUsers, existingGroups);
    Sandbox::remove(QStringLiteral("/etc/adduser.conf"));
    Sandbox::clear(facesPath());
}

void NewAccountPlanTest::refusesInvisibleCharacters()
{
    Page page;
    QVERIFY(page.open());
    part<QLineEdit>(page, "fullNameEdit")->insert(QStringLiteral(u"a\u202eb"));
    QCOMPARE(page.shownNote(QStringLiteral("fullNameEdit")),
             QStringLiteral("rejected: the text contains an invisible character"));
}

void NewAccountPlanTest::refusesNamesThatNoToolTakes()
{
    Sandbox::write(QStringLiteral("/etc/adduser.conf"), "NAME_REGEX=\".*\"\n");
    Page page;
    QVERIFY(page.open());
    for (const char *name : {"-x", "+x", "~x", ".", "..", "a:b", "a,b", "a/b", "a b"}) {
        page.userName->clear();
        QTest::keyClicks(page.userName, QString::fromLatin1(name));
        QCOMPARE(page.shownNote(QStringLiteral("userNameEdit")),
                 QStringLiteral("rejected: a name must not begin with '-', '+' or '~', or contain a colon, a comma, a "
                                "slash or a blank"));
        QCOMPARE(page.shownCommands(), QString());
    }
    page.userName->clear();
    QTest::keyClicks(page.userName, QStringLiteral("a$(b)"));
    QCOMPARE(page.shownCommands(), QStringLiteral("useradd --create-home --badname --user-group 'a$(b)'"));
}

void NewAccountPlanTest::tellsThatGroupExists()
{
    Page page;
    QVERIFY(page.open() && readAccounts(page.store));
    QTest::keyClicks(page.userName, QStringLiteral("newbie"));
    QCOMPARE(page.shownNote(QStringLiteral("userNameEdit")),
             QStringLiteral("There is already a group of this name. To make it the primary group, enter it below."));
    QCOMPARE(page.shownCommands(), QString());
    auto *group = part<QLineEdit>(page, "groupNameEdit");
    QTest::keyClicks(group, QStringLiteral("newbie"));
    QCOMPARE(page.shownNote(QStringLiteral("userNameEdit")), QString());
    QCOMPARE(page.shownNote(QStringLiteral("groupNameEdit")),
             QStringLiteral("There is already a group of this name. It becomes the primary group."));
    QCOMPARE(page.shownCommands(), QStringLiteral("useradd --create-home --gid newbie newbie"));
}

void NewAccountPlanTest::tellsWhoseUidItIs()
{
    Page page;
    QVERIFY(page.open() && readAccounts(page.store));
    auto *uid = part<QLineEdit>(page, "uidEdit");
    QTest::keyClicks(uid, QStringLiteral("1001"));
    QCOMPARE(page.shownNote(QStringLiteral("uidEdit")), QStringLiteral("rejected: this is the UID of bob"));
    QTest::keyClick(uid, Qt::Key_Backspace);
    QCOMPARE(page.shownNote(QStringLiteral("uidEdit")), QStringLiteral("This UID makes it a system account."));
}

void NewAccountPlanTest::showsCommands()
{
    Page page;
    QVERIFY(page.open() && readAccounts(page.store));
    const auto *heading = part<QLabel>(page, "commandsHeading");
    QCOMPARE(heading->text(), QStringLiteral("Enter a user name to see the commands that create the account."));
    QCOMPARE(page.shownCommands(), QString());
    QTest::keyClicks(page.userName, QStringLiteral("newest"));
    QCOMPARE(heading->text(),
             QStringLiteral("Nothing was created. To create the account, run these commands as root:"));
    QCOMPARE(page.shownCommands(), QStringLiteral("useradd --create-home --user-group newest"));

    QTest::keyClicks(part<QLineEdit>(page, "groupNameEdit"), QStringLiteral("crew"));
    QTest::keyClicks(part<QLineEdit>(page, "uidEdit"), QStringLiteral("1815"));
    const QStringList details{QStringLiteral("It's New"), text("1"), text("2"), text("3"), text("4")};
    int next = 0;
    for (const char *edit : {"fullNameEdit", "roomEdit", "workPhoneEdit", "homePhoneEdit", "otherEdit"}) {
        QTest::keyClicks(part<QLineEdit>(page, edit), details.at(next++));
    }
    QVERIFY(withDialog<GroupSelectDialog>(*page.groupsButton, [](GroupSelectDialog &dialog) {
        pickGroups(dialog, {QStringLiteral("audio"), QStringLiteral("video")});
    }));
    QCOMPARE(page.shownCommands(),
             QStringLiteral("groupadd crew\n"
                            "useradd --create-home --uid 1815 --gid crew --comment 'It'\\''s New' --groups audio,video "
                            "newest\n"
                            "chfn --room 1 --work-phone 2 --home-phone 3 --other 4 newest"));
    QTest::keyClicks(part<QLineEdit>(page, "roomEdit"), QStringLiteral(":"));
    QCOMPARE(page.shownCommands(), QString());
    QCOMPARE(heading->text(),
             QStringLiteral("The account cannot be created like this: see the notes below the fields."));
}

void NewAccountPlanTest::setsChosenHash()
{
    Page page;
    QVERIFY(page.open());
    QTest::keyClicks(page.userName, QStringLiteral("newest"));
    const auto *notes = part<QLabel>(page, "commandsNotes");
    QVERIFY(notes->text().startsWith(QLatin1String("Without a password hash")));
    page.hashButton->click();
    const auto command = [](const QLineEdit *hash) {
        return QStringLiteral("\nusermod --password '%1' newest").arg(hash->text());
    };
    QVERIFY(page.shownCommands().endsWith(command(page.sha512)));
    QVERIFY(notes->text().startsWith(QLatin1String("The commands contain a password hash.")));
    auto *choice = part<QComboBox>(page, "hashComboBox");
    QTest::keyClick(choice, Qt::Key_Down);
    QVERIFY(page.shownCommands().endsWith(command(page.gost)));
    QTest::keyClick(choice, Qt::Key_Home);
    QCOMPARE(page.shownCommands(), QStringLiteral("useradd --create-home --user-group newest"));
    QTest::keyClick(choice, Qt::Key_Down);
    QTest::keyClicks(page.password, QStringLiteral("s")); // which has another hash
    QCOMPARE(page.shownCommands(), QStringLiteral("useradd --create-home --user-group newest"));
}

void NewAccountPlanTest::coversNothingInLittleRoom()
{
    Page page;
    page.resize(600, 360);
    QVERIFY(page.open());
    QTest::keyClicks(page.userName, QStringLiteral("newest"));
    page.hashButton->click();
    const auto *commands = part<QPlainTextEdit>(page, "commandsEdit");
    const QWidget *buttons = part<QPushButton>(page, "copyCommandsButton")->parentWidget();
    const auto *notes = part<QLabel>(page, "commandsNotes");
    QTRY_VERIFY_WITH_TIMEOUT(notes->isVisible() && notes->height() >= notes->heightForWidth(notes->width()), patience);
    QVERIFY(commands->geometry().bottom() < buttons->y());
    QVERIFY(buttons->geometry().bottom() < notes->y());
    // What a window of 640x480 has for a page.
    QVERIFY2(page.height() <= 390, qPrintable(QString::number(page.height())));
}

void NewAccountPlanTest::revealsPassword()
{
    Page page;
    QVERIFY(page.open());
    auto *reveal = part<QCheckBox>(page, "revealCheckBox");
    QTest::keyClick(reveal, Qt::Key_Space);
    QCOMPARE(page.password->echoMode(), QLineEdit::Normal);
    QTest::keyClick(reveal, Qt::Key_Space);
    QCOMPARE(page.password->echoMode(), QLineEdit::Password);
}

void NewAccountPlanTest::tellsMethodOfSystem()
{
    const Page page;
    QCOMPARE(part<QLabel>(page, "encryptMethodNote")->text(),
             QStringLiteral("This system hashes passwords with yescrypt (ENCRYPT_METHOD in /etc/login.defs), which is "
                            "neither of these methods."));
}

void NewAccountPlanTest::exportsPicture()
{
    QVERIFY(plainPicture(Qt::red).save(facesPath() + QStringLiteral("/red.png")));
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("out.png"));
    Page page;
    QVERIFY(page.open());
    auto *button = part<QPushButton>(page, "exportButton");
    QVERIFY(withDialogs(*button, {cancels()}));
    QVERIFY(withDialogs(*button, {choosesFile(path)}));
    QCOMPARE(QImage(path).pixel(4, 4), QColor(Qt::red).rgb());
    Sandbox::clear(facesPath());
    QVERIFY(!part<QPushButton>(Page(), "exportButton")->isEnabled());
}

QTEST_MAIN(NewAccountPlanTest)

#include "newaccountplantest.moc"

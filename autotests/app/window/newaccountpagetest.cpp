/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "newaccountpage.h"
#include "accountstore.h"
#include "dialogparts.h"
#include "pageparts.h"
#include "sandbox.h"
#include "standin.h"
#include "windowparts.h"

#include <GroupSelectDialog>
#include <UserIconDialog>

#include <QClipboard>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include <crypt.h>

#include <memory>

extern "C" Q_DECL_EXPORT char *gost_crypt(const char *key, const char *setting);

namespace
{
bool s_gostIsMissing = false;
bool s_waitsForGost = false;

const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                         "alice:x:1000:1000::/home/alice:/bin/sh\n"
                         "bob:x:1001:50::/home/bob:/bin/sh\n";

const char groupsFile[] = "root:x:0:\n"
                          "ormel-admin:x:27:\n"
                          "audio:x:29:\n"
                          "staff:x:50:\n"
                          "video:x:44:\n"
                          "newbie:x:1003:\n";

QString facesPath()
{
    return QStringLiteral("/usr/share/kiv/faces");
}

QPixmap plainPicture(const QColor &colour)
{
    QPixmap picture(100, 100);
    picture.fill(colour);
    return picture;
}

/** Picks @p names in a dialog and presses Ok. */
void pickGroups(GroupSelectDialog &dialog, const QStringList &names)
{
    for (const QString &name : names) {
        clickCheckBox(*part<QTreeView>(dialog, "groupsTreeView"), name);
    }
    part<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Ok)->click();
}

struct Store {
    AccountStore store;
};

/** A page with its parts at hand. */
struct Page : Store, NewAccountPage {
    Page()
        : NewAccountPage(&store)
    {
    }

    QLineEdit *userName = part<QLineEdit>(*this, "userNameEdit");
    QPushButton *pictureButton = part<QPushButton>(*this, "pictureButton");
    QPushButton *groupsButton = part<QPushButton>(*this, "groupsButton");
    QLabel *groups = part<QLabel>(*this, "groupsLabel");
    QLineEdit *password = part<QLineEdit>(*this, "passwordEdit");
    QPushButton *hashButton = part<QPushButton>(*this, "hashButton");
    QLineEdit *sha512 = part<QLineEdit>(*this, "sha512HashEdit");
    QLineEdit *gost = part<QLineEdit>(*this, "gostHashEdit");

    bool open()
    {
        show();
        return QTest::qWaitForWindowActive(this);
    }

    QLabel *note(const QString &edit) const
    {
        return part<QLabel>(*this, qPrintable(edit + QLatin1String("Note")));
    }

    /** What is said about an edit; null when nothing is. */
    QString shownNote(const QString &edit) const
    {
        return note(edit)->isVisible() ? note(edit)->text() : QString();
    }

    QRgb pictureColour() const
    {
        return pictureButton->icon().pixmap(8, 8).toImage().pixel(4, 4);
    }
};

/** The expression of a rule, which stands apart from the text around it. */
QString hasToMatch(const char *word, const char *expression)
{
    return QStringLiteral("%1: the whole text has to match \u2066%2\u2069")
        .arg(QLatin1String(word), QLatin1String(expression));
}
}

extern "C" Q_DECL_EXPORT char *gost_crypt(const char *key, const char *setting)
{
    static const auto next = original(gost_crypt, "gost_crypt");
    s_waitsForGost = isCursorShown(Qt::WaitCursor);
    return s_gostIsMissing ? nullptr : next(key, setting);
}

class NewAccountPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void saysWhatIsWrong_data();
    void saysWhatIsWrong();
    void tellsUnfinishedName();
    void readsRulesAnew();
    void tellsThatNameIsTaken();
    void keepsLabelsBesideTheirFields();

    void showsStockPicture();
    void showsPictureThatIsChosen();
    void keepsPictureWhenNoneIsChosen();
    void showsGroupsThatAreChosen();
    void locksGroupOfNewUser();

    void hashesPassword_data();
    void hashesPassword();
    void forgetsHashOfOtherPassword();
    void saltsEachTime();
    void copiesHashes();
    void saysWhenNotHashed();
    void saysWhenGostIsMissing();

    void leadsToEverythingByKeyboard();
    void namesEverythingForScreenReaders();
};

void NewAccountPageTest::init()
{
    Sandbox::setAccounts(usersFile, groupsFile);
    Sandbox::remove(QStringLiteral("/etc/adduser.conf"));
    Sandbox::clear(facesPath());
    s_gostIsMissing = false;
    s_waitsForGost = false;
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
    const QString tooLong = QStringLiteral("rejected: a name has at most 32 characters");
    const QString commas = QStringLiteral("rejected: commas separate these fields");

    add("userNameEdit", QStringLiteral("user1"), QString());
    add("userNameEdit", QStringLiteral("User"), hasToMatch("rejected", "[a-z][a-z0-9\\_\\-]*"));
    add("userNameEdit", QStringLiteral("user$"), hasToMatch("rejected", "[a-z][a-z0-9\\_\\-]*"));
    add("userNameEdit", letters(32), QString());
    add("userNameEdit", letters(33), tooLong);
    add("groupNameEdit", QStringLiteral("machine$"), QString());
    add("groupNameEdit", QStringLiteral("1grp"), hasToMatch("rejected", "[a-z_][a-z0-9_-]*[$]?"));
    add("groupNameEdit", letters(33), tooLong);
    for (const char *edit : {"fullNameEdit", "roomEdit", "workPhoneEdit", "homePhoneEdit", "otherEdit"}) {
        add(edit, QStringLiteral("12, Main Street"), commas);
        add(edit, QStringLiteral("12 Main Street: ") + letters(33), QString());
    }
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

void NewAccountPageTest::readsRulesAnew()
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
    QCOMPARE(compared, 10);
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

void NewAccountPageTest::hashesPassword_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<bool>("byKey");

    QTest::newRow("button") << QStringLiteral("secret") << false;
    QTest::newRow("return key") << QStringLiteral("secret") << true;
    QTest::newRow("UTF-8") << QStringLiteral("Grüße 🙂") << false;
    QTest::newRow("empty") << QString() << false;
}

void NewAccountPageTest::hashesPassword()
{
    QFETCH(QString, password);
    QFETCH(bool, byKey);

    Page page;
    QVERIFY(page.open());
    QCOMPARE(page.password->echoMode(), QLineEdit::Password);
    page.password->insert(password);
    if (byKey) {
        QTest::keyClick(page.password, Qt::Key_Return);
    } else {
        page.hashButton->click();
    }
    QVERIFY(s_waitsForGost && !QApplication::overrideCursor());
    const QByteArray sha512 = page.sha512->text().toUtf8();
    QVERIFY(sha512.startsWith("$6$"));
    QCOMPARE(QByteArray(crypt(password.toUtf8().constData(), sha512.constData())), sha512);
    const QByteArray gost = page.gost->text().toUtf8();
    QVERIFY(gost.startsWith("$gost12512hash$"));
    QCOMPARE(QByteArray(gost_crypt(password.toUtf8().constData(), gost.constData())), gost);
    for (const QLineEdit *edit : {page.sha512, page.gost}) {
        QVERIFY(edit->isReadOnly());
        QCOMPARE(edit->cursorPosition(), 0); // so that the beginning is shown
        QCOMPARE(page.shownNote(edit->objectName()), QString());
    }
}

void NewAccountPageTest::forgetsHashOfOtherPassword()
{
    Page page;
    QVERIFY(page.open());
    QTest::keyClicks(page.password, QStringLiteral("secret"));
    page.hashButton->click();
    QTest::keyClicks(page.password, QStringLiteral("s"));
    QCOMPARE(page.sha512->text(), QString());
    QCOMPARE(page.gost->text(), QString());
}

void NewAccountPageTest::saltsEachTime()
{
    Page page;
    QVERIFY(page.open());
    page.hashButton->click();
    const QStringList first{page.sha512->text(), page.gost->text()};
    page.hashButton->click();
    QVERIFY(page.sha512->text() != first.at(0));
    QVERIFY(page.gost->text() != first.at(1));
}

void NewAccountPageTest::copiesHashes()
{
    Page page;
    QVERIFY(page.open());
    auto *copySha512 = part<QPushButton>(page, "copySha512Button");
    auto *copyGost = part<QPushButton>(page, "copyGostButton");
    QVERIFY(!copySha512->isEnabled() && !copyGost->isEnabled());

    page.hashButton->click();
    copySha512->click();
    QCOMPARE(QGuiApplication::clipboard()->text(), page.sha512->text());
    copyGost->click();
    QCOMPARE(QGuiApplication::clipboard()->text(), page.gost->text());
}

void NewAccountPageTest::saysWhenNotHashed()
{
    Page page;
    QVERIFY(page.open());
    page.password->setText(QStringLiteral("a").repeated(600));
    page.hashButton->click();
    QCOMPARE(page.sha512->text(), QString());
    QCOMPARE(page.shownNote(QStringLiteral("sha512HashEdit")), QStringLiteral("The password cannot be hashed."));
    QVERIFY(!part<QPushButton>(page, "copySha512Button")->isEnabled());

    page.password->clear();
    QCOMPARE(page.shownNote(QStringLiteral("sha512HashEdit")), QString());
}

void NewAccountPageTest::saysWhenGostIsMissing()
{
    s_gostIsMissing = true;
    Page page;
    QVERIFY(page.open());
    QTest::keyClicks(page.password, QStringLiteral("secret"));
    page.hashButton->click();
    QVERIFY(page.sha512->text().startsWith(QLatin1String("$6$")));
    QCOMPARE(page.gost->text(), QString());
    QCOMPARE(page.shownNote(QStringLiteral("gostHashEdit")),
             QStringLiteral("The GOST method is not available on this machine."));
    QVERIFY(!part<QPushButton>(page, "copyGostButton")->isEnabled());
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
                 QStringLiteral("fullNameEdit"),
                 QStringLiteral("roomEdit"),
                 QStringLiteral("workPhoneEdit"),
                 QStringLiteral("homePhoneEdit"),
                 QStringLiteral("otherEdit"),
                 QStringLiteral("pictureButton"),
                 QStringLiteral("groupsButton"),
                 QStringLiteral("passwordEdit"),
                 QStringLiteral("hashButton"),
                 QStringLiteral("sha512HashEdit"),
                 QStringLiteral("copySha512Button"),
                 QStringLiteral("gostHashEdit"),
                 QStringLiteral("copyGostButton"),
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

QTEST_MAIN(NewAccountPageTest)

#include "newaccountpagetest.moc"

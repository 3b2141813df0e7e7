/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountstore.h"
#include "commandsview.h"
#include "dialogparts.h"
#include "dialogsequence.h"
#include "filecontent.h"
#include "groupspage.h"
#include "pageparts.h"
#include "patience.h"
#include "recordview.h"
#include "sandbox.h"
#include "texts.h"
#include "userspage.h"
#include "windowparts.h"

#include <GroupSelectDialog>
#include <UserIconDialog>
#include <UserSelectDialog>

#include <QAction>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

namespace
{
const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                         "ada:x:1000:1000:Ada:/home/ada:/bin/sh\n"
                         "bob:x:1001:50:Bob:/home/bob:/bin/sh\n"
                         "eve:x:1003:1003::/home/eve:/bin/sh\n"
                         "../e\033vil:x:1002:1000::/home/evil:/bin/sh\n";

const char groupsFile[] = "root:x:0:\n"
                          "ada:x:1000:\n"
                          "audio:x:29:ada\n"
                          "staff:x:50:ada,ghost\n"
                          "video:x:44:\n";

/** A page with the account @p name selected. */
template<typename AnyPage>
struct Opened {
    explicit Opened(const char *name)
    {
        page.resize(900, 700);
        page.show();
        if (!QTest::qWaitForWindowActive(&page, patience) || !readAccounts(store)) {
            qFatal("The accounts were not read");
        }
        if (name) {
            clickText(*page.list()->view(), text(name));
        }
    }

    QPushButton &button(const char *name) const
    {
        return *part<QPushButton>(page, name);
    }

    AccountStore store;
    AnyPage page{&store};
};

using Users = Opened<UsersPage>;
using Groups = Opened<GroupsPage>;

/** Changes the check marks of @p names in a select dialog and presses a button. */
DialogStep checks(const QStringList &names, QDialogButtonBox::StandardButton button = QDialogButtonBox::Ok)
{
    return [=](QWidget &dialog) {
        auto *view = dialog.findChild<QTreeView *>();
        for (const QString &name : names) {
            clickCheckBox(*view, name);
        }
        QTest::mouseClick(part<QDialogButtonBox>(dialog, "buttonBox")->button(button), Qt::LeftButton);
    };
}

/** Sets a picture in an icon dialog and accepts it. */
DialogStep cuts(const QPixmap &picture)
{
    return [=](QWidget &dialog) {
        static_cast<UserIconDialog &>(dialog).setPixmap(picture);
        static_cast<UserIconDialog &>(dialog).accept();
    };
}

QPixmap greenPicture()
{
    QPixmap picture(64, 48);
    picture.fill(Qt::green);
    return picture;
}

/** The contents of a dialog with commands. */
struct Shown {
    QString title;
    QString heading;
    QString commands;
    QString notes;

    /** Stores it. */
    DialogStep step()
    {
        return [this](QWidget &dialog) {
            const auto visibleText = [](const auto *widget, const QString &text) {
                return widget->isVisible() ? text : QString();
            };
            title = dialog.windowTitle();
            heading = part<QLabel>(dialog, "commandsHeading")->text();
            const auto *edit = part<QPlainTextEdit>(dialog, "commandsEdit");
            commands = visibleText(edit, edit->toPlainText());
            const auto *label = part<QLabel>(dialog, "commandsNotes");
            notes = visibleText(label, label->text());
        };
    }
};

QString heading()
{
    return text("Nothing was changed. To make the change, run these commands as root:");
}

/** Stores the text of a message box. */
DialogStep readsMessage(QString &message)
{
    return [&message](QWidget &dialog) {
        const auto *box = qobject_cast<QMessageBox *>(&dialog);
        message = box ? box->text() : QString();
    };
}

/** Clicks a button in a dialog with commands. */
DialogStep clicks(const char *name)
{
    return [=](QWidget &dialog) { QTest::mouseClick(part<QPushButton>(dialog, name), Qt::LeftButton); };
}
}

/** Planning changes of the selected account. */
class PlanActionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void plansGroups();
    void tellsThatPrimaryGroupStays();
    void plansForAccountThatSearchFinds();
    void plansMembers();
    void tellsThatNothingChanges();
    void plansNothingOnCancel();
    void tellsThatAccountIsGone();
    void copiesCommands();
    void savesScript();
    void savesNoScriptOnCancel();
    void tellsThatScriptCannotBeWritten();
    void savesPicture();
    void suggestsHarmlessFileName();
    void savesNoPictureOnCancel();
    void tellsThatNoPictureWasChosen();
    void tellsThatPictureCannotBeWritten();
    void warnsOfHash();
    void offersActionsForOneAccount();
    void leadsToCommandsByKeyboard();

private:
    QTemporaryDir m_directory;
};

void PlanActionsTest::init()
{
    Sandbox::setAccounts(usersFile, groupsFile);
}

void PlanActionsTest::plansGroups()
{
    const Users users("ada");
    Shown shown;
    QVERIFY(withDialogs(users.button("changeGroups"), {checks({text("video"), text("audio")}), shown.step()}));
    QCOMPARE(shown.title, text("Change the Groups of ada"));
    QCOMPARE(shown.heading, heading());
    QCOMPARE(shown.commands, text("usermod --append --groups video ada\ngpasswd --delete ada audio"));
    QCOMPARE(shown.notes, QString());
}

void PlanActionsTest::tellsThatPrimaryGroupStays()
{
    const Users users("bob");
    Shown shown;
    QVERIFY(withDialogs(users.button("changeGroups"), {checks({text("staff")}), shown.step()}));
    QCOMPARE(shown.heading, text("There is nothing to change."));
    QCOMPARE(shown.commands, QString());
    QVERIFY(shown.notes.startsWith(text("staff is the primary group of bob and stays")));
}

void PlanActionsTest::plansForAccountThatSearchFinds()
{
    Shown shown;
    const Users users("ada");
    QTest::keyClicks(part<QLineEdit>(users.page, "searchField"), text("bob"));
    QVERIFY(withDialogs(users.button("changeGroups"), {checks({text("video")}), shown.step()}));
    QCOMPARE(shown.commands, text("usermod --append --groups video bob"));
    const Groups groups("staff");
    QTest::keyClicks(part<QLineEdit>(groups.page, "searchField"), text("video"));
    QVERIFY(withDialogs(groups.button("changeMembers"), {checks({text("eve")}), shown.step()}));
    QCOMPARE(shown.commands, text("gpasswd --add eve video"));
}

void PlanActionsTest::plansMembers()
{
    const Groups groups("staff");
    Shown shown;
    QVERIFY(
        withDialogs(groups.button("changeMembers"), {checks({text("eve"), text("ada"), text("bob")}), shown.step()}));
    QCOMPARE(shown.title, text("Change the Members of staff"));
    QCOMPARE(shown.commands, text("gpasswd --add eve staff\ngpasswd --delete ada staff"));
    QCOMPARE(shown.notes,
             text("This is the primary group of one user, who cannot be removed from it.\n"
                  "One member has no line in /etc/passwd and stays."));
}

void PlanActionsTest::tellsThatNothingChanges()
{
    const Users users("ada");
    Shown shown;
    QVERIFY(withDialogs(users.button("changeGroups"), {checks({}), shown.step()}));
    QCOMPARE(shown.heading, text("There is nothing to change."));
    QCOMPARE(shown.commands, QString());
    QCOMPARE(shown.notes, QString());
}

void PlanActionsTest::plansNothingOnCancel()
{
    const Users users("ada");
    QVERIFY(withDialogs(users.button("changeGroups"), {checks({text("video")}, QDialogButtonBox::Cancel)}));
    const Groups groups("staff");
    QVERIFY(withDialogs(groups.button("changeMembers"), {cancels()}));
}

void PlanActionsTest::tellsThatAccountIsGone()
{
    const Users users("ada");
    const Groups groups("staff");
    Sandbox::setAccounts("root:x:0:0:root:/root:/bin/bash\n", "root:x:0:\n");
    Shown shown;
    QVERIFY(withDialogs(users.button("changeGroups"), {shown.step()}));
    QCOMPARE(shown.notes, text("There is no user 'ada'."));
    QVERIFY(withDialogs(groups.button("changeMembers"), {shown.step()}));
    QCOMPARE(shown.notes, text("There is no group 'staff'."));
}

void PlanActionsTest::copiesCommands()
{
    const Users users("ada");
    QVERIFY(withDialogs(users.button("changeGroups"), {checks({text("video")}), clicks("copyCommandsButton")}));
    QCOMPARE(QGuiApplication::clipboard()->text(), text("usermod --append --groups video ada\n"));
}

void PlanActionsTest::savesScript()
{
    const QString path = m_directory.filePath(text("change.sh"));
    const Users users("ada");
    QVERIFY(withDialogs(users.button("changeGroups"),
                        {checks({text("video")}), clicks("saveScriptButton"), choosesFile(path)}));
    QVERIFY(contentOf(path).endsWith("set -e\nusermod --append --groups video ada\n"));
    QCOMPARE(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

void PlanActionsTest::savesNoScriptOnCancel()
{
    const Users users("ada");
    QVERIFY(
        withDialogs(users.button("changeGroups"), {checks({text("video")}), clicks("saveScriptButton"), cancels()}));
}

void PlanActionsTest::tellsThatScriptCannotBeWritten()
{
    const Users users("ada");
    QString message;
    QVERIFY(withDialogs(
        users.button("changeGroups"),
        {checks({text("video")}), clicks("saveScriptButton"), choosesFile(text("/proc/x.sh")), readsMessage(message)}));
    QVERIFY2(message.startsWith(text("Cannot write '/proc/x.sh': ")), qPrintable(message));
}

void PlanActionsTest::savesPicture()
{
    const QString path = m_directory.filePath(text("ada.png"));
    const Users users("ada");
    QVERIFY(withDialogs(users.button("cutPicture"), {cancels(), cuts(greenPicture()), choosesFile(path)}));
    QCOMPARE(QImageReader::imageFormat(path), QByteArray("png"));
    const QImage saved(path);
    QCOMPARE(saved.size(), QSize(48, 48));
    QCOMPARE(saved.pixel(20, 20), QColor(Qt::green).rgb());
}

void PlanActionsTest::suggestsHarmlessFileName()
{
    const Users users(nullptr);
    users.page.list()->view()->setCurrentName(text("../e\033vil"));
    QString suggested;
    const DialogStep reads = [&suggested](QWidget &dialog) {
        suggested = part<QLineEdit>(dialog, "fileNameEdit")->text();
    };
    QVERIFY(withDialogs(users.button("cutPicture"), {cancels(), cuts(greenPicture()), reads}));
    QCOMPARE(suggested, QStringLiteral(u".._e\u241bvil.png"));
}

void PlanActionsTest::savesNoPictureOnCancel()
{
    const Users users("ada");
    QVERIFY(withDialogs(users.button("cutPicture"), {cancels(), cancels()}));
    QVERIFY(withDialogs(users.button("cutPicture"), {cancels(), cuts(greenPicture()), cancels()}));
}

void PlanActionsTest::tellsThatNoPictureWasChosen()
{
    const Users users("ada");
    QString message;
    QVERIFY(withDialogs(users.button("cutPicture"), {cancels(), cuts(QPixmap()), readsMessage(message)}));
    QCOMPARE(message, text("No picture was chosen."));
}

void PlanActionsTest::tellsThatPictureCannotBeWritten()
{
    const Users users("ada");
    QString message;
    QVERIFY(withDialogs(users.button("cutPicture"),
                        {cancels(), cuts(greenPicture()), choosesFile(text("/proc/x.png")), readsMessage(message)}));
    QVERIFY2(message.startsWith(text("Cannot write '/proc/x.png': ")), qPrintable(message));
}

void PlanActionsTest::warnsOfHash()
{
    CommandsView view(heading());
    Plan plan;
    plan.add({"usermod", "--password", "$6$a$b"}, "ada");
    plan.holdsHash = true;
    view.setPlan(plan, QString());
    view.show();
    const auto *notes = part<QLabel>(view, "commandsNotes");
    QVERIFY(notes->isVisible());
    QVERIFY(notes->text().startsWith(text("The commands contain a password hash.")));
    plan.holdsHash = false;
    view.setPlan(plan, QString());
    QVERIFY(!notes->isVisible());
}

void PlanActionsTest::offersActionsForOneAccount()
{
    const Users users(nullptr);
    const QList<QAction *> actions = users.page.actions();
    QCOMPARE(actions.size(), 2);
    for (const QAction *action : actions) {
        QVERIFY(action->isEnabled());
        QVERIFY(users.button(qPrintable(action->objectName())).isEnabled());
        QVERIFY(users.page.list()->view()->actions().contains(const_cast<QAction *>(action)));
    }
    QTest::keyClicks(part<QLineEdit>(users.page, "searchField"), text("nobody is called so"));
    for (const QAction *action : actions) {
        QVERIFY(!action->isEnabled());
        QVERIFY(!users.button(qPrintable(action->objectName())).isEnabled());
    }
}

void PlanActionsTest::leadsToCommandsByKeyboard()
{
    const Users users("ada");
    QStringList order;
    QString unnamed;
    QStringList keys;
    const DialogStep walks = [&](QWidget &dialog) {
        order = tabOrder(dialog, part<QPlainTextEdit>(dialog, "commandsEdit"));
        unnamed = unnamedAccessibles(dialog).join(QLatin1Char(' '));
        keys = mnemonics(dialog);
    };
    QVERIFY(withDialogs(users.button("changeGroups"), {checks({text("video")}), walks}));
    QCOMPARE(
        order,
        QStringList(
            {text("commandsEdit"), text("copyCommandsButton"), text("saveScriptButton"), text("Close"), text("Help")}));
    QCOMPARE(unnamed, QString());
    QCOMPARE(keys.removeDuplicates(), 0);
}

QTEST_MAIN(PlanActionsTest)

#include "planactionstest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "memberships.h"

#include "messagerecorder.h"
#include "shadowtools.h"
#include "texts.h"

#include <UserInfo>

#include <QTest>

#include <algorithm>

namespace
{
const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                         "ada:x:1000:1000:Ada:/home/ada:/bin/bash\n"
                         "bob:x:1001:50:Bob:/home/bob:/bin/sh\n"
                         "-eve:x:1002:1002::/home/eve:/bin/sh\n"
                         "j\xc3\xb6rg:x:1003:1003::/home/joerg:/bin/sh\n"
                         "andr\xe9:x:1004:1004::/home/andre:/bin/sh\n"
                         "it's $(reboot):x:1005:1005::/home/its:/bin/sh\n"
                         "ada,bob:x:1006:1006::/home/both:/bin/sh\n";

const char groupsFile[] = "root:x:0:\n"
                          "ada:x:1000:\n"
                          "staff:x:50:ada\n"
                          "audio:x:29:ada,ghost\n"
                          "video:x:44:\n"
                          "50:x:2000:\n"
                          "-g:x:2001:\n"
                          "gr\xc3\xb6\xc3\x9f"
                          "e:x:2002:\n"
                          "caf\xe9:x:2003:\n"
                          "'; reboot #:x:2004:\n"
                          "ada,bob:x:2005:\n"
                          "wheel x:x:2006:bob\n";

GroupMembers membersOf(const char *group)
{
    return GroupMembers::of(GroupInfo::getGroup(text(group)));
}

/** The groups of a user as the library reads them. */
QStringList groupsOf(const QString &user)
{
    const MessageRecorder noAdministrators;
    QStringList names = UserInfo::getUser(user).groupNames();
    names.sort();
    return names;
}
}

class MembershipsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void joinsAndLeavesGroups();
    void joinsGroupsOfHostileNames_data();
    void joinsGroupsOfHostileNames();
    void keepsPrimaryGroup();
    void changesNothingWhenNothingIsWanted();
    void changesMembers();
    void keepsMembersThatNobodyWasAskedAbout();
    void addsMembersOfHostileNames_data();
    void addsMembersOfHostileNames();
    void addsNobodyWhoseNameHasComma();
    void saysWhichNamesNoToolTakes();
    void changesFirstGroupOfItsName();
};

void MembershipsTest::init()
{
    ShadowTools::setAccounts(usersFile, groupsFile);
}

void MembershipsTest::joinsAndLeavesGroups()
{
    const QStringList wanted{text("ada"), text("video"), text("root"), text("staff")};
    const Plan plan = Memberships::changeGroups(text("ada"), wanted, GroupMembers::ofAllGroups());
    QCOMPARE(plan.toText(), QByteArray("usermod --append --groups root,video ada\ngpasswd --delete ada audio\n"));
    QCOMPARE(plan.notes, QStringList());
    QCOMPARE(ShadowTools::run(plan), QByteArray());
    QCOMPARE(groupsOf(text("ada")), QStringList({text("ada"), text("root"), text("staff"), text("video")}));
}

void MembershipsTest::joinsGroupsOfHostileNames_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QByteArray>("commands");

    // As a number or a list, these would be other groups.
    QTest::newRow("number") << text("50") << QByteArray("gpasswd --add ada 50\n");
    QTest::newRow("list") << text("ada,bob") << QByteArray("gpasswd --add ada ada,bob\n");
    QTest::newRow("UTF-8") << text("gr\xc3\xb6\xc3\x9f"
                                   "e")
                           << QByteArray("gpasswd --add ada 'gr\xc3\xb6\xc3\x9f"
                                         "e'\n");
    QTest::newRow("Latin-1") << text("caf\xe9") << QByteArray("gpasswd --add ada \"$(printf 'caf\\351')\"\n");
    QTest::newRow("quote") << text("'; reboot #") << QByteArray("gpasswd --add ada ''\\''; reboot #'\n");
}

void MembershipsTest::joinsGroupsOfHostileNames()
{
    QFETCH(QString, group);
    QFETCH(QByteArray, commands);

    const QStringList before = groupsOf(text("ada"));
    const Plan plan = Memberships::changeGroups(text("ada"), before + QStringList(group), GroupMembers::ofAllGroups());
    QCOMPARE(plan.toText(), commands);
    QCOMPARE(ShadowTools::run(plan), QByteArray());
    QStringList expected = before + QStringList(group);
    expected.sort();
    QCOMPARE(groupsOf(text("ada")), expected);

    QCOMPARE(ShadowTools::run(Memberships::changeGroups(text("ada"), before, GroupMembers::ofAllGroups())),
             QByteArray());
    QCOMPARE(groupsOf(text("ada")), before);
}

void MembershipsTest::keepsPrimaryGroup()
{
    const Plan plan = Memberships::changeGroups(text("bob"), {text("wheel x")}, GroupMembers::ofAllGroups());
    QCOMPARE(plan.toText(), QByteArray());
    QCOMPARE(plan.notes,
             QStringList(text("staff is the primary group of bob and stays one of the groups. To choose another "
                              "primary group, use 'usermod --gid'.")));
}

void MembershipsTest::changesNothingWhenNothingIsWanted()
{
    const QStringList groups = groupsOf(text("ada"));
    const Plan plan = Memberships::changeGroups(text("ada"), groups, GroupMembers::ofAllGroups());
    QVERIFY(plan.commands.isEmpty() && plan.notes.isEmpty());
    const GroupMembers audio = membersOf("audio");
    QVERIFY(Memberships::changeMembers(audio, audio.all(), Memberships::localUsers()).commands.isEmpty());
}

void MembershipsTest::changesMembers()
{
    const Plan plan =
        Memberships::changeMembers(membersOf("staff"), {text("bob"), text("root")}, Memberships::localUsers());
    QCOMPARE(plan.toText(), QByteArray("gpasswd --add root staff\ngpasswd --delete ada staff\n"));
    QCOMPARE(plan.notes, QStringList(text("This is the primary group of one user, who cannot be removed from it.")));
    QCOMPARE(ShadowTools::run(plan), QByteArray());
    QCOMPARE(GroupInfo::getGroup(text("staff")).users(), QStringList({text("root"), text("bob")}));
}

void MembershipsTest::keepsMembersThatNobodyWasAskedAbout()
{
    const Plan plan = Memberships::changeMembers(membersOf("audio"), {}, Memberships::localUsers());
    QCOMPARE(plan.toText(), QByteArray("gpasswd --delete ada audio\n"));
    QCOMPARE(plan.notes, QStringList(text("One member has no line in /etc/passwd and stays.")));
    QCOMPARE(ShadowTools::run(plan), QByteArray());
    QCOMPARE(GroupInfo::getGroup(text("audio")).users(), QStringList(text("ghost")));
}

void MembershipsTest::addsMembersOfHostileNames_data()
{
    QTest::addColumn<QString>("user");

    for (const char *user : {"j\xc3\xb6rg", "andr\xe9", "it's $(reboot)"}) {
        QTest::newRow(user) << text(user);
    }
}

void MembershipsTest::addsMembersOfHostileNames()
{
    QFETCH(QString, user);

    QCOMPARE(ShadowTools::run(Memberships::changeMembers(membersOf("video"), {user}, Memberships::localUsers())),
             QByteArray());
    QCOMPARE(GroupInfo::getGroup(text("video")).users(), QStringList(user));
    const QStringList wanted{text("video"), text("audio")};
    QCOMPARE(ShadowTools::run(Memberships::changeGroups(user, wanted, GroupMembers::ofAllGroups())), QByteArray());
    QCOMPARE(groupsOf(user), QStringList({text("audio"), text("video")}));
    QCOMPARE(ShadowTools::run(Memberships::changeMembers(membersOf("video"), {}, Memberships::localUsers())),
             QByteArray());
    QCOMPARE(groupsOf(user), QStringList(text("audio")));
}

void MembershipsTest::addsNobodyWhoseNameHasComma()
{
    // In the line of a group this would be ada and bob.
    const QString both = text("ada,bob");
    for (const Plan &plan : {Memberships::changeMembers(membersOf("video"), {both}, Memberships::localUsers()),
                             Memberships::changeGroups(both, {text("video")}, GroupMembers::ofAllGroups())}) {
        QVERIFY(plan.commands.isEmpty());
        QCOMPARE(plan.notes,
                 QStringList(text("The name 'ada,bob' has a comma, which separates the members of a group. No group "
                                  "can name this user.")));
    }
}

void MembershipsTest::saysWhichNamesNoToolTakes()
{
    const QString eve = text("-eve");
    const QList<GroupMembers> groups = GroupMembers::ofAllGroups();
    for (const Plan &plan : {Memberships::changeMembers(membersOf("video"), {eve}, Memberships::localUsers()),
                             Memberships::changeGroups(eve, {text("video")}, groups)}) {
        QVERIFY(plan.commands.isEmpty());
        QCOMPARE(plan.notes,
                 QStringList(text("'-eve' begins with '-'. No tool accepts such a name. Change the line by hand.")));
    }
    const auto found = std::find_if(groups.begin(), groups.end(), [](const GroupMembers &members) {
        return members.group.name() == QLatin1String("-g");
    });
    QVERIFY(found != groups.end());
    const QString note = text("'-g' begins with '-'. No tool accepts such a name. Change the line by hand.");
    QCOMPARE(Memberships::changeMembers(*found, {text("ada")}, Memberships::localUsers()).notes, QStringList(note));
    const Plan plan = Memberships::changeGroups(text("ada"), groupsOf(text("ada")) + QStringList(text("-g")), groups);
    QVERIFY(plan.commands.isEmpty());
    QCOMPARE(plan.notes, QStringList(note));
}

void MembershipsTest::changesFirstGroupOfItsName()
{
    ShadowTools::setAccounts(usersFile, "staff:x:50:\ntwin:x:60:ada\ntwin:x:61:\n");
    const Plan plan = Memberships::changeGroups(text("ada"), {text("twin")}, GroupMembers::ofAllGroups());
    QCOMPARE(plan.toText(), QByteArray());
}

QTEST_GUILESS_MAIN(MembershipsTest)

#include "membershipstest.moc"

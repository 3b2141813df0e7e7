/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "describe.h"
#include "messagerecorder.h"
#include "sandbox.h"
#include "standin.h"
#include "texts.h"

#include <UserInfo>

#include <QTest>

#include <grp.h>
#include <pwd.h>

// The calls that a public operation makes to functions of the C library, which are replaced here.

namespace
{
struct Calls {
    QStringList opened;
    int closed = 0;
    QVector<gid_t> groupIds;
    QStringList groupNames;
    QStringList userNames;
};

Calls *s_calls = nullptr;

/** An answer for one name that replaces that of the C library. */
template<typename Entry>
struct Answer {
    const char *name = nullptr;
    Entry *entry = nullptr;
};

Answer<group> s_groupAnswer;
Answer<passwd> s_userAnswer;
}

extern "C" Q_DECL_EXPORT FILE *fopen(const char *path, const char *mode)
{
    static const auto next = original(fopen, "fopen");
    if (s_calls) {
        s_calls->opened.append(QStringLiteral("%1 %2").arg(QLatin1String(path), QLatin1String(mode)));
    }
    return next(path, mode);
}

extern "C" Q_DECL_EXPORT int fclose(FILE *file)
{
    static const auto next = original(fclose, "fclose");
    if (s_calls) {
        ++s_calls->closed;
    }
    return next(file);
}

extern "C" Q_DECL_EXPORT group *getgrgid(gid_t gid)
{
    static const auto next = original(getgrgid, "getgrgid");
    if (s_calls) {
        s_calls->groupIds.append(gid);
    }
    return next(gid);
}

extern "C" Q_DECL_EXPORT group *getgrnam(const char *name)
{
    static const auto next = original(getgrnam, "getgrnam");
    if (s_calls) {
        s_calls->groupNames.append(QString::fromLatin1(name));
    }
    return qstrcmp(s_groupAnswer.name, name) == 0 ? s_groupAnswer.entry : next(name);
}

extern "C" Q_DECL_EXPORT passwd *getpwnam(const char *name)
{
    static const auto next = original(getpwnam, "getpwnam");
    if (s_calls) {
        s_calls->userNames.append(QString::fromLatin1(name));
    }
    return qstrcmp(s_userAnswer.name, name) == 0 ? s_userAnswer.entry : next(name);
}

namespace
{
/** Records the calls of the library during its lifetime. */
class CallRecorder : public Calls
{
public:
    CallRecorder()
    {
        s_calls = this;
    }

    ~CallRecorder()
    {
        s_calls = nullptr;
    }

private:
    Q_DISABLE_COPY(CallRecorder)
};

QString opens(const QString &path)
{
    return path + QLatin1String(" r");
}
}

class AccountLookupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void readsPasswdOnceForAllUsers();
    void readsPasswdOnceForOneUser();
    void readsPasswdOnceForUserGroups();
    void readsPasswdOnceOnReload();
    void readsEachFileOnceForAllGroups();
    void readsNothingForEntryOfGroup();
    void asksForNobodyWithoutGroup();
    void asksOnceForEachGroup();
    void closesEveryFile();
    void looksAgainOnTheNextCall();
    void opensMissingPasswdOnce();
    void listsEmptyRecordOfGroupNotFoundByName();
    void keepsNamesOnReload();
    void isNoAdministratorThroughGroupOfEqualName();
};

void AccountLookupTest::init()
{
    Sandbox::setAccounts("root:x:0:0::/:\n"
                         "alice:x:1000:1000::/:/bin/sh\n"
                         "bob:x:1001:50::/:/bin/sh\n"
                         "carol:x:1002:50::/:/bin/sh\n",
                         "root:x:0:\n"
                         "ormel-admin:x:27:alice,bob\n"
                         "staff:x:50:alice\n"
                         "alice:x:1000:\n");
    Sandbox::removeExtraAccounts();
}

void AccountLookupTest::cleanup()
{
    s_groupAnswer = {};
    s_userAnswer = {};
}

void AccountLookupTest::readsPasswdOnceForAllUsers()
{
    CallRecorder calls;
    QCOMPARE(UserInfo::getUsers().size(), 4);
    QCOMPARE(calls.opened, QStringList({opens(passwdPath()), opens(passwdPath())}));
}

void AccountLookupTest::readsPasswdOnceForOneUser()
{
    CallRecorder calls;
    UserInfo::getUser(QStringLiteral("alice"));
    QCOMPARE(calls.opened, QStringList(opens(passwdPath())));
}

void AccountLookupTest::readsPasswdOnceForUserGroups()
{
    CallRecorder calls;
    UserInfo::getUserGroups(getpwnam("alice"));
    QCOMPARE(calls.opened, QStringList(opens(passwdPath())));
}

void AccountLookupTest::readsPasswdOnceOnReload()
{
    UserInfo alice = UserInfo::getUser(QStringLiteral("alice"));
    CallRecorder calls;
    alice.reload();
    QCOMPARE(calls.opened, QStringList(opens(passwdPath())));
}

void AccountLookupTest::readsEachFileOnceForAllGroups()
{
    CallRecorder calls;
    QCOMPARE(GroupInfo::getGroups().size(), 4);
    QCOMPARE(calls.opened, QStringList({opens(groupPath()), opens(passwdPath())}));
    QCOMPARE(calls.groupNames, QStringList());
}

void AccountLookupTest::readsNothingForEntryOfGroup()
{
    group *entry = getgrnam("staff");
    CallRecorder calls;
    GroupInfo::getGroup(entry);
    QCOMPARE(calls.opened, QStringList());
}

void AccountLookupTest::asksForNobodyWithoutGroup()
{
    char name[] = "";
    char *members[] = {nullptr};
    group entry{name, nullptr, 0, members};
    const GroupInfo nameless = GroupInfo::getGroup(&entry);

    CallRecorder calls;
    QVERIFY(!nameless.isPrimaryOf(QStringLiteral("root")));
    QVERIFY(!GroupInfo().isPrimaryOf(QStringLiteral("root")));
    QCOMPARE(calls.userNames, QStringList());
    QVERIFY(GroupInfo::getGroup(0u).isPrimaryOf(QStringLiteral("root")));
    QCOMPARE(calls.userNames, QStringList(QStringLiteral("root")));
}

void AccountLookupTest::asksOnceForEachGroup()
{
    CallRecorder calls;
    UserInfo::getUsers();
    QCOMPARE(calls.groupIds, QVector<gid_t>({0, 1000, 27, 50}));
    QCOMPARE(sorted(calls.groupNames),
             QStringList({
                 QStringLiteral("alice"),
                 QStringLiteral("ormel-admin"),
                 QStringLiteral("root"),
                 QStringLiteral("staff"),
             }));
}

void AccountLookupTest::closesEveryFile()
{
    CallRecorder calls;
    UserInfo::getUsers();
    GroupInfo::getGroups();
    GroupInfo::getPrimaryGroups();
    GroupInfo::getGroup(50u);
    QCOMPARE(calls.opened.size(), 6);
    QCOMPARE(calls.closed, calls.opened.size());
}

void AccountLookupTest::looksAgainOnTheNextCall()
{
    const UserInfo before = UserInfo::getUser(QStringLiteral("alice"));
    Sandbox::write(passwdPath(), "alice:x:1000:1000::/:\nzoe:x:1003:50::/:\n");
    const UserInfo after = UserInfo::getUser(QStringLiteral("alice"));

    QCOMPARE(describe(before.groups().last()), QStringLiteral("staff(50: alice bob carol)"));
    QCOMPARE(describe(after.groups().last()), QStringLiteral("staff(50: alice zoe)"));
}

void AccountLookupTest::opensMissingPasswdOnce()
{
    Sandbox::setExtraAccounts("extra:x:3000:3000::/:\n", "extra:x:3000:\nteam:x:3001:extra\n");
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;

    CallRecorder calls;
    UserInfo::getUser(QStringLiteral("extra"));
    QCOMPARE(calls.opened.count(opens(passwdPath())), 1);
    QCOMPARE(recorder.takeTexts().count(groupUnableToOpen(passwdPath())), 4);
}

void AccountLookupTest::listsEmptyRecordOfGroupNotFoundByName()
{
    Sandbox::write(groupPath(), "staff:x:50:alice\nalice:x:1000:\n");
    MessageRecorder recorder;

    s_groupAnswer.name = "staff";
    const UserInfo alice = UserInfo::getUser(QStringLiteral("alice"));
    QCOMPARE(describe(alice.groups()), QStringList({QStringLiteral("alice(1000: alice)"), describe(GroupInfo())}));
    QVERIFY(!alice.isOrmelAdmin());
    QCOMPARE(recorder.takeTexts(), QStringList({groupNotFound(QStringLiteral("staff")), noAdministrators()}));
}

void AccountLookupTest::keepsNamesOnReload()
{
    char otherName[] = "other";
    char nothing[] = "";
    passwd otherUser{otherName, nothing, 2000, 50, nothing, nothing, nothing};
    UserInfo alice = UserInfo::getUser(QStringLiteral("alice"));
    s_userAnswer = {"alice", &otherUser};
    alice.reload();
    QCOMPARE(alice.name(), QStringLiteral("alice"));
    QCOMPARE(alice.uid(), 2000u);

    char *members[] = {otherName, nullptr};
    group otherGroup{otherName, nullptr, 2001, members};
    GroupInfo staff = GroupInfo::getGroup(QStringLiteral("staff"));
    s_groupAnswer = {"staff", &otherGroup};
    staff.reload();
    QCOMPARE(describe(staff), QStringLiteral("staff(2001: other)"));
}

void AccountLookupTest::isNoAdministratorThroughGroupOfEqualName()
{
    char name[] = "ormel-admin";
    char *members[] = {nullptr};
    group entry{name, nullptr, 50, members};
    s_groupAnswer = {"staff", &entry};

    const UserInfo carol = UserInfo::getUser(QStringLiteral("carol"));
    QCOMPARE(carol.groupNames(), QStringList(QStringLiteral("ormel-admin")));
    QVERIFY(!carol.isOrmelAdmin());
}

QTEST_GUILESS_MAIN(AccountLookupTest)

#include "lookuptest.moc"

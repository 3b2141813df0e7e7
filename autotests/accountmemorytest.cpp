/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "describe.h"
#include "messagerecorder.h"
#include "sandbox.h"
#include "standin.h"

#include <UserInfo>

#include <QTest>

#include <cstdlib>

#include <pwd.h>

// The buffer for the group ids of an account, which runs out of memory on demand.

namespace
{
constexpr size_t idBufferSize = 16 * sizeof(gid_t);

enum class Failure { None, Buffer, LargerBuffer };

Failure s_failure = Failure::None;
void *s_idBuffer = nullptr;
int s_freedIdBuffers = 0;
}

extern "C" Q_DECL_EXPORT void *malloc(size_t size) noexcept
{
    static const auto next = original(malloc, "malloc");
    if (s_failure == Failure::Buffer && size == idBufferSize) {
        s_failure = Failure::None;
        return nullptr;
    }
    void *memory = next(size);
    if (s_failure == Failure::LargerBuffer && size == idBufferSize && !s_idBuffer) {
        s_idBuffer = memory;
    }
    return memory;
}

extern "C" Q_DECL_EXPORT void *realloc(void *memory, size_t size) noexcept
{
    static const auto next = original(realloc, "realloc");
    if (s_failure == Failure::LargerBuffer && memory && memory == s_idBuffer) {
        return nullptr;
    }
    return next(memory, size);
}

extern "C" Q_DECL_EXPORT void free(void *memory) noexcept
{
    static const auto next = original(free, "free");
    if (memory && memory == s_idBuffer) {
        ++s_freedIdBuffers;
    }
    next(memory);
}

class AccountMemoryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listsNoGroupsWithoutMemory();
    void listsNoGroupsWithoutMemoryForMore();
};

void AccountMemoryTest::init()
{
    QByteArray groups = "ormel-admin:x:27:alice\nalice:x:1000:\n";
    for (int gid = 100; gid < 120; ++gid) {
        groups += 'g' + QByteArray::number(gid) + ":x:" + QByteArray::number(gid) + ":alice\n";
    }
    Sandbox::setAccounts("alice:x:1000:1000::/:/bin/sh\n", groups);
    Sandbox::removeExtraAccounts();
    QCOMPARE(UserInfo::getUserGroups(getpwnam("alice")).size(), 22);
}

void AccountMemoryTest::listsNoGroupsWithoutMemory()
{
    passwd *entry = getpwnam("alice");
    MessageRecorder recorder;

    s_failure = Failure::Buffer;
    const UserInfo alice = UserInfo::getUser(entry);
    QVERIFY(s_failure == Failure::None);
    QCOMPARE(describe(alice),
             QStringLiteral("alice | 1000 | 1000 |  | / | /bin/sh | "
                            "primary alice(1000: alice) | groups  | no admin"));

    s_failure = Failure::Buffer;
    QVERIFY(UserInfo::getUserGroups(entry).isEmpty());
    QVERIFY(s_failure == Failure::None);
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void AccountMemoryTest::listsNoGroupsWithoutMemoryForMore()
{
    passwd *entry = getpwnam("alice");
    MessageRecorder recorder;

    s_failure = Failure::LargerBuffer;
    const QList<GroupInfo> none = UserInfo::getUserGroups(entry);
    s_failure = Failure::None;

    QVERIFY(none.isEmpty());
    QVERIFY(s_idBuffer);
    QCOMPARE(s_freedIdBuffers, 1);
    QCOMPARE(recorder.takeTexts(), QStringList());
}

QTEST_GUILESS_MAIN(AccountMemoryTest)

#include "accountmemorytest.moc"

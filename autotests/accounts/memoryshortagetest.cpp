/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "describe.h"
#include "messagerecorder.h"
#include "openfiles.h"
#include "sandbox.h"
#include "standin.h"

#include <UserInfo>

#include <QTest>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <grp.h>
#include <malloc.h>
#include <pwd.h>

// Account lookups when memory runs out.

namespace
{
constexpr size_t idBufferSize = 16 * sizeof(gid_t);
constexpr int manyMemberships = 65536;

/**
 * Whether @p caller is code of the library or of the C library. Qt and the C++ library end the program when
 * memory runs out.
 */
bool copesWithoutMemory(void *caller)
{
    Dl_info info{};
    return dladdr(caller, &info) && (strstr(info.dli_fname, "/libormel-users-qt.") || strstr(info.dli_fname, "/libc."));
}

/** Which allocations fail, and what happened to the others. */
struct Memory {
    enum Shortage { None, IdBuffer, LargerIdBuffer, OneRequest, AllRequests };

    Shortage shortage = None;
    int plentyFor = 0; ///< the number of allocations that succeed before the shortage begins
    int failures = 0;
    int blocks = 0; ///< allocated and not freed
    void *idBuffer = nullptr;
    int freedIdBuffers = 0;

    bool fails(void *caller)
    {
        const bool now = (shortage == AllRequests || (shortage == OneRequest && failures == 0))
            && copesWithoutMemory(caller) && plentyFor-- <= 0;
        failures += now;
        return now;
    }

    bool failsToGrow(void *memory, size_t size, void *caller)
    {
        if (shortage == LargerIdBuffer && memory && memory == idBuffer && size > idBufferSize) {
            const bool now = plentyFor-- <= 0;
            failures += now;
            return now;
        }
        // A block can always keep its size.
        return size > malloc_usable_size(memory) && fails(caller);
    }
};

Memory *s_memory = nullptr;
int s_membershipsClaimed = 0;
}

extern "C" Q_DECL_EXPORT void *malloc(size_t size) noexcept
{
    static const auto next = original(malloc, "malloc");
    if (!s_memory) {
        return next(size);
    }
    if (s_memory->shortage == Memory::IdBuffer && size == idBufferSize && s_memory->failures == 0) {
        ++s_memory->failures;
        return nullptr;
    }
    if (s_memory->fails(__builtin_return_address(0))) {
        errno = ENOMEM;
        return nullptr;
    }
    void *memory = next(size);
    ++s_memory->blocks;
    if (s_memory->shortage == Memory::LargerIdBuffer && size == idBufferSize && !s_memory->idBuffer) {
        s_memory->idBuffer = memory;
    }
    return memory;
}

extern "C" Q_DECL_EXPORT void *calloc(size_t count, size_t size) noexcept
{
    static const auto next = original(calloc, "calloc");
    if (!s_memory) {
        return next(count, size);
    }
    if (s_memory->fails(__builtin_return_address(0))) {
        errno = ENOMEM;
        return nullptr;
    }
    ++s_memory->blocks;
    return next(count, size);
}

extern "C" Q_DECL_EXPORT void *realloc(void *memory, size_t size) noexcept
{
    static const auto next = original(realloc, "realloc");
    if (!s_memory) {
        return next(memory, size);
    }
    if (s_memory->failsToGrow(memory, size, __builtin_return_address(0))) {
        errno = ENOMEM;
        return nullptr;
    }
    s_memory->blocks += !memory;
    void *moved = next(memory, size);
    if (memory && memory == s_memory->idBuffer) {
        s_memory->idBuffer = moved;
    }
    return moved;
}

extern "C" Q_DECL_EXPORT void free(void *memory) noexcept
{
    static const auto next = original(free, "free");
    if (s_memory && memory) {
        --s_memory->blocks;
        s_memory->freedIdBuffers += memory == s_memory->idBuffer;
    }
    next(memory);
}

/** Demands twice the room until it is enough, then fills it with the given group. */
extern "C" Q_DECL_EXPORT int getgrouplist(const char *user, gid_t group, gid_t *groups, int *count)
{
    static const auto next = original(getgrouplist, "getgrouplist");
    if (s_membershipsClaimed == 0) {
        return next(user, group, groups, count);
    }
    if (*count < s_membershipsClaimed) {
        *count *= 2;
        return -1;
    }
    std::fill_n(groups, s_membershipsClaimed, group);
    return s_membershipsClaimed;
}

namespace
{
/** Lets allocations fail during its lifetime. */
class MemoryShortage : public Memory
{
public:
    explicit MemoryShortage(Shortage kind, int plenty = 0)
    {
        shortage = kind;
        plentyFor = plenty;
        s_memory = this;
    }

    ~MemoryShortage()
    {
        s_memory = nullptr;
    }

private:
    Q_DISABLE_COPY(MemoryShortage)
};

/** Whether @p names are among @p all, in the same order. */
bool isPartOf(const QStringList &names, const QStringList &all)
{
    auto from = all.begin();
    for (const QString &name : names) {
        from = std::find(from, all.end(), name);
        if (from == all.end()) {
            return false;
        }
        ++from;
    }
    return true;
}

/** Whether @p group is complete, empty or lacks only members. */
bool isPartOf(const GroupInfo &group, const QList<GroupInfo> &complete)
{
    return group == GroupInfo() || std::any_of(complete.begin(), complete.end(), [&group](const GroupInfo &whole) {
               return group.name() == whole.name() && group.gid() == whole.gid()
                   && isPartOf(group.users(), whole.users());
           });
}

bool isPartOf(const QList<GroupInfo> &groups, const QList<GroupInfo> &complete)
{
    return std::all_of(
        groups.begin(), groups.end(), [&complete](const GroupInfo &group) { return isPartOf(group, complete); });
}
}

class AccountMemoryShortageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listsNoGroupsWithoutMemory();
    void listsNoGroupsWithoutMemoryForMore();
    void listsGroupsHoweverManyThereAre();
    void endsOnAnyShortage_data();
    void endsOnAnyShortage();
};

void AccountMemoryShortageTest::init()
{
    s_membershipsClaimed = 0;
    QByteArray groups = "ormel-admin:x:27:alice\nalice:x:1000:\n";
    for (int gid = 100; gid < 120; ++gid) {
        groups += 'g' + QByteArray::number(gid) + ":x:" + QByteArray::number(gid) + ":alice,bob\n";
    }
    Sandbox::setAccounts("alice:x:1000:1000::/:/bin/sh\ncarol:x:1001:1000::/:/bin/sh\n", groups);
    Sandbox::removeExtraAccounts();
    QCOMPARE(UserInfo::getUserGroups(getpwnam("alice")).size(), 22);
}

void AccountMemoryShortageTest::listsNoGroupsWithoutMemory()
{
    passwd *entry = getpwnam("alice");
    MessageRecorder recorder;
    {
        MemoryShortage memory(Memory::IdBuffer);
        const UserInfo alice = UserInfo::getUser(entry);
        QCOMPARE(memory.failures, 1);
        QCOMPARE(describe(alice),
                 QStringLiteral("alice | 1000 | 1000 |  | / | /bin/sh | "
                                "primary alice(1000: alice carol) | groups  | no admin"));
    }
    MemoryShortage memory(Memory::IdBuffer);
    QVERIFY(UserInfo::getUserGroups(entry).isEmpty());
    QCOMPARE(memory.failures, 1);
    QCOMPARE(recorder.takeTexts(), QStringList());
}

// The buffer grows twelve times. Each of these allocations can fail.
void AccountMemoryShortageTest::listsNoGroupsWithoutMemoryForMore()
{
    passwd *entry = getpwnam("alice");
    MessageRecorder recorder;

    s_membershipsClaimed = manyMemberships;
    for (int growths = 0; growths < 12; ++growths) {
        MemoryShortage memory(Memory::LargerIdBuffer, growths);
        QVERIFY(UserInfo::getUserGroups(entry).isEmpty());
        QCOMPARE(memory.failures, 1);
        QCOMPARE(memory.freedIdBuffers, 1);
        QCOMPARE(memory.blocks, 0);
    }
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void AccountMemoryShortageTest::listsGroupsHoweverManyThereAre()
{
    passwd *entry = getpwnam("alice");

    s_membershipsClaimed = manyMemberships;
    MemoryShortage memory(Memory::LargerIdBuffer, 12);
    const QList<GroupInfo> groups = UserInfo::getUserGroups(entry);
    QCOMPARE(groups.size(), manyMemberships);
    QCOMPARE(groups.count(groups.last()), manyMemberships);
    QCOMPARE(describe(groups.last()), QStringLiteral("alice(1000: alice carol)"));
    QCOMPARE(memory.failures, 0);
    QCOMPARE(memory.freedIdBuffers, 1);
}

void AccountMemoryShortageTest::endsOnAnyShortage_data()
{
    QTest::addColumn<int>("shortage");

    QTest::newRow("one request") << int(Memory::OneRequest);
    QTest::newRow("all from one on") << int(Memory::AllRequests);
}

// Each allocation of the library and the C library in one call fails in turn.
void AccountMemoryShortageTest::endsOnAnyShortage()
{
    QFETCH(int, shortage);
    passwd *entry = getpwnam("alice");
    const QList<GroupInfo> complete = UserInfo::getUserGroups(entry);
    const QStringList filesBefore = openFiles();
    {
        // The first message allocates memory that is never freed.
        MessageRecorder recorder;
        GroupInfo::getGroup(QString());
    }

    int requests = 0;
    for (bool failed = true; failed; ++requests) {
        MemoryShortage memory(static_cast<Memory::Shortage>(shortage), requests);
        bool right = false;
        {
            MessageRecorder recorder;
            right = isPartOf(UserInfo::getUserGroups(entry), complete);
            memory.shortage = Memory::None;
        }
        failed = memory.failures > 0;
        QVERIFY2(right, qPrintable(QString::number(requests)));
        QCOMPARE(memory.blocks, 0);
    }

    qInfo("%d requests for memory", requests - 1);
    QVERIFY(requests > 100);
    QCOMPARE(openFiles(), filesBefore);
    QCOMPARE(UserInfo::getUserGroups(entry), complete);
}

QTEST_GUILESS_MAIN(AccountMemoryShortageTest)

#include "memoryshortagetest.moc"

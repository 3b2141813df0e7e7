/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include <grp.h>
#include <nss.h>
#include <pwd.h>

// A name service that the C library loads when /etc/nsswitch.conf names it "faulty". The variable
// FAULTY_NAME_SERVICE chooses how it misbehaves. It knows one user, of any name or id asked for,
// and one group, of any but those in the local files.

namespace
{
using Status = nss_status;

struct User {
    std::string name = "ghost";
    std::string gecos = "Ghost";
    std::string home = "/home/ghost";
    std::string shell = "/bin/sh";
    bool nulls = false;
};

struct Group {
    std::string name = "crew";
    gid_t gid = 7000;
    std::vector<std::string> members{"alice", "ghost"};
    bool nulls = false;
};

struct FailingBehaviour {
    const char *behaviour;
    Status status;
    int error;
};

constexpr uid_t ghostId = 7000;
constexpr FailingBehaviour failures[] = {
    {"again", NSS_STATUS_TRYAGAIN, EAGAIN},
    {"never enough room", NSS_STATUS_TRYAGAIN, ERANGE},
    {"not found", NSS_STATUS_NOTFOUND, ENOENT},
    {"unavailable", NSS_STATUS_UNAVAIL, ECONNREFUSED},
};

int s_calls = 0;

bool behaves(const char *behaviour)
{
    const char *current = getenv("FAULTY_NAME_SERVICE");
    return current && strcmp(current, behaviour) == 0;
}

/** Begins each call. Returns success if there is an answer. */
Status begin(int *error)
{
    ++s_calls;
    if (behaves("slow")) {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    for (const FailingBehaviour &failure : failures) {
        if (behaves(failure.behaviour)) {
            *error = failure.error;
            return failure.status;
        }
    }
    return NSS_STATUS_SUCCESS;
}

User knownUser()
{
    User user;
    if (behaves("spaces")) {
        user = {" john smith ", "John  Smith", "/home/john smith", "/bin/sh -l"};
    } else if (behaves("long lines")) {
        user = {std::string(100000, 'u'), std::string(100000, 'g'), std::string(100000, 'h'), std::string(100000, 's')};
    } else if (behaves("changes")) {
        user.name += std::to_string(s_calls);
    }
    user.nulls = behaves("nulls");
    return user;
}

Group knownGroup()
{
    Group group;
    if (behaves("spaces")) {
        group = {"domain users", 7000, {"john smith", " "}};
    } else if (behaves("long lines")) {
        group = {std::string(100000, 'n'), 7000, {std::string(100000, 'm')}};
    } else if (behaves("duplicates")) {
        group.members = {"alice", "ghost", "alice", "ghost", "ghost"};
    } else if (behaves("crowd")) {
        for (int i = 0; i < 19000; ++i) {
            group.members.push_back("member" + std::to_string(i));
        }
    } else if (behaves("changes")) {
        const std::string number = std::to_string(s_calls);
        group = {"crew" + number, 7000 + static_cast<gid_t>(s_calls), {"member" + number}};
    }
    group.nulls = behaves("nulls");
    return group;
}

/** Allocates from the buffer that the C library passes. */
class Buffer
{
public:
    Buffer(char *memory, size_t size)
        : m_position(memory)
        , m_left(size)
    {
    }

    bool isEnough() const
    {
        return m_enough;
    }

    char *text(const std::string &text)
    {
        char *copy = take(text.size() + 1, 1);
        return copy ? static_cast<char *>(memcpy(copy, text.c_str(), text.size() + 1)) : nullptr;
    }

    char **texts(const std::vector<std::string> &texts)
    {
        auto **array = reinterpret_cast<char **>(take((texts.size() + 1) * sizeof(char *), alignof(char *)));
        for (size_t i = 0; array && i < texts.size(); ++i) {
            array[i] = text(texts[i]);
        }
        if (array) {
            array[texts.size()] = nullptr;
        }
        return array;
    }

private:
    char *take(size_t size, size_t alignment)
    {
        const size_t padding = -reinterpret_cast<uintptr_t>(m_position) % alignment;
        if (!m_enough || m_left < size + padding) {
            m_enough = false;
            return nullptr;
        }
        char *taken = m_position + padding;
        m_position = taken + size;
        m_left -= size + padding;
        return taken;
    }

    char *m_position;
    size_t m_left;
    bool m_enough = true;
};

Status answered(const Buffer &buffer, int *error)
{
    if (buffer.isEnough()) {
        return NSS_STATUS_SUCCESS;
    }
    --s_calls;
    *error = ERANGE;
    return NSS_STATUS_TRYAGAIN;
}

Status giveUser(passwd *entry, char *memory, size_t size, int *error)
{
    if (const Status status = begin(error); status != NSS_STATUS_SUCCESS) {
        return status;
    }
    *entry = {};
    entry->pw_uid = ghostId;
    entry->pw_gid = 7000;
    Buffer buffer(memory, size);
    if (const User known = knownUser(); !known.nulls) {
        entry->pw_name = buffer.text(known.name);
        entry->pw_passwd = buffer.text("x");
        entry->pw_gecos = buffer.text(known.gecos);
        entry->pw_dir = buffer.text(known.home);
        entry->pw_shell = buffer.text(known.shell);
    }
    return answered(buffer, error);
}

Status giveGroup(::group *entry, char *memory, size_t size, int *error)
{
    if (const Status status = begin(error); status != NSS_STATUS_SUCCESS) {
        return status;
    }
    const Group known = knownGroup();
    *entry = {};
    entry->gr_gid = known.gid;
    Buffer buffer(memory, size);
    entry->gr_name = buffer.text(known.name);
    if (!known.nulls) {
        entry->gr_passwd = buffer.text("x");
        entry->gr_mem = buffer.texts(known.members);
    }
    return answered(buffer, error);
}
}

#pragma GCC visibility push(default)
extern "C" {
Status _nss_faulty_getpwnam_r(const char * /*name*/, passwd *entry, char *memory, size_t size, int *error)
{
    return giveUser(entry, memory, size, error);
}

Status _nss_faulty_getpwuid_r(uid_t /*uid*/, passwd *entry, char *memory, size_t size, int *error)
{
    return giveUser(entry, memory, size, error);
}

Status _nss_faulty_getgrnam_r(const char * /*name*/, ::group *entry, char *memory, size_t size, int *error)
{
    return giveGroup(entry, memory, size, error);
}

Status _nss_faulty_getgrgid_r(gid_t /*gid*/, ::group *entry, char *memory, size_t size, int *error)
{
    return giveGroup(entry, memory, size, error);
}

Status _nss_faulty_initgroups_dyn(
    const char * /*user*/, gid_t /*group*/, long *start, long *size, gid_t **groups, long /*limit*/, int *error)
{
    const Status status = begin(error);
    --s_calls;
    if (status != NSS_STATUS_SUCCESS) {
        return status;
    }
    const int count = behaves("duplicates") ? 3 : 1;
    for (int i = 0; i < count; ++i) {
        if (*start == *size) {
            *size *= 2;
            *groups = static_cast<gid_t *>(realloc(*groups, static_cast<size_t>(*size) * sizeof(gid_t)));
        }
        (*groups)[(*start)++] = 7000;
    }
    return NSS_STATUS_SUCCESS;
}

/** The number of requests for users and groups since the last call. */
int takeFaultyNameServiceCalls()
{
    const int calls = s_calls;
    s_calls = 0;
    return calls;
}
}
#pragma GCC visibility pop

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

// Opens PAM sessions for the users whose names it reads, one a line, and prints what each session
// got:
//
//   pamsession SERVICE
//   pamsession --kernel SERVICE
//
// Without --kernel it stands in for the calls by which a module sets limits, and answers them as the
// kernel answers a process that may raise them. No session changes the process, so one process can
// open many, with any capabilities. What the first session has set is what the later ones begin with.
//
// With --kernel each session has a process of its own, and the limits are those that the kernel reports.

#include <QByteArray>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <string>

#include <dlfcn.h>
#include <security/pam_appl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utmp.h>

namespace
{
constexpr int limitCount = RLIM_NLIMITS;
using Limits = std::array<rlimit, limitCount>;

/** How many logins of other users a module finds. */
constexpr int foreignLogins = 1000;

constexpr std::array<const char *, limitCount> limitNames{
    "cpu",
    "fsize",
    "data",
    "stack",
    "core",
    "rss",
    "nproc",
    "nofile",
    "memlock",
    "as",
    "locks",
    "sigpending",
    "msgqueue",
    "nice",
    "rtprio",
    "rttime",
};

bool s_isRecording = false;
Limits s_limits;
rlim_t s_maxOpenFiles = 0;
int s_utmpEntry = 0;
/** What the module logged and did, a line each. */
std::string &records()
{
    static std::string lines;
    return lines;
}

void record(const std::string &line)
{
    records() += line + '\n';
}

template<typename Function>
Function original(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

/** Keeps the debugging messages of the module. */
void recordMessage(const std::string &message)
{
    const auto textAfter = [&message](const char *words) {
        const size_t found = message.find(words);
        return found == std::string::npos ? std::string() : message.substr(found + strlen(words));
    };
    const std::string rule = textAfter("process_limit: processing ");
    if (!rule.empty()) {
        record("rule " + rule);
    }
    if (!textAfter("unknown limit").empty() || !textAfter("wrong limit value").empty()) {
        record("bad rule");
    }
    const std::string maximum = textAfter("(maximum of ");
    if (!maximum.empty()) {
        record("logins " + maximum.substr(0, maximum.find(')')));
    }
}

void recordFormatted(const char *format, va_list arguments)
{
    char *message = nullptr;
    if (vasprintf(&message, format, arguments) >= 0) {
        recordMessage(message);
        free(message);
    }
}

int refuse(int error)
{
    errno = error;
    return -1;
}

int setRecorded(int resource, const rlimit &limit)
{
    if (limit.rlim_cur > limit.rlim_max) {
        return refuse(EINVAL);
    }
    if (resource == RLIMIT_NOFILE && limit.rlim_max > s_maxOpenFiles) {
        return refuse(EPERM);
    }
    s_limits.at(size_t(resource)) = limit;
    return 0;
}
}

// Stand in for functions of the C library and of libsystemd.
extern "C" {
Q_DECL_EXPORT int getrlimit(__rlimit_resource_t resource, rlimit *limit) noexcept
{
    if (!s_isRecording) {
        return prlimit(0, __rlimit_resource(resource), nullptr, limit);
    }
    *limit = s_limits.at(size_t(resource));
    return 0;
}

Q_DECL_EXPORT int setrlimit(__rlimit_resource_t resource, const rlimit *limit) noexcept
{
    return s_isRecording ? setRecorded(resource, *limit) : prlimit(0, __rlimit_resource(resource), limit, nullptr);
}

/** A login begins with 0, whatever the tests were started with. */
Q_DECL_EXPORT int getpriority(__priority_which_t which, id_t who) noexcept
{
    return s_isRecording ? 0 : original<int (*)(__priority_which_t, id_t)>("getpriority")(which, who);
}

Q_DECL_EXPORT int setpriority(__priority_which_t which, id_t who, int priority) noexcept
{
    if (!s_isRecording) {
        return original<int (*)(__priority_which_t, id_t, int)>("setpriority")(which, who, priority);
    }
    record("priority " + std::to_string(priority));
    return 0;
}

Q_DECL_EXPORT int prctl(int option, ...) noexcept
{
    va_list arguments;
    va_start(arguments, option);
    const auto second = va_arg(arguments, unsigned long);
    const auto third = va_arg(arguments, unsigned long);
    const auto fourth = va_arg(arguments, unsigned long);
    const auto fifth = va_arg(arguments, unsigned long);
    va_end(arguments);
    if (s_isRecording && option == PR_SET_NO_NEW_PRIVS) {
        record("nonewprivs 1");
        return 0;
    }
    using Prctl = int (*)(int, unsigned long, unsigned long, unsigned long, unsigned long);
    return original<Prctl>("prctl")(option, second, third, fourth, fifth);
}

Q_DECL_EXPORT int chdir(const char *path) noexcept
{
    return s_isRecording ? 0 : original<int (*)(const char *)>("chdir")(path);
}

Q_DECL_EXPORT int chroot(const char *path) noexcept
{
    if (!s_isRecording) {
        return original<int (*)(const char *)>("chroot")(path);
    }
    record(std::string("chroot ") + path);
    return 0;
}

Q_DECL_EXPORT void vsyslog(int /*priority*/, const char *format, va_list arguments)
{
    recordFormatted(format, arguments);
}

Q_DECL_EXPORT void syslog(int /*priority*/, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    recordFormatted(format, arguments);
    va_end(arguments);
}

Q_DECL_EXPORT void
__syslog_chk(int /*priority*/, int /*flag*/, const char *format, ...) // NOLINT(bugprone-reserved-identifier)
{
    va_list arguments;
    va_start(arguments, format);
    recordFormatted(format, arguments);
    va_end(arguments);
}

Q_DECL_EXPORT void setutent()
{
    s_utmpEntry = 0;
}

Q_DECL_EXPORT void endutent()
{
}

Q_DECL_EXPORT utmp *getutent()
{
    static utmp entry;
    if (s_utmpEntry++ == foreignLogins) {
        return nullptr;
    }
    entry = {};
    entry.ut_type = USER_PROCESS;
    entry.ut_pid = getpid();
    strcpy(entry.ut_user, "elsewhere");
    return &entry;
}

Q_DECL_EXPORT int sd_get_sessions(char ***sessions)
{
    *sessions = static_cast<char **>(calloc(foreignLogins + 1, sizeof(char *)));
    for (int i = 0; i < foreignLogins; ++i) {
        (*sessions)[i] = strdup("session");
    }
    return foreignLogins;
}

Q_DECL_EXPORT int sd_session_get_username(const char * /*session*/, char **name)
{
    *name = strdup("elsewhere");
    return 0;
}

Q_DECL_EXPORT int sd_session_get_class(const char * /*session*/, char **name)
{
    *name = strdup("user");
    return 0;
}
}

namespace
{
int converse(int count, const pam_message ** /*messages*/, pam_response **responses, void * /*data*/)
{
    *responses = static_cast<pam_response *>(calloc(size_t(count), sizeof(pam_response)));
    return PAM_SUCCESS;
}

int openSession(const char *service, const std::string &user)
{
    const pam_conv conversation{converse, nullptr};
    pam_handle_t *handle = nullptr;
    int result = pam_start(service, user.c_str(), &conversation, &handle);
    if (result == PAM_SUCCESS) {
        s_isRecording = s_maxOpenFiles > 0;
        result = pam_open_session(handle, 0);
        s_isRecording = false;
    }
    // The first handle is kept, so that the module need not be loaded for each session.
    static pam_handle_t *const s_first = handle;
    if (handle != s_first) {
        pam_end(handle, result);
    }
    return result;
}

std::string describe(rlim_t limit)
{
    return limit == RLIM_INFINITY ? "unlimited" : std::to_string(limit);
}

void tell(int result, const Limits &limits)
{
    std::cout << records() << "result " << result << '\n';
    for (size_t i = 0; i < limits.size(); ++i) {
        std::cout << "limit " << limitNames.at(i) << ' ' << describe(limits.at(i).rlim_cur) << ' '
                  << describe(limits.at(i).rlim_max) << '\n';
    }
    std::cout << "end" << std::endl;
}

Limits ownLimits()
{
    Limits limits;
    for (size_t i = 0; i < limits.size(); ++i) {
        prlimit(0, __rlimit_resource(i), nullptr, &limits.at(i));
    }
    return limits;
}

rlim_t readMaxOpenFiles()
{
    rlim_t number = 0;
    if (FILE *file = fopen("/proc/sys/fs/nr_open", "re")) {
        if (fscanf(file, "%lu", &number) != 1) {
            number = 0;
        }
        fclose(file);
    }
    return number;
}

void serveRecorded(const char *service)
{
    s_maxOpenFiles = readMaxOpenFiles();
    Limits initial;
    initial.fill({RLIM_INFINITY, RLIM_INFINITY});
    initial.at(RLIMIT_NOFILE) = {s_maxOpenFiles, s_maxOpenFiles};
    bool isFirst = true;
    for (std::string user; std::getline(std::cin, user);) {
        records().clear();
        s_limits = initial;
        const int result = openSession(service, user);
        if (isFirst) {
            initial = s_limits;
            isFirst = false;
        }
        tell(result, s_limits);
    }
}

void serveKernel(const char *service)
{
    for (std::string user; std::getline(std::cin, user);) {
        const pid_t child = fork();
        if (child == 0) {
            const int result = openSession(service, user);
            tell(result, ownLimits());
            _exit(0);
        }
        waitpid(child, nullptr, 0);
    }
}
}

int main(int count, char **arguments)
{
    const bool isForKernel = count == 3 && strcmp(arguments[1], "--kernel") == 0;
    if (count != 2 && !isForKernel) {
        std::cerr << "usage: pamsession [--kernel] SERVICE\n";
        return 2;
    }
    if (isForKernel) {
        serveKernel(arguments[2]);
    } else {
        serveRecorded(arguments[1]);
    }
    return 0;
}

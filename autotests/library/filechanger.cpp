/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include <cstdio>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

// Changes files until it is killed: replaces, truncates, grows and removes them.
//
//   filechanger (PATH VERSION VERSION)...
//
// It says when it begins. What a file holds from then on is the beginning of one of its versions.

namespace
{
size_t below(size_t bound)
{
    static std::mt19937 random(1);
    return random() % bound;
}

class ChangingFile
{
public:
    ChangingFile(const char *path, const char *version, const char *otherVersion)
        : m_path(path)
        , m_versions{contentOf(version), contentOf(otherVersion)}
    {
        replace();
    }

    void change()
    {
        using Change = void (ChangingFile::*)();
        static constexpr Change changes[] = {
            &ChangingFile::replace,
            &ChangingFile::truncate,
            &ChangingFile::grow,
            &ChangingFile::grow,
            &ChangingFile::growWhole,
            &ChangingFile::remove,
        };
        (this->*changes[below(std::size(changes))])();
    }

private:
    static std::string contentOf(const char *path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    void replace()
    {
        m_version = below(2);
        m_size = 0;
        const std::string path = m_path + "-new";
        append(path, current().size());
        rename(path.c_str(), m_path.c_str());
    }

    void truncate()
    {
        const size_t size = below(m_size + 1);
        if (::truncate(m_path.c_str(), static_cast<off_t>(size)) == 0) {
            m_size = size;
        }
    }

    void grow()
    {
        append(m_path, below(current().size() - m_size + 1));
    }

    void growWhole()
    {
        append(m_path, current().size() - m_size);
    }

    void remove()
    {
        unlink(m_path.c_str());
        m_size = 0;
    }

    void append(const std::string &path, size_t size)
    {
        const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
        const ssize_t written = write(file, current().data() + m_size, size);
        close(file);
        m_size += written > 0 ? static_cast<size_t>(written) : 0;
    }

    const std::string &current() const
    {
        return m_versions[m_version];
    }

    std::string m_path;
    std::string m_versions[2];
    size_t m_version = 0;
    size_t m_size = 0;
};
}

int main(int argc, char *argv[])
{
    std::vector<ChangingFile> files;
    for (int i = 1; i + 2 < argc; i += 3) {
        files.emplace_back(argv[i], argv[i + 1], argv[i + 2]);
    }
    if (files.empty()) {
        fputs("usage: filechanger (PATH VERSION VERSION)...\n", stderr);
        return 2;
    }
    puts("ready");
    fflush(stdout);
    for (;;) {
        files[below(files.size())].change();
        if (below(16) == 0) {
            usleep(static_cast<useconds_t>(below(200)));
        }
    }
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "textlines.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
/** Longer than any line that somebody writes on purpose. */
constexpr ssize_t longestLine = 64L * 1024 * 1024;

struct StreamCloser {
    void operator()(FILE *stream) const
    {
        fclose(stream);
    }
};
using Stream = std::unique_ptr<FILE, StreamCloser>;

/** A null stream, with errno set, when the file cannot be read. */
Stream openRegularFile(const char *path)
{
    const int descriptor = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0) {
        return nullptr;
    }
    struct stat status = {};
    if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
        return Stream(fdopen(descriptor, "r"));
    }
    close(descriptor);
    errno = EINVAL;
    return nullptr;
}

/** The buffer of getline(), which grows. */
struct LineBuffer {
    char *text = nullptr;
    size_t size = 0;

    LineBuffer() = default;
    Q_DISABLE_COPY(LineBuffer)
    ~LineBuffer()
    {
        free(text);
    }
};
}

TextLines readTextLines(const char *path)
{
    TextLines result;
    const Stream stream = openRegularFile(path);
    if (!stream) {
        result.error = errno;
        return result;
    }
    LineBuffer buffer;
    errno = 0;
    for (ssize_t length = 0; (length = getline(&buffer.text, &buffer.size, stream.get())) > 0;) {
        if (length > longestLine) {
            result.error = EFBIG;
            return result;
        }
        const bool ended = buffer.text[length - 1] == '\n';
        result.lines.append(QByteArray(buffer.text, int(length) - int(ended)));
    }
    result.error = ferror(stream.get()) ? errno : 0;
    return result;
}

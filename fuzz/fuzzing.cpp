/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "fuzzing.h"

#include <QApplication>
#include <QDebug>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#ifdef BUILD_FUZZERS
#include <sanitizer/allocator_interface.h>
#else
#include <malloc.h>
#endif

namespace
{
/** Ignores what Qt says about damaged files, since these warnings are not tested here. */
void printFatalMessage(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text)
{
    if (type == QtFatalMsg) {
        fprintf(stderr, "%s\n", qPrintable(text));
        abort();
    }
}
}

// The two functions that the engine calls.

// NOLINTNEXTLINE(readability-non-const-parameter): the application keeps a reference to it
extern "C" int LLVMFuzzerInitialize(int *count, char ***arguments)
{
    // Never deleted, because windows that targets keep live longer than static objects here.
    static const auto *const application = new QApplication(*count, *arguments);
    Q_UNUSED(application)
    qInstallMessageHandler(printFatalMessage);
    Target::prepare();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Target::run(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    return 0;
}

void Fuzzing::require(bool kept, const QString &promise)
{
    if (!kept) {
        printFatalMessage(QtFatalMsg, QMessageLogContext(), promise);
    }
}

void Fuzzing::requireEqual(const QString &actual, const QString &expected, const char *about)
{
    if (actual != expected) { // with unprintable characters as escapes
        QString message;
        QDebug(&message) << about << "\nActual  " << actual << "\nExpected" << expected;
        require(false, message);
    }
}

QList<QByteArray> Fuzzing::sections(const QByteArray &input, int count)
{
    QList<QByteArray> sections{QByteArray()};
    int begin = 0;
    while (begin < input.size()) {
        const int end = input.indexOf('\n', begin) + 1;
        const QByteArray line = input.mid(begin, end > 0 ? end - begin : -1);
        if (line == "---\n") {
            sections.append(QByteArray());
        } else {
            sections.last() += line;
        }
        begin += line.size();
    }
    while (sections.size() < count) {
        sections.append(QByteArray());
    }
    return sections;
}

Fuzzing::Command::Command(const QByteArray &line)
    : m_words(line.split(' '))
{
}

const QByteArray &Fuzzing::Command::verb() const
{
    return m_words.first();
}

int Fuzzing::Command::argumentCount() const
{
    return m_words.size() - 1;
}

QString Fuzzing::Command::text(int position) const
{
    const QByteArray word = m_words.value(position + 1);
    return QString::fromLatin1(word.constData(), word.size());
}

QStringList Fuzzing::Command::textsFrom(int position) const
{
    QStringList texts;
    for (int i = position; i < argumentCount(); ++i) {
        texts.append(text(i));
    }
    return texts;
}

int Fuzzing::Command::number(int position, int lowest, int highest) const
{
    return std::clamp(m_words.value(position + 1).toInt(), lowest, highest);
}

QList<Fuzzing::Command> Fuzzing::commands(const QByteArray &script, int most)
{
    QList<Command> commands;
    const QList<QByteArray> lines = script.split('\n').mid(0, most);
    for (const QByteArray &line : lines) {
        commands.append(Command(line));
    }
    return commands;
}

size_t Fuzzing::allocatedBytes()
{
#ifdef BUILD_FUZZERS
    return __sanitizer_get_current_allocated_bytes();
#else
    return mallinfo2().uordblks;
#endif
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "randomscript.h"

#include <algorithm>

#include <dlfcn.h>

namespace
{
RandomScript *s_script = nullptr;

using FillRange = void (*)(QRandomGenerator *generator, void *buffer, void *bufferEnd);
}

// Replaces the function of Qt that every generator calls.
void QRandomGenerator::_fillRange(void *buffer, void *bufferEnd)
{
    static const auto next = reinterpret_cast<FillRange>(dlsym(RTLD_NEXT, "_ZN16QRandomGenerator10_fillRangeEPvS0_"));
    auto *begin = static_cast<quint32 *>(buffer);
    auto *end = static_cast<quint32 *>(bufferEnd);
    begin += RandomScript::replace(this, begin, int(end - begin));
    if (begin != end) {
        next(this, begin, end);
    }
}

RandomScript::RandomScript(QVector<quint32> draws)
    : m_draws(std::move(draws))
{
    Q_ASSERT(!s_script);
    s_script = this;
}

RandomScript::~RandomScript()
{
    s_script = nullptr;
}

int RandomScript::systemDraws() const
{
    return m_system;
}

int RandomScript::globalDraws() const
{
    return m_global;
}

int RandomScript::otherDraws() const
{
    return m_other;
}

int RandomScript::replace(const QRandomGenerator *generator, quint32 *buffer, int count)
{
    if (!s_script) {
        return 0;
    }
    if (generator == QRandomGenerator::system()) {
        s_script->m_system += count;
    } else if (generator == QRandomGenerator::global()) {
        s_script->m_global += count;
    } else {
        s_script->m_other += count;
    }
    const int given = std::min(count, s_script->m_draws.size());
    std::copy_n(s_script->m_draws.cbegin(), given, buffer);
    s_script->m_draws.remove(0, given);
    return given;
}

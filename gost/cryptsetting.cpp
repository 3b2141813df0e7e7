/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "cryptsetting_p.h"

#include <algorithm>
#include <charconv>

namespace
{
constexpr unsigned fewestRounds = 1000;
constexpr unsigned mostRounds = 999999999;
constexpr std::size_t longestSalt = 16;

constexpr std::string_view roundsPrefix = "rounds=";

/** Removes @p prefix from the start of @p text, if it is there. */
bool skip(std::string_view &text, std::string_view prefix)
{
    if (text.substr(0, prefix.size()) != prefix) {
        return false;
    }
    text.remove_prefix(prefix.size());
    return true;
}

/** Whether @p c may be in a hash. Signs that separate fields, begin comments, lock accounts or escape may not. */
bool isAllowed(char c)
{
    constexpr std::string_view special = "!*:;\\";
    return c > ' ' && c <= '~' && special.find(c) == std::string_view::npos;
}

/** Takes the number and the "$" from the start of @p text. */
bool parseRounds(std::string_view &text, unsigned &rounds)
{
    const char *textEnd = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), textEnd, rounds);
    if (error != std::errc() || text.front() == '0' || rounds < fewestRounds || rounds > mostRounds) {
        return false;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return skip(text, "$");
}
}

std::optional<CryptSetting> parseCryptSetting(std::string_view prefix, std::string_view text)
{
    if (!skip(text, prefix) || !std::all_of(text.begin(), text.end(), isAllowed)) {
        return std::nullopt;
    }
    CryptSetting setting;
    setting.hasExplicitRounds = skip(text, roundsPrefix);
    if (setting.hasExplicitRounds && !parseRounds(text, setting.rounds)) {
        return std::nullopt;
    }
    setting.salt = text.substr(0, std::min(text.find('$'), longestSalt));
    return setting;
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CRYPTSETTING_P_H
#define CRYPTSETTING_P_H

#include <optional>
#include <string_view>

/** What a setting such as "$6$rounds=10000$saltstring$" asks for. */
struct CryptSetting {
    /** At most 16 characters; a part of the text that was parsed. */
    std::string_view salt;
    unsigned rounds = 5000;
    bool hasExplicitRounds = false;
};

/**
 * Takes @p text apart: @p prefix, "rounds=N$" or nothing, the salt and, perhaps, "$" and anything
 * that may stand in a shadow file.
 *
 * @return nothing when the text has another form, a character that could break a shadow file or
 * an N that is not a plain number from 1000 to 999999999.
 */
std::optional<CryptSetting> parseCryptSetting(std::string_view prefix, std::string_view text);

#endif

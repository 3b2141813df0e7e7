/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "newaccountcheck.h"

#include "inputcheck.h"
#include "readingorder.h"
#include "visibletext.h"

#include <UserUtils>

#include <KLocalizedString>

#include <QValidator>

#include <algorithm>
#include <limits>

namespace
{
constexpr uint firstOrdinaryUid = 1000;
constexpr uint nobody = 65534;

/** The rules of the library, in words. A pattern from /etc/adduser.conf can only be shown as it is. */
QString ruleInWords(const QString &pattern)
{
    if (pattern == QLatin1String("[a-z][a-z0-9\\_\\-]*")) {
        return i18n("a user name begins with a lowercase letter; lowercase letters, digits, '_' and '-' may follow");
    }
    if (pattern == QLatin1String("[a-z_][a-z0-9_-]*[$]?")) {
        return i18n("a group name begins with a lowercase letter or '_'; lowercase letters, digits, '_' and '-' may "
                    "follow, and '$' at the end");
    }
    return {};
}

NewAccountCheck::Note checkRule(const QValidator &validator, const QString &name)
{
    InputCheck check = checkInput(validator, name, longestName);
    if (name.isEmpty() || check.state == QValidator::Acceptable) {
        return {};
    }
    const QString words = check.exceededLength == anyLength ? ruleInWords(check.pattern) : QString();
    check.pattern = ReadingOrder::leftToRight(check.pattern);
    return {words.isEmpty() ? check.toString() : check.toString(words), true};
}

/** Whether useradd refuses a name, or would make a home directory elsewhere. */
bool isRefusedByTools(const QString &name)
{
    const auto separates = [](QChar character) {
        return character.isSpace() || QStringLiteral(":,/").contains(character) || !character.isPrint();
    };
    return name.startsWith(QLatin1Char('-')) || name.startsWith(QLatin1Char('+')) || name.startsWith(QLatin1Char('~'))
        || name == QLatin1String(".") || name == QLatin1String("..")
        || std::any_of(name.begin(), name.end(), separates);
}
}

NewAccountCheck::NewAccountCheck()
    : m_userNames(UserUtils::createUserNameValidator(nullptr))
    , m_groupNames(UserUtils::createGroupNameValidator(nullptr))
    , m_gecos(UserUtils::createGecosValidator(nullptr))
{
}

NewAccountCheck::~NewAccountCheck() = default;

void NewAccountCheck::readRules()
{
    m_userNames.reset(UserUtils::createUserNameValidator(nullptr));
}

void NewAccountCheck::setUsers(const QVector<UserRecord> &users)
{
    m_users.clear();
    m_uids.clear();
    for (const UserRecord &user : users) {
        m_users.insert(user.name);
        m_uids.insert(user.uid, user.name);
    }
}

void NewAccountCheck::setGroups(const QVector<GroupRecord> &groups)
{
    m_groups.clear();
    for (const GroupRecord &group : groups) {
        m_groups.insert(group.name);
    }
}

bool NewAccountCheck::hasGroup(const QString &name) const
{
    return m_groups.contains(name);
}

NewAccountCheck::Note NewAccountCheck::userName(const QString &name, const QString &group) const
{
    if (m_users.contains(name)) {
        return {i18n("There is already a user of this name."), true};
    }
    Note rule = checkRule(*m_userNames, name);
    if (rule.isRefused) {
        return rule;
    }
    if (isRefusedByTools(name)) {
        return {i18n("rejected: a name must not begin with '-', '+' or '~', or contain a colon, a comma, a slash or a "
                     "blank"),
                true};
    }
    if (group.isEmpty() && hasGroup(name)) {
        return {i18n("There is already a group of this name. To make it the primary group, enter it below."), true};
    }
    return {};
}

NewAccountCheck::Note NewAccountCheck::groupName(const QString &name) const
{
    Note rule = checkRule(*m_groupNames, name);
    if (rule.isRefused || !hasGroup(name)) {
        return rule;
    }
    return {i18n("There is already a group of this name. It becomes the primary group."), false};
}

NewAccountCheck::Note NewAccountCheck::uid(const QString &number) const
{
    if (number.isEmpty()) {
        return {};
    }
    const auto isDigit = [](QChar character) { return character >= QLatin1Char('0') && character <= QLatin1Char('9'); };
    bool isNumber = false;
    const uint uid = number.toUInt(&isNumber);
    if (!isNumber || !std::all_of(number.begin(), number.end(), isDigit) || uid == std::numeric_limits<uint>::max()) {
        return {i18n("rejected: a UID is a number up to 4294967294"), true};
    }
    if (m_uids.contains(uid)) {
        return {i18n("rejected: this is the UID of %1", VisibleText::isolated(m_uids.value(uid))), true};
    }
    const bool isSystem = uid < firstOrdinaryUid || uid == nobody;
    return {isSystem ? i18n("This UID makes it a system account.") : QString(), false};
}

NewAccountCheck::Note NewAccountCheck::gecosField(const QString &text, bool takesEquals) const
{
    // Any comma besides those that separate the five subfields is one too many.
    if (checkInput(*m_gecos, text + QLatin1String(",,,,"), anyLength).state != QValidator::Acceptable) {
        return {i18n("rejected: commas separate these fields"), true};
    }
    if (text.contains(QLatin1Char(':'))) {
        return {i18n("rejected: a colon separates the fields of /etc/passwd"), true};
    }
    if (!takesEquals && text.contains(QLatin1Char('='))) {
        return {i18n("rejected: chfn does not accept an equals sign"), true};
    }
    if (VisibleText::fromText(text) != text) {
        return {i18n("rejected: the text contains an invisible character"), true};
    }
    return {};
}

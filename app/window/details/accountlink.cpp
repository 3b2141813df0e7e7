/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountlink.h"

#include "visibletext.h"

#include <QUrl>

#include <algorithm>
#include <iterator>

namespace
{
const struct {
    AccountLink::Kind kind;
    QLatin1String prefix;
} kinds[] = {
    {AccountLink::Kind::User, QLatin1String("user:")},
    {AccountLink::Kind::Group, QLatin1String("group:")},
    {AccountLink::Kind::Limit, QLatin1String("limit:")},
    {AccountLink::Kind::Problem, QLatin1String("problem:")},
    {AccountLink::Kind::NewAccount, QLatin1String("new-account:")},
};
}

QString AccountLink::toUrl() const
{
    const auto *const found =
        std::find_if(std::begin(kinds), std::end(kinds), [this](const auto &entry) { return entry.kind == kind; });
    return found->prefix + QString::fromLatin1(QUrl::toPercentEncoding(name));
}

AccountLink AccountLink::fromUrl(const QString &url)
{
    const auto *const found = std::find_if(
        std::begin(kinds), std::end(kinds), [&url](const auto &entry) { return url.startsWith(entry.prefix); });
    if (found == std::end(kinds)) {
        return {};
    }
    return {found->kind, QUrl::fromPercentEncoding(url.mid(found->prefix.size()).toLatin1())};
}

QString AccountLink::toRichText() const
{
    const QString text = VisibleText::isolated(name);
    return QStringLiteral("<a href=\"%1\">%2</a>").arg(toUrl(), text.toHtmlEscaped());
}

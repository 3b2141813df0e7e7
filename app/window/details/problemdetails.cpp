/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "problemdetails.h"

#include "linklabel.h"
#include "pagelayout.h"
#include "plaintext.h"
#include "problem.h"
#include "readingorder.h"

#include <KLocalizedString>

#include <QGridLayout>
#include <QLabel>

namespace
{
QString linkTitle(AccountLink::Kind kind)
{
    switch (kind) {
    case AccountLink::Kind::User:
        return i18nc("@label of a link", "User:");
    case AccountLink::Kind::Group:
        return i18nc("@label of a link", "Group:");
    default:
        return i18nc("@label of a link to a line of a file", "Line:");
    }
}

bool isInLimits(const Problem &problem)
{
    return problem.file.startsWith(QLatin1String("/etc/security/")) && problem.line > 0;
}
}

ProblemDetails::ProblemDetails(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QGridLayout(this))
    , m_text(addText("problemText", i18nc("@label what was found", "Problem:")))
    , m_meaning(addText("problemMeaning", i18nc("@label of a problem", "What it means:")))
    , m_remedy(addText("problemRemedy", i18nc("@label of a problem", "What to do:")))
    , m_link(new LinkLabel(this))
    , m_linkTitle(PageLayout::addRow(m_layout, QString(), m_link))
{
    m_layout->setContentsMargins({});
    m_link->setObjectName(QStringLiteral("problemLink"));
    connect(m_link, &LinkLabel::followed, this, &ProblemDetails::followed);
}

QLabel *ProblemDetails::addText(const char *name, const QString &title)
{
    auto *label = PlainText::createLabel(name, this);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    PageLayout::addRow(m_layout, title, label);
    return label;
}

void ProblemDetails::showProblem(const Problem &problem)
{
    m_text->setText(problem.shownText());
    m_meaning->setText(ReadingOrder::ofSentence(problem.meaning()));
    m_remedy->setText(ReadingOrder::ofSentence(problem.remedy()));
    showLink(linkOf(problem));
}

void ProblemDetails::showLink(const std::optional<AccountLink> &link)
{
    m_linkTitle->setVisible(link.has_value());
    m_link->setVisible(link.has_value());
    if (link) {
        m_linkTitle->setText(linkTitle(link->kind));
        m_link->setLinks(link->kind, {link->name});
    }
}

std::optional<AccountLink> ProblemDetails::linkOf(const Problem &problem)
{
    if (!problem.user.isEmpty()) {
        return AccountLink{AccountLink::Kind::User, problem.user};
    }
    if (!problem.group.isEmpty()) {
        return AccountLink{AccountLink::Kind::Group, problem.group};
    }
    return isInLimits(problem) ? std::optional(AccountLink{AccountLink::Kind::Limit, problem.place()}) : std::nullopt;
}

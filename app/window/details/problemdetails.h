/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PROBLEMDETAILS_H
#define PROBLEMDETAILS_H

#include "accountlink.h"

#include <QWidget>

#include <optional>

class LinkLabel;
class QGridLayout;
class QLabel;
struct Problem;

/** What a problem means, what to do, and a link to what it is about. */
class ProblemDetails : public QWidget
{
    Q_OBJECT

public:
    explicit ProblemDetails(QWidget *parent = nullptr);

    void showProblem(const Problem &problem);

    /** The account of @p problem, or its line of the limits files; none when it is about something else. */
    static std::optional<AccountLink> linkOf(const Problem &problem);

Q_SIGNALS:
    void followed(const AccountLink &link);

private:
    QLabel *addText(const char *name, const QString &title);
    void showLink(const std::optional<AccountLink> &link);

    QGridLayout *const m_layout;
    QLabel *m_text = nullptr;
    QLabel *m_meaning = nullptr;
    QLabel *m_remedy = nullptr;
    LinkLabel *m_link = nullptr;
    QLabel *m_linkTitle = nullptr;
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PROBLEMSPAGE_H
#define PROBLEMSPAGE_H

#include "listpage.h"

class KMessageWidget;
class ProblemDetails;
class ProblemModel;
class ProblemStore;
class QAction;

/** The problems of the machine, what they mean, and what to do. */
class ProblemsPage : public ListPage
{
    Q_OBJECT

public:
    explicit ProblemsPage(const ProblemStore *store, QWidget *parent = nullptr);

protected:
    void showRecord(int record) override;

private:
    ProblemsPage(const ProblemStore *store, ProblemModel *model, QWidget *parent);
    void addLinkAction();
    void showResult();
    void follow(int record);

    const ProblemStore *const m_store;
    ProblemModel *const m_model;
    KMessageWidget *const m_unchecked;
    ProblemDetails *const m_details;
    QAction *m_linkAction = nullptr;
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "problemspage.h"

#include "messages.h"
#include "problemdetails.h"
#include "problemmodel.h"
#include "problemstore.h"
#include "recordview.h"
#include "visibletext.h"

#include <KLocalizedString>

#include <QAction>
#include <QVBoxLayout>

#include <algorithm>

namespace
{
/** The text to show when there are no problems. */
QString noProblems(const ProblemStore &store)
{
    const QList<UnreadFile> &unread = store.check().unreadFiles;
    const bool isComplete =
        std::all_of(unread.begin(), unread.end(), [](const UnreadFile &file) { return file.isExpected; });
    return store.hasChecked() && isComplete ? i18n("No problems found.") : QString();
}

/** A line for each file that could not be read: those for which that is normal, or the others. */
QString unreadText(const QList<UnreadFile> &files, bool isExpected)
{
    QStringList lines;
    for (const UnreadFile &file : files) {
        if (file.isExpected == isExpected) {
            const QString path = VisibleText::isolated(file.path);
            const QString reason = VisibleText::isolated(file.reason);
            lines.append(isExpected ? i18n("'%1' is not checked: %2", path, reason)
                                    : i18n("Cannot read '%1': %2", path, reason));
        }
    }
    return lines.join(QLatin1Char('\n'));
}

RecordList *createList(const ProblemStore *store, ProblemModel *model)
{
    RecordList::Texts texts;
    texts.name = i18nc("@title of a list", "Problems");
    // In the order of ProblemModel::Filter.
    texts.filters = QStringList({
        i18nc("@item:inlistbox", "All problems"),
        i18nc("@item:inlistbox", "Errors and warnings"),
        i18nc("@item:inlistbox", "Errors"),
        i18nc("@item:inlistbox", "Notes"),
    });
    texts.noMatch = [] { return i18n("No problem matches."); };
    texts.none = [store] { return noProblems(*store); };
    texts.count = [](int shown, int total) {
        return shown == total
            ? i18np("%1 problem", "%1 problems", total)
            : i18ncp("@info how many of all problems are shown", "%2 of %1 problem", "%2 of %1 problems", total, shown);
    };
    auto *list = new RecordList(QStringLiteral("problemList"), model, texts);
    RecordView *view = list->view();
    view->setShownColumns({
        ProblemModel::SeverityColumn,
        ProblemModel::TextColumn,
        ProblemModel::AccountColumn,
        ProblemModel::PlaceColumn,
    });
    view->setWideColumn(ProblemModel::TextColumn);
    return list;
}
}

ProblemsPage::ProblemsPage(const ProblemStore *store, QWidget *parent)
    : ProblemsPage(store, new ProblemModel, parent)
{
}

ProblemsPage::ProblemsPage(const ProblemStore *store, ProblemModel *model, QWidget *parent)
    : ListPage(AccountLink::Kind::Problem, createList(store, model), parent)
    , m_store(store)
    , m_model(model)
    , m_unchecked(Messages::create(KMessageWidget::Information, this))
    , m_details(new ProblemDetails(this))
{
    m_model->setParent(this);
    m_unchecked->setObjectName(QStringLiteral("uncheckedFiles"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_unchecked);
    layout->addWidget(list(), 1);
    layout->addWidget(m_details);
    addLinkAction();
    ProblemsPage::showRecord(-1);
    connect(m_details, &ProblemDetails::followed, this, &ListPage::followed);
    connect(list()->view(), &RecordView::recordActivated, this, &ProblemsPage::follow);
    connect(store, &ProblemStore::ended, this, &ProblemsPage::showResult);
}

void ProblemsPage::addLinkAction()
{
    m_linkAction = new QAction(i18nc("@action:inmenu the user, group or line of a problem", "Sho&w Where It Is"), this);
    connect(m_linkAction, &QAction::triggered, this, [this] { follow(list()->view()->currentRecord()); });
    QWidget *view = list()->view();
    view->insertAction(view->actions().value(0), m_linkAction);
}

void ProblemsPage::showResult()
{
    const MachineCheck &check = m_store->check();
    QStringList errors{m_store->error(), unreadText(check.unreadFiles, false)};
    errors.removeAll(QString());
    list()->setError(errors.join(QLatin1Char('\n')));
    Messages::show(*m_unchecked, unreadText(check.unreadFiles, true));
    m_model->setProblems(check.problems);
}

void ProblemsPage::showRecord(int record)
{
    const bool isProblem = record != -1;
    m_linkAction->setEnabled(isProblem && ProblemDetails::linkOf(m_model->problem(record)));
    m_details->setVisible(isProblem);
    if (isProblem) {
        m_details->showProblem(m_model->problem(record));
    }
}

void ProblemsPage::follow(int record)
{
    const auto link = record == -1 ? std::nullopt : ProblemDetails::linkOf(m_model->problem(record));
    if (link) {
        Q_EMIT followed(*link);
    }
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "memberlist.h"

#include "lefttoright.h"
#include "membermodel.h"
#include "recordview.h"
#include "rowactions.h"

#include <KLocalizedString>

#include <QAction>
#include <QLabel>
#include <QVBoxLayout>

MemberList::MemberList(QWidget *parent)
    : QWidget(parent)
    , m_model(new MemberModel(this))
    , m_view(new RecordView(m_model, this))
    , m_title(new QLabel(this))
{
    m_view->setObjectName(QStringLiteral("membersView"));
    m_view->setAccessibleName(i18nc("@title of a list", "Members"));
    // Each group has other members.
    m_view->setAlwaysFitting(true);
    m_title->setObjectName(QStringLiteral("membersTitle"));
    m_title->setAlignment(LeftToRight::lineStart());
    m_title->setBuddy(m_view);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_title);
    layout->addWidget(m_view, 1);

    auto *show = new QAction(i18nc("@action:inmenu a member of a group", "Sho&w User"), this);
    connect(show, &QAction::triggered, this, [this] { follow(m_view->currentRecord()); });
    m_view->addAction(show);
    new RowActions(m_view);
    connect(m_view, &RecordView::recordActivated, this, &MemberList::follow);
    connect(m_view, &RecordView::currentRecordChanged, show, [this, show](int record) {
        show->setEnabled(record != -1 && m_model->isUser(record));
    });
    clear();
}

void MemberList::clear()
{
    showMembers({}, {});
}

void MemberList::showMembers(const GroupRecord &group, const QVector<UserRecord> &users)
{
    m_model->setGroup(group, users);
    const int all = m_model->recordCount();
    m_title->setText(i18np("%1 &member", "%1 &members", all));
}

void MemberList::markHits(const SearchWords &search)
{
    m_model->setMarks(search);
}

void MemberList::follow(int record)
{
    if (record != -1 && m_model->isUser(record)) {
        Q_EMIT followed({AccountLink::Kind::User, m_model->name(record)});
    }
}

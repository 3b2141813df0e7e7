/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "listpage.h"

#include "recordmodel.h"
#include "recordview.h"

ListPage::ListPage(AccountLink::Kind kind, RecordList *list, QWidget *parent)
    : QWidget(parent)
    , m_kind(kind)
    , m_list(list)
{
    m_list->setParent(this);
    connect(m_list->view(), &RecordView::currentRecordChanged, this, &ListPage::showRecord);
}

RecordList *ListPage::list() const
{
    return m_list;
}

AccountLink ListPage::place() const
{
    const RecordView &view = *m_list->view();
    const int record = view.currentRecord();
    return {m_kind, record == -1 ? view.currentName() : view.recordModel()->name(record)};
}

bool ListPage::showEntry(const QString &name)
{
    return m_list->showRecord(name);
}

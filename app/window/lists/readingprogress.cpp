/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "readingprogress.h"

#include "accountstore.h"
#include "lefttoright.h"

#include <KLocalizedString>

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QTime>

namespace
{
constexpr int barCharacters = 16;
}

ReadingProgress::ReadingProgress(AccountStore *store, QWidget *parent)
    : QWidget(parent)
    , m_store(store)
    , m_text(new QLabel(this))
    , m_bar(new QProgressBar(this))
    , m_cancel(new QPushButton(i18nc("@action:button stop reading", "Cancel"), this))
{
    m_text->setObjectName(QStringLiteral("progress"));
    m_text->setAlignment(LeftToRight::lineStart() | Qt::AlignVCenter);
    m_bar->setObjectName(QStringLiteral("progressBar"));
    m_bar->setAccessibleName(i18nc("@info name of a progress bar", "Progress"));
    m_bar->setRange(0, 0); // nobody knows how long it takes
    m_bar->setMaximumWidth(barCharacters * fontMetrics().averageCharWidth());
    m_cancel->setObjectName(QStringLiteral("cancelButton"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_text, 1);
    layout->addWidget(m_bar);
    layout->addWidget(m_cancel);
    connect(m_cancel, &QPushButton::clicked, store, &AccountStore::cancel);
    connect(store, &AccountStore::started, this, [this] { begin(i18n("Reading the groups…")); });
    connect(store, &AccountStore::groupsRead, this, [this] { begin(i18n("Reading the users…")); });
    connect(store, &AccountStore::ended, this, &ReadingProgress::end);
    m_bar->hide();
    m_cancel->hide();
}

void ReadingProgress::begin(const QString &text)
{
    m_text->setText(text);
    m_bar->show();
    m_cancel->show();
}

void ReadingProgress::end()
{
    m_bar->hide();
    m_cancel->hide();
    const QTime time = m_store->lastRead();
    m_text->setText(
        time.isValid()
            ? i18nc("@info:status %1 is a time of day", "Read at %1", QLocale().toString(time, QLocale::ShortFormat))
            : i18nc("@info:status", "Nothing was read"));
}

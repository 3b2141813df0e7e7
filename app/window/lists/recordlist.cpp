/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "recordlist.h"

#include "lefttoright.h"
#include "messages.h"
#include "readingorder.h"
#include "recordmodel.h"
#include "recordview.h"
#include "rowactions.h"
#include "searchfield.h"

#include <KLocalizedString>

#include <QAbstractItemView>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QStackedWidget>
#include <QVBoxLayout>

RecordList::RecordList(const QString &name, RecordModel *model, const Texts &texts, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_texts(texts)
    , m_error(Messages::create(KMessageWidget::Error, this))
    , m_filterComboBox(new QComboBox(this))
    , m_searchField(new SearchField(this))
    , m_view(new RecordView(model, this))
    , m_rowActions(new RowActions(m_view))
    , m_count(new QLabel(this))
    , m_noMatch(new QLabel)
    , m_showAll(new QPushButton(i18nc("@action:button no search and no filter any more", "Show All")))
    , m_stack(new QStackedWidget(this))
{
    setObjectName(name);
    m_error->setObjectName(QStringLiteral("listError"));
    m_filterComboBox->setObjectName(QStringLiteral("filterComboBox"));
    m_filterComboBox->setAccessibleName(i18nc("@label:listbox which accounts are shown", "Show"));
    m_filterComboBox->view()->setAccessibleName(m_filterComboBox->accessibleName());
    m_filterComboBox->addItems(texts.filters);
    m_searchField->setObjectName(QStringLiteral("searchField"));
    m_searchField->setPlaceholderText(i18nc("@info:placeholder", "Search"));
    m_searchField->setAccessibleName(i18nc("@label:textbox", "Search"));
    m_view->setObjectName(name + QLatin1String("View"));
    m_view->setAccessibleName(texts.name);
    m_count->setObjectName(QStringLiteral("count"));
    m_count->setAlignment(LeftToRight::lineStart());
    m_stack->addWidget(m_view);
    m_stack->addWidget(createNoMatch());
    arrange();

    connect(m_filterComboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), m_model, &RecordModel::setFilter);
    connect(m_searchField, &QLineEdit::textChanged, this, &RecordList::search);
    connect(m_searchField, &SearchField::listWanted, this, &RecordList::goToList);
    connect(m_model, &QAbstractItemModel::modelReset, this, &RecordList::updateCount);
    updateCount();
}

void RecordList::arrange()
{
    auto *find = new QHBoxLayout;
    find->addWidget(m_searchField, 1);
    find->addWidget(m_filterComboBox);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_error);
    layout->addLayout(find);
    layout->addWidget(m_stack, 1);
    layout->addWidget(m_count);
    // As they are seen.
    setTabOrder(m_searchField, m_filterComboBox);
}

QWidget *RecordList::createNoMatch()
{
    m_noMatch->setObjectName(QStringLiteral("noMatch"));
    m_noMatch->setAlignment(Qt::AlignCenter);
    m_noMatch->setWordWrap(true);
    m_showAll->setObjectName(QStringLiteral("clearButton"));
    connect(m_showAll, &QPushButton::clicked, this, &RecordList::clearSearch);
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->addStretch();
    layout->addWidget(m_noMatch);
    layout->addWidget(m_showAll, 0, Qt::AlignHCenter);
    layout->addStretch();
    return page;
}

RecordView *RecordList::view() const
{
    return m_view;
}

RowActions *RecordList::rowActions() const
{
    return m_rowActions;
}

void RecordList::setError(const QString &text)
{
    Messages::show(*m_error, text);
}

bool RecordList::showRecord(const QString &name)
{
    if (!m_model->hasRecord(name)) {
        return false;
    }
    if (!m_model->find(name).isValid()) {
        m_searchField->clear();
    }
    if (!m_model->find(name).isValid()) {
        m_filterComboBox->setCurrentIndex(0);
    }
    m_view->setCurrentName(name);
    return true;
}

void RecordList::focusList()
{
    m_view->setFocus();
}

void RecordList::focusSearch()
{
    m_searchField->setFocus(Qt::ShortcutFocusReason);
    m_searchField->selectAll();
}

void RecordList::search()
{
    m_model->setSearch(SearchWords(m_searchField->text()));
}

void RecordList::clearSearch()
{
    m_searchField->clear();
    m_filterComboBox->setCurrentIndex(0);
    m_searchField->setFocus();
}

void RecordList::goToList()
{
    const int record = m_view->currentRecord();
    if (record != -1) {
        m_view->setCurrentName(m_model->name(record));
        m_view->setFocus();
    }
}

void RecordList::updateCount()
{
    const int shown = m_model->rowCount();
    const int total = m_model->recordCount();
    m_count->setText(m_texts.count(shown, total));
    const QString why = total > 0 ? m_texts.noMatch() : m_texts.none();
    m_noMatch->setText(ReadingOrder::ofSentence(why));
    m_showAll->setVisible(total > 0);
    const bool noMatch = shown == 0 && !why.isEmpty();
    if (noMatch != (m_stack->currentIndex() == 1)) {
        m_stack->setCurrentIndex(noMatch ? 1 : 0);
    }
}

QString RecordList::settingsKey(const char *name) const
{
    return objectName() + QLatin1Char('/') + QLatin1String(name);
}

void RecordList::saveState(QSettings &settings) const
{
    settings.setValue(settingsKey("filter"), m_filterComboBox->currentIndex());
    m_view->saveState(settings);
}

void RecordList::restoreState(const QSettings &settings)
{
    const int filter = settings.value(settingsKey("filter")).toInt();
    m_filterComboBox->setCurrentIndex(filter >= 0 && filter < m_filterComboBox->count() ? filter : 0);
    m_view->restoreState(settings);
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountlist.h"

#include "formrow.h"
#include "lefttoright.h"
#include "messages.h"

#include <KLocalizedString>

#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSettings>
#include <QSortFilterProxyModel>
#include <QTreeView>

namespace
{
/** How wide the list stays, and how much wider than the titles of its columns. In characters. */
constexpr int minCharacters = 32;
constexpr int minSpareCharacters = 8;

/** The list models do not look at the parent when they count rows, and tree views ask about rows below rows. */
class FlatProxyModel : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : QSortFilterProxyModel::rowCount();
    }
};

/** How wide a list is that has room for the titles of its columns. */
int widthOfTitles(const QTreeView &view)
{
    int width = 2 * view.frameWidth() + view.verticalScrollBar()->sizeHint().width()
        + minSpareCharacters * view.fontMetrics().averageCharWidth();
    for (int column = 0; column < view.header()->count(); ++column) {
        width += view.header()->sectionSizeHint(column);
    }
    return width;
}

QString settingsKey(const AccountList &list, const char *name)
{
    return list.objectName() + QLatin1Char('/') + QLatin1String(name);
}
}

AccountList::AccountList(const QString &name, const QVector<Filter> &filters, QWidget *parent)
    : QWidget(parent)
    , m_error(Messages::create(KMessageWidget::Error, this))
    , m_filterComboBox(new QComboBox(this))
    , m_filterLineEdit(new QLineEdit(this))
    , m_view(new QTreeView(this))
    , m_proxy(new FlatProxyModel(this))
{
    m_filterComboBox->setObjectName(QStringLiteral("filterComboBox"));
    m_filterComboBox->setAccessibleName(i18nc("@label:listbox which accounts are shown", "Show"));
    m_filterComboBox->view()->setAccessibleName(m_filterComboBox->accessibleName());
    for (const Filter &filter : filters) {
        m_filterComboBox->addItem(filter.text, filter.filter);
    }
    m_filterLineEdit->setObjectName(QStringLiteral("filterLineEdit"));
    m_filterLineEdit->setPlaceholderText(i18nc("@info:placeholder", "Filter by name"));
    m_filterLineEdit->setAccessibleName(m_filterLineEdit->placeholderText());
    m_filterLineEdit->setClearButtonEnabled(true);

    m_proxy->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_proxy->setSortLocaleAware(true);
    m_view->setObjectName(QStringLiteral("accountsView"));
    m_view->setAccessibleName(name);
    m_view->setRootIsDecorated(false);
    m_view->setItemsExpandable(false);
    m_view->setUniformRowHeights(true);
    m_view->setAllColumnsShowFocus(true);
    m_view->setAlternatingRowColors(true);
    m_view->setSortingEnabled(true);
    m_view->setMinimumWidth(minCharacters * m_view->fontMetrics().averageCharWidth());
    m_view->setModel(m_proxy);
    m_view->setItemDelegate(new LeftToRight::Delegate(m_view));
    m_view->sortByColumn(0, Qt::AscendingOrder);

    auto *filterLabel = new QLabel(i18nc("@label:listbox which accounts are shown", "&Show:"), this);
    filterLabel->setBuddy(m_filterComboBox);
    auto *nameLabel = new QLabel(i18nc("@label:textbox a part of the names of accounts to show", "&Name:"), this);
    nameLabel->setBuddy(m_filterLineEdit);
    for (QLabel *label : {filterLabel, nameLabel}) {
        makeRoomForMnemonic(label, label->text());
    }

    auto *layout = new QGridLayout(this);
    layout->setContentsMargins({});
    layout->setColumnStretch(1, 1);
    layout->addWidget(m_error, 0, 0, 1, 2);
    layout->addWidget(filterLabel, 1, 0);
    layout->addWidget(m_filterComboBox, 1, 1);
    layout->addWidget(nameLabel, 2, 0);
    layout->addWidget(m_filterLineEdit, 2, 1);
    layout->addWidget(m_view, 3, 0, 1, 2);

    connect(m_filterComboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &AccountList::applyFilter);
    connect(m_filterLineEdit, &QLineEdit::textChanged, m_proxy, &QSortFilterProxyModel::setFilterFixedString);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &AccountList::updateCurrent);
    connect(m_proxy, &QAbstractItemModel::modelReset, this, &AccountList::restoreCurrent);
    connect(m_proxy, &QAbstractItemModel::rowsInserted, this, &AccountList::restoreCurrent);
}

void AccountList::setError(const QString &text)
{
    Messages::show(*m_error, text);
}

void AccountList::focusList()
{
    m_view->setFocus();
}

void AccountList::focusFilter()
{
    m_filterLineEdit->setFocus(Qt::ShortcutFocusReason);
    m_filterLineEdit->selectAll();
}

void AccountList::show(QAbstractItemModel *model)
{
    if (m_proxy->sourceModel() == model) {
        return;
    }
    m_setModelFilter(m_filterComboBox->currentData().toInt());
    m_proxy->setSourceModel(model);
    QHeaderView *header = m_view->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    m_view->setMinimumWidth(qMax(m_view->minimumWidth(), widthOfTitles(*m_view)));
}

void AccountList::applyFilter()
{
    if (m_setModelFilter) {
        m_setModelFilter(m_filterComboBox->currentData().toInt());
    }
}

void AccountList::restoreCurrent()
{
    if (m_view->currentIndex().isValid()) {
        return;
    }
    const QModelIndex first = m_proxy->index(0, 0);
    const QModelIndexList found =
        m_proxy->match(first, Qt::DisplayRole, m_currentName, 1, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    const QModelIndex current = found.value(0, first);
    m_view->setCurrentIndex(current);
    if (!current.isValid()) {
        updateCurrent(current);
    }
}

void AccountList::updateCurrent(const QModelIndex &current)
{
    if (current.isValid()) {
        m_currentName = current.siblingAtColumn(0).data().toString();
    }
    Q_EMIT currentChanged(m_proxy->mapToSource(current));
}

void AccountList::saveState(QSettings &settings) const
{
    const QHeaderView *header = m_view->header();
    settings.setValue(settingsKey(*this, "filter"), m_filterComboBox->currentData());
    settings.setValue(settingsKey(*this, "sortColumn"), header->sortIndicatorSection());
    settings.setValue(settingsKey(*this, "sortOrder"), header->sortIndicatorOrder());
    settings.setValue(settingsKey(*this, "current"), m_currentName);
}

void AccountList::restoreState(const QSettings &settings)
{
    const int filter = m_filterComboBox->findData(settings.value(settingsKey(*this, "filter")).toInt());
    m_filterComboBox->setCurrentIndex(qMax(0, filter));
    const int order = settings.value(settingsKey(*this, "sortOrder"), Qt::AscendingOrder).toInt();
    m_view->sortByColumn(settings.value(settingsKey(*this, "sortColumn")).toInt(),
                         order == Qt::DescendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder);
    m_currentName = settings.value(settingsKey(*this, "current")).toString();
}

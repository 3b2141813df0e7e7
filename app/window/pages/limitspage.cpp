/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitspage.h"

#include "accountstore.h"
#include "flattree.h"
#include "lefttoright.h"
#include "limitlinesmodel.h"
#include "limitwords.h"
#include "messages.h"
#include "pagelayout.h"
#include "sessionaccountof.h"

#include <KLocalizedString>

#include <QComboBox>
#include <QElapsedTimer>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace
{
/** How long accounts are counted at a stretch, in milliseconds: the window stays usable. */
constexpr int slice = 15;

/** How many accounts are named for which a line decides. */
constexpr int maxNames = 12;

constexpr int placeCharacters = 32;
constexpr int textCharacters = 36;
}

LimitsPage::LimitsPage(AccountStore *store, QWidget *parent)
    : QWidget(parent)
    , m_store(store)
    , m_error(Messages::create(KMessageWidget::Error, this))
    , m_filter(new QComboBox(this))
    , m_model(new LimitLinesModel(this))
    , m_lines(new QTreeView(this))
    , m_counting(new QTimer(this))
{
    m_error->setObjectName(QStringLiteral("limitsError"));
    addTable();
    auto *title = new QLabel(i18nc("@title of a list", "&Lines in the order in which they are read"), this);
    title->setAlignment(LeftToRight::lineStart());
    title->setBuddy(m_lines);
    m_lines->setAccessibleName(KLocalizedString::removeAcceleratorMarker(title->text()));
    auto *explanations = new QFormLayout;
    m_meaning = addExplanation(explanations, "lineMeaning", i18nc("@label of a line", "Meaning:"));
    m_problem = addExplanation(explanations, "lineProblem", i18nc("@label of a line", "Problem:"));
    m_decides = addExplanation(explanations, "lineDecides", i18nc("@label accounts", "Decides for:"));

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_error);
    layout->addWidget(createFilter());
    layout->addWidget(title);
    layout->addWidget(m_lines, 1);
    layout->addLayout(explanations);

    connect(m_counting, &QTimer::timeout, this, &LimitsPage::countSomeAccounts);
    connect(m_store, &AccountStore::limitsRead, this, &LimitsPage::showAll);
    connect(m_store, &AccountStore::usersRead, this, &LimitsPage::startCounting);
}

QWidget *LimitsPage::createFilter()
{
    m_filter->setObjectName(QStringLiteral("lineFilter"));
    m_filter->setAccessibleName(i18nc("@label:listbox which lines are shown", "Show"));
    m_filter->view()->setAccessibleName(m_filter->accessibleName());
    m_filter->addItem(i18nc("@item:inlistbox", "All lines"), LimitLinesModel::AllLines);
    m_filter->addItem(i18nc("@item:inlistbox", "Lines that PAM applies"), LimitLinesModel::AppliedLines);
    m_filter->addItem(i18nc("@item:inlistbox", "Lines with problems"), LimitLinesModel::ProblemLines);
    connect(m_filter, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int index) {
        m_model->setFilter(LimitLinesModel::Filter(m_filter->itemData(index).toInt()));
        explain();
    });
    auto *label = new QLabel(i18nc("@label:listbox which lines are shown", "&Show:"), this);
    label->setBuddy(m_filter);
    auto *row = new QWidget(this);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->addWidget(label);
    layout->addWidget(m_filter);
    layout->addStretch();
    return row;
}

void LimitsPage::addTable()
{
    m_lines->setObjectName(QStringLiteral("linesTable"));
    m_lines->setItemDelegate(new LeftToRight::Delegate(m_lines));
    setUpFlatTree(*m_lines);
    m_lines->setModel(m_model);
    const int width = fontMetrics().averageCharWidth();
    m_lines->setColumnWidth(LimitLinesModel::PlaceColumn, placeCharacters * width);
    m_lines->setColumnWidth(LimitLinesModel::TextColumn, textCharacters * width);
    m_lines->resizeColumnToContents(LimitLinesModel::MeaningColumn); // at least its title
    connect(m_lines->selectionModel(), &QItemSelectionModel::selectionChanged, this, &LimitsPage::explain);
}

QLabel *LimitsPage::addExplanation(QFormLayout *layout, const char *name, const QString &title)
{
    auto *label = new QLabel(this);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop | LeftToRight::lineStart());
    PageLayout::addRow(layout, title, label);
    return label;
}

void LimitsPage::showAll()
{
    Messages::show(*m_error, m_store->limitsError());
    m_model->setLimits(m_store->limits());
    m_lines->setCurrentIndex(m_model->index(0, 0));
    startCounting();
}

void LimitsPage::startCounting()
{
    if (m_store->users().isEmpty()) { // not read yet
        m_counting->stop();
        m_usage.reset();
        explain();
        return;
    }
    m_model->setUsage(nullptr);
    m_usage = std::make_shared<PamLimits::LimitUsage>(m_store->limits());
    m_accounts.clear();
    const QVector<UserRecord> &users = m_store->users();
    std::transform(users.begin(), users.end(), std::back_inserter(m_accounts), sessionAccountOf);
    m_counted = 0;
    m_counting->start();
    explain();
}

void LimitsPage::countSomeAccounts()
{
    QElapsedTimer time;
    time.start();
    for (; m_counted < m_accounts.size() && !time.hasExpired(slice); ++m_counted) {
        m_usage->add(m_accounts.at(m_counted));
    }
    if (m_counted == m_accounts.size()) {
        finishCounting();
    }
}

void LimitsPage::finishCounting()
{
    m_counting->stop();
    m_usage->finish();
    m_model->setUsage(m_usage);
    explain();
}

void LimitsPage::explain()
{
    const QModelIndexList rows = m_lines->selectionModel()->selectedRows();
    const int line = rows.isEmpty() ? -1 : m_model->lineAt(rows.first().row());
    m_meaning->setText(line < 0 ? QString() : m_model->meaningOf(line));
    m_problem->setText(line < 0 ? QString() : m_model->problemsOf(line).join(QLatin1Char('\n')));
    m_decides->setText(line < 0 ? QString() : accountsOf(line));
}

QString LimitsPage::accountsOf(int line) const
{
    if (!m_usage || m_counting->isActive()) {
        return QStringLiteral("\u2026");
    }
    const int count = m_usage->at(line).decides;
    if (count == 0) {
        return i18nc("@info no account", "nobody");
    }
    QStringList names;
    const QList<QByteArray> found = decidedBy(line, m_store->limits(), m_accounts, qMin(count, maxNames));
    for (const QByteArray &name : found) {
        names.append(LimitWords::fromFile(name));
    }
    const QString more = count > names.size() ? QStringLiteral(" \u2026 (%1)").arg(count) : QString();
    return names.join(QLatin1String(", ")) + more;
}

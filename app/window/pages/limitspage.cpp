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
#include "linklabel.h"
#include "messages.h"
#include "pagelayout.h"
#include "plaintext.h"
#include "readingorder.h"
#include "visibletext.h"

#include <KLocalizedString>

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>
#include <QVBoxLayout>
#include <QtConcurrent>

#include <algorithm>

namespace
{
constexpr int minPlaceCharacters = 32;
constexpr int maxPlaceCharacters = 48;
constexpr int textCharacters = 36;

/** How many lines tell how wide a column is. There may be very many. */
constexpr int measuredLines = 100;

/** The place in @p rules of the line that is at @p oldPlace in @p oldRules; -1 where its file has no such line. */
int samePlace(const PamLimits::Rules &oldRules, int oldPlace, const PamLimits::Rules &rules)
{
    const PamLimits::Line &line = oldRules.lines().at(oldPlace);
    const QString path = oldRules.fileOf(line).path;
    const QVector<PamLimits::Line> &lines = rules.lines();
    const auto found = std::find_if(lines.begin(), lines.end(), [&](const PamLimits::Line &other) {
        return other.number == line.number && rules.fileOf(other).path == path;
    });
    return found == lines.end() ? -1 : int(found - lines.begin());
}

QString visibleLines(QStringList lines)
{
    std::transform(lines.begin(), lines.end(), lines.begin(), VisibleText::fromText);
    return ReadingOrder::ofSentence(lines.join(QLatin1Char('\n')));
}

/** An empty @p text is hidden together with its @p title. */
void showText(QLabel &title, QLabel &field, const QString &text)
{
    field.setText(text);
    field.setVisible(!text.isEmpty());
    title.setVisible(!text.isEmpty());
}
}

LimitsPage::LimitsPage(AccountStore *store, QWidget *parent)
    : QWidget(parent)
    , m_store(store)
    , m_error(Messages::create(KMessageWidget::Error, this))
    , m_filter(new QComboBox(this))
    , m_model(new LimitLinesModel(this))
    , m_lines(new QTreeView(this))
    , m_cancelled(std::make_shared<std::atomic_bool>())
{
    m_error->setObjectName(QStringLiteral("limitsError"));
    addTable();
    auto *title = new QLabel(i18nc("@title of a list", "&Lines in the order in which they are read"), this);
    title->setAlignment(LeftToRight::lineStart());
    title->setBuddy(m_lines);
    m_lines->setAccessibleName(KLocalizedString::removeAcceleratorMarker(title->text()));
    auto *explanations = new QGridLayout;
    m_meaning = PlainText::createLabel("lineMeaning", this);
    m_meaningTitle = PageLayout::addRow(explanations, i18nc("@label of a line", "Meaning:"), m_meaning);
    m_problem = PlainText::createLabel("lineProblem", this);
    m_problemTitle = PageLayout::addRow(explanations, i18nc("@label of a line", "Problem:"), m_problem);
    m_decides = new LinkLabel(this);
    m_decides->setObjectName(QStringLiteral("lineDecides"));
    PageLayout::addRow(explanations, i18nc("@label accounts", "Decides for:"), m_decides);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_error);
    layout->addWidget(createFilter());
    layout->addWidget(title);
    layout->addWidget(m_lines, 1);
    layout->addLayout(explanations);

    connect(m_decides, &LinkLabel::followed, this, &LimitsPage::followed);
    connect(&m_lineAnalysis, &QFutureWatcherBase::finished, this, &LimitsPage::showLines);
    connect(&m_userAnalysis, &QFutureWatcherBase::finished, this, &LimitsPage::showUsage);
    connect(m_store, &AccountStore::limitsRead, this, &LimitsPage::analyseLines);
    connect(m_store, &AccountStore::usersRead, this, &LimitsPage::analyseUsage);
}

LimitsPage::~LimitsPage()
{
    *m_cancelled = true;
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
    m_lines->setItemDelegateForColumn(LimitLinesModel::MeaningColumn, new LeftToRight::SentenceDelegate(m_lines));
    setUpFlatTree(*m_lines);
    m_lines->setModel(m_model);
    m_lines->header()->setResizeContentsPrecision(measuredLines);
    const int width = fontMetrics().averageCharWidth();
    m_lines->setColumnWidth(LimitLinesModel::PlaceColumn, minPlaceCharacters * width);
    m_lines->setColumnWidth(LimitLinesModel::TextColumn, textCharacters * width);
    m_lines->resizeColumnToContents(LimitLinesModel::MeaningColumn); // at least its title
    connect(m_lines->selectionModel(), &QItemSelectionModel::selectionChanged, this, &LimitsPage::explain);
}

/** Begins an analysis in a thread, and gives up the one before. */
QFuture<LimitAnalysis::Pointer> LimitsPage::analyse(const PamLimits::SessionLimits &limits,
                                                    const QVector<UserRecord> &users)
{
    *m_cancelled = true;
    m_cancelled = std::make_shared<std::atomic_bool>();
    return QtConcurrent::run(&LimitAnalysis::create, limits, users, m_cancelled);
}

void LimitsPage::analyseLines()
{
    m_lineAnalysis.setFuture(analyse(m_store->limits(), {}));
}

void LimitsPage::analyseUsage()
{
    // Otherwise it begins when the lines are there.
    if (m_analysis && !m_lineAnalysis.isRunning() && !m_store->users().isEmpty()) {
        m_userAnalysis.setFuture(analyse(m_analysis->limits(), m_store->users()));
    }
}

void LimitsPage::showLines()
{
    const LimitAnalysis::Pointer old = m_analysis;
    const int current = currentPlace();
    m_analysis = m_lineAnalysis.result();
    Messages::show(*m_error, m_store->limitsError());
    m_model->setAnalysis(m_analysis);
    if (!old) {
        fitPlaces();
    }
    const int place = current < 0 ? -1 : samePlace(old->limits().rules(), current, m_analysis->limits().rules());
    m_lines->setCurrentIndex(m_model->index(qMax(0, m_model->rowOf(place)), 0));
    explain();
    analyseUsage();
}

void LimitsPage::fitPlaces()
{
    const int character = fontMetrics().averageCharWidth();
    const QAbstractItemView &view = *m_lines;
    const int width = view.sizeHintForColumn(LimitLinesModel::PlaceColumn);
    m_lines->setColumnWidth(LimitLinesModel::PlaceColumn,
                            qBound(minPlaceCharacters * character, width, maxPlaceCharacters * character));
}

bool LimitsPage::showLine(const QString &place)
{
    if (!m_analysis) {
        return false;
    }
    const PamLimits::Rules &rules = m_analysis->limits().rules();
    const QVector<PamLimits::Line> &lines = rules.lines();
    const auto line = std::find_if(lines.begin(), lines.end(), [&](const PamLimits::Line &line) {
        return place.endsWith(QString::number(line.number)) && place == rules.placeOf(line);
    });
    if (line == lines.end()) {
        return false;
    }
    const int number = int(line - lines.begin());
    if (m_model->rowOf(number) < 0) {
        m_filter->setCurrentIndex(0);
    }
    m_lines->setCurrentIndex(m_model->index(m_model->rowOf(number), 0));
    m_lines->setFocus();
    return true;
}

void LimitsPage::showUsage()
{
    if (const LimitAnalysis::Pointer analysis = m_userAnalysis.result()) {
        const int current = currentPlace();
        m_analysis = analysis;
        m_model->updateAnalysis(m_analysis);
        m_lines->setCurrentIndex(m_model->index(qMax(0, m_model->rowOf(current)), 0));
        explain();
    }
}

QString LimitsPage::place() const
{
    const int line = currentPlace();
    const PamLimits::Rules *rules = line < 0 ? nullptr : &m_analysis->limits().rules();
    return rules ? rules->placeOf(rules->lines().at(line)) : QString();
}

int LimitsPage::currentPlace() const
{
    const QModelIndexList rows = m_lines->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : m_model->lineAt(rows.first().row());
}

void LimitsPage::explain()
{
    const int place = currentPlace();
    showText(*m_meaningTitle, *m_meaning, place < 0 ? QString() : visibleLines({m_model->meaningOf(place)}));
    showText(*m_problemTitle, *m_problem, place < 0 ? QString() : visibleLines(m_analysis->problemsOf(place)));
    showAccounts(place);
}

void LimitsPage::showAccounts(int place)
{
    const PamLimits::LimitUsage::Line *usage = place < 0 ? nullptr : m_analysis->usageOf(place);
    if (!usage) {
        const QString text = place < 0 ? QString() : QStringLiteral("\u2026");
        m_decides->setLinkedText(text, text);
        return;
    }
    QStringList names;
    for (const QByteArray &name : usage->decidesFor) {
        names.append(LimitWords::fromFile(name));
    }
    QString rest = usage->decides == 0 ? i18nc("@info no account", "nobody") : QString();
    if (usage->decides > names.size()) {
        rest = QStringLiteral(" \u2026 (%1)").arg(usage->decides);
    }
    m_decides->setLinks(AccountLink::Kind::User, names, rest);
}

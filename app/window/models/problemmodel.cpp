/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "problemmodel.h"

#include "problemwords.h"
#include "readingorder.h"

#include <KLocalizedString>

#include <QApplication>
#include <QStyle>
#include <QtConcurrent>

#include <utility>

namespace
{
const QVector<RecordModel::Column> &problemColumns()
{
    // In the order of ProblemModel::Column.
    static const QVector<RecordModel::Column> columns{
        {"severity", kli18nc("@title:column error, warning or note", "Severity")},
        {"text", kli18nc("@title:column what was found", "Problem")},
        {"account", kli18nc("@title:column a user or a group", "Account")},
        {"place", kli18nc("@title:column of a file", "Line")},
        {"id", kli18nc("@title:column a word for the kind of a problem", "Kind")},
        {"meaning", kli18nc("@title:column of problems", "What it means")},
        {"remedy", kli18nc("@title:column of problems", "What to do")},
    };
    return columns;
}

/** How many problems are sorted before they are shown. More are sorted in a thread. */
constexpr int maxSortedAtOnce = 4000;

QVariant valueOf(const Problem &problem, int column, ProblemTexts &texts)
{
    switch (column) {
    case ProblemModel::SeverityColumn:
        return ProblemWords::id(problem.severity());
    case ProblemModel::TextColumn:
        return texts.text(problem);
    case ProblemModel::AccountColumn:
        return problem.user.isEmpty() ? problem.group : problem.user;
    case ProblemModel::PlaceColumn:
        return problem.place();
    case ProblemModel::KindColumn:
        return problem.id();
    case ProblemModel::MeaningColumn:
        return texts.meaning(problem);
    case ProblemModel::RemedyColumn:
        return texts.remedy(problem);
    default:
        return {};
    }
}

QVariant sortValueOf(const Problem &problem, int column, ProblemTexts &texts)
{
    return column == ProblemModel::SeverityColumn ? uint(problem.severity()) : valueOf(problem, column, texts);
}

/** A function that can be called in any thread. */
auto sortValuesOf(const QList<Problem> &problems, int column)
{
    return [problems, column] {
        ProblemTexts texts;
        QVector<QVariant> values;
        values.reserve(problems.size());
        for (const Problem &problem : problems) {
            values.append(sortValueOf(problem, column, texts));
        }
        return values;
    };
}

QIcon themeIcon(const char *name, QStyle::StandardPixmap fallback)
{
    return QIcon::fromTheme(QLatin1String(name), QApplication::style()->standardIcon(fallback));
}
}

ProblemModel::ProblemModel(QObject *parent)
    : RecordModel(problemColumns(), parent)
    , m_icons({
          themeIcon("dialog-error", QStyle::SP_MessageBoxCritical),
          themeIcon("dialog-warning", QStyle::SP_MessageBoxWarning),
          themeIcon("dialog-information", QStyle::SP_MessageBoxInformation),
      })
{
}

void ProblemModel::setProblems(const QList<Problem> &problems)
{
    const auto replace = [this, problems] { replaceProblems(problems); };
    if (problems.size() <= maxSortedAtOnce) {
        replaceRecords(replace);
    } else {
        replaceRecordsLater([problems](int column) { return sortValuesOf(problems, column); }, replace);
    }
}

void ProblemModel::replaceProblems(const QList<Problem> &problems)
{
    // To free very many takes a while.
    QtConcurrent::run([old = std::exchange(m_problems, problems)] {});
    m_texts = ProblemTexts();
}

const Problem &ProblemModel::problem(int record) const
{
    return m_problems.at(record);
}

QVariant ProblemModel::data(const QModelIndex &index, int role) const
{
    const int record = recordAt(index);
    if (role == Qt::DisplayRole && record != -1 && index.column() == SeverityColumn) {
        return ProblemWords::severity(m_problems.at(record).severity());
    }
    if (role == SentenceRole && record != -1) {
        return sentence(record, index.column());
    }
    return RecordModel::data(index, role);
}

QVariant ProblemModel::sentence(int record, int column) const
{
    switch (column) {
    case TextColumn:
        return m_problems.at(record).shownText();
    case MeaningColumn:
    case RemedyColumn:
        return ReadingOrder::ofSentence(value(record, column).toString());
    default:
        return {};
    }
}

int ProblemModel::recordCount() const
{
    return m_problems.size();
}

QString ProblemModel::name(int record) const
{
    const Problem &problem = m_problems.at(record);
    const QStringList parts{problem.place(), problem.id(), problem.user, problem.group};
    return (parts + problem.details).join(QChar::Null);
}

bool ProblemModel::isNamed(int record, const QString &name) const
{
    // To put names together takes a while for very many problems.
    const Problem &problem = m_problems.at(record);
    return name.startsWith(problem.file) && name.contains(problem.details.value(0))
        && RecordModel::isNamed(record, name);
}

QVariant ProblemModel::value(int record, int column) const
{
    return valueOf(m_problems.at(record), column, m_texts);
}

QVariant ProblemModel::sortValue(int record, int column) const
{
    return sortValueOf(m_problems.at(record), column, m_texts);
}

RecordModel::SortValues ProblemModel::sortValues(int column) const
{
    return m_problems.size() <= maxSortedAtOnce ? SortValues() : sortValuesOf(m_problems, column);
}

bool ProblemModel::passes(int record, int filter) const
{
    const Problem::Severity severity = m_problems.at(record).severity();
    switch (filter) {
    case Serious:
        return severity != Problem::Severity::Note;
    case Errors:
        return severity == Problem::Severity::Error;
    case Notes:
        return severity == Problem::Severity::Note;
    default:
        return true;
    }
}

bool ProblemModel::contains(int record, const SearchWords::Word &word) const
{
    const Problem &problem = m_problems.at(record);
    // What takes least time first.
    return word.isIn(problem.user) || word.isIn(problem.group) || word.isIn(problem.place()) || word.isIn(problem.id())
        || word.isIn(m_texts.text(problem));
}

QVariant ProblemModel::icon(int record) const
{
    return m_icons.at(int(m_problems.at(record).severity()));
}

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
    replaceRecords([&] {
        m_problems = problems;
        m_texts = ProblemTexts();
    });
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

QVariant ProblemModel::value(int record, int column) const
{
    const Problem &problem = m_problems.at(record);
    switch (column) {
    case SeverityColumn:
        return ProblemWords::id(problem.severity());
    case TextColumn:
        return m_texts.text(problem);
    case AccountColumn:
        return problem.user.isEmpty() ? problem.group : problem.user;
    case PlaceColumn:
        return problem.place();
    case KindColumn:
        return problem.id();
    case MeaningColumn:
        return m_texts.meaning(problem);
    case RemedyColumn:
        return m_texts.remedy(problem);
    default:
        return {};
    }
}

QVariant ProblemModel::sortValue(int record, int column) const
{
    return column == SeverityColumn ? uint(m_problems.at(record).severity()) : value(record, column);
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
    return word.isIn(problem.place()) || word.isIn(problem.id()) || word.isIn(problem.user) || word.isIn(problem.group)
        || word.isIn(m_texts.text(problem));
}

QVariant ProblemModel::icon(int record) const
{
    return m_icons.at(int(m_problems.at(record).severity()));
}

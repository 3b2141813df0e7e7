/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "problemmodel.h"

#include "patience.h"
#include "texts.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace
{
constexpr int many = 20000;

Problem problem(Problem::Kind kind, int line, const QString &user)
{
    Problem problem;
    problem.kind = kind;
    problem.file = text("/etc/passwd");
    problem.line = line;
    problem.user = user;
    problem.details = QStringList({user, text("/home/") + user});
    return problem;
}

/** Their places and their accounts have opposite orders. */
QList<Problem> problems(int count)
{
    QList<Problem> problems;
    for (int line = 1; line <= count; ++line) {
        problems.append(problem(Problem::Kind::MissingHome, line, QStringLiteral("user%1").arg(count - line)));
    }
    return problems;
}

QString shown(const RecordModel &model, int row)
{
    return model.index(row, ProblemModel::AccountColumn).data().toString();
}

void sort(ProblemModel &model, ProblemModel::Column column)
{
    model.sort(column, Qt::AscendingOrder);
}
}

/** The model of problems. Very many of them are sorted in a thread. */
class ProblemModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void sortsFewAtOnce();
    void sortsManyLater();
    void sortsByTheLastColumn();
    void showsManyWhenTheyAreSorted();
    void sortsThoseThatAreNotShownYet();
    void forgetsManyForFew();
    void findsNames();
    void endsWhileItSorts();

private:
    std::unique_ptr<ProblemModel> m_model;
};

void ProblemModelTest::init()
{
    qRegisterMetaType<QList<QPersistentModelIndex>>();
    qRegisterMetaType<QAbstractItemModel::LayoutChangeHint>();
    m_model = std::make_unique<ProblemModel>();
    new QAbstractItemModelTester(m_model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest, m_model.get());
}

void ProblemModelTest::sortsFewAtOnce()
{
    m_model->setProblems(problems(100));
    QCOMPARE(m_model->rowCount(), 100);
    QCOMPARE(shown(*m_model, 0), text("user99"));
    sort(*m_model, ProblemModel::AccountColumn);
    QCOMPARE(shown(*m_model, 0), text("user0"));
    QCOMPARE(shown(*m_model, 10), text("user10"));
}

void ProblemModelTest::sortsManyLater()
{
    m_model->setProblems(problems(many));
    QTRY_COMPARE_WITH_TIMEOUT(m_model->rowCount(), many, patience);
    const QPersistentModelIndex worst = m_model->index(0, ProblemModel::AccountColumn);
    sort(*m_model, ProblemModel::AccountColumn);
    QCOMPARE(worst.row(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(shown(*m_model, 0), text("user0"), patience);
    QCOMPARE(shown(*m_model, 10), text("user10"));
    QCOMPARE(worst.row(), many - 1);
    QCOMPARE(worst.data().toString(), shown(*m_model, many - 1));
    // The order is known from now on.
    sort(*m_model, ProblemModel::SeverityColumn);
    QTRY_COMPARE_WITH_TIMEOUT(worst.row(), 0, patience);
    sort(*m_model, ProblemModel::AccountColumn);
    QCOMPARE(worst.row(), many - 1);
}

void ProblemModelTest::sortsByTheLastColumn()
{
    m_model->setProblems(problems(many));
    QTRY_COMPARE_WITH_TIMEOUT(m_model->rowCount(), many, patience);
    QSignalSpy sorted(m_model.get(), &QAbstractItemModel::layoutChanged);
    sort(*m_model, ProblemModel::AccountColumn);
    sort(*m_model, ProblemModel::PlaceColumn);
    QTRY_COMPARE_WITH_TIMEOUT(sorted.size(), 1, patience);
    QCOMPARE(shown(*m_model, 0), QStringLiteral("user%1").arg(many - 1));
    // A search does not wait for the new order.
    sort(*m_model, ProblemModel::AccountColumn);
    m_model->setSearch(SearchWords(text("user77")));
    QCOMPARE(shown(*m_model, 0), text("user7799"));
    QTRY_COMPARE_WITH_TIMEOUT(shown(*m_model, 0), text("user77"), patience);
    QCOMPARE(m_model->rowCount(), 111);
}

void ProblemModelTest::showsManyWhenTheyAreSorted()
{
    sort(*m_model, ProblemModel::AccountColumn);
    m_model->setProblems(problems(100));
    QSignalSpy reset(m_model.get(), &QAbstractItemModel::modelReset);
    m_model->setProblems(problems(many));
    QCOMPARE(m_model->rowCount(), 100);
    QTRY_COMPARE_WITH_TIMEOUT(m_model->rowCount(), many, patience);
    QCOMPARE(shown(*m_model, 0), text("user0"));
    QCOMPARE(reset.size(), 1);
}

void ProblemModelTest::sortsThoseThatAreNotShownYet()
{
    m_model->setProblems(problems(100));
    // These have both orders already.
    sort(*m_model, ProblemModel::AccountColumn);
    sort(*m_model, ProblemModel::SeverityColumn);
    QSignalSpy sorted(m_model.get(), &QAbstractItemModel::layoutChanged);
    m_model->setProblems(problems(many));
    sort(*m_model, ProblemModel::AccountColumn);
    QTRY_COMPARE_WITH_TIMEOUT(m_model->rowCount(), many, patience);
    QCOMPARE(shown(*m_model, 0), text("user0"));
    QCOMPARE(sorted.size(), 0);
}

void ProblemModelTest::forgetsManyForFew()
{
    m_model->setProblems(problems(many));
    m_model->setProblems(problems(10));
    QCOMPARE(m_model->rowCount(), 10);
    // The threads that still work are first in the queue.
    m_model->setProblems(problems(many + 1));
    QTRY_VERIFY_WITH_TIMEOUT(m_model->rowCount() != 10, patience);
    QCOMPARE(m_model->rowCount(), many + 1);
}

void ProblemModelTest::findsNames()
{
    m_model->setProblems(problems(100));
    for (int row = 0; row < 100; ++row) {
        QCOMPARE(m_model->find(m_model->name(row)).row(), row);
    }
    Problem ofGroup;
    ofGroup.file = text("/etc/group");
    ofGroup.group = text("staff");
    m_model->setProblems({ofGroup});
    QVERIFY(m_model->hasRecord(m_model->name(0)));
    QVERIFY(!m_model->hasRecord(text("/etc/group")));
    QVERIFY(!m_model->hasRecord(QString()));
}

void ProblemModelTest::endsWhileItSorts()
{
    m_model->setProblems(problems(many));
    m_model.reset();
    QCoreApplication::processEvents();
}

QTEST_MAIN(ProblemModelTest)

#include "problemmodeltest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "brokenaccounts.h"
#include "filecontent.h"
#include "machinecheck.h"
#include "program.h"

#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

namespace
{
/** A message of pwck or grpck, as a pattern, and the problems that say the same. */
struct Equivalent {
    /** The groups "account" and "line" are the name of an account, and a line of a file. */
    const char *complaint;
    /** The file of the problem; any when it is null. */
    const char *file;
    /** Any of these, which blanks separate. */
    const char *ids;
};

const char brokenLine[] = "malformed-line wrong-field-count comment-line";
// For them, an account does not exist when they refuse its line.
const char orphanLine[] = "orphan-shadow-line wrong-field-count";
const char missingMember[] = "missing-member empty-member";
const char missingHome[] = "missing-home missing-system-home";

const Equivalent equivalents[] = {
    // They do not see what follows a NUL byte.
    {"pwck: cannot open /etc/passwd", "passwd", "malformed-line"},
    {"invalid password file entry\ndelete line '(?<line>.*)'\\? No", "passwd", brokenLine},
    {"invalid group file entry\ndelete line '(?<line>.*)'\\? No", "group", brokenLine},
    {"invalid shadow password file entry\ndelete line '(?<line>.*)'\\? No", "shadow", brokenLine},
    {"invalid shadow group file entry\ndelete line '(?<line>.*)'\\? No", "gshadow", brokenLine},
    {"duplicate password entry\ndelete line '(?<account>[^:\n]*).*'\\? No", "passwd", "duplicate-name"},
    {"duplicate group entry\ndelete line '(?<account>[^:\n]*).*'\\? No", "group", "duplicate-name"},
    {"duplicate shadow password entry\ndelete line '(?<account>[^:\n]*).*'\\? No", "shadow", "duplicate-name"},
    {"duplicate shadow group entry\ndelete line '(?<account>[^:\n]*).*'\\? No", "gshadow", "duplicate-name"},
    {"invalid user name '(?<account>.*)': use --badname to ignore", "passwd", "invalid-name refused-name"},
    {"invalid group name '(?<account>.*)'", "group", "invalid-name"},
    {"invalid user ID '.*'", "passwd", "invalid-id"},
    {"invalid group ID '.*'", "group", "invalid-id"},
    {"user '(?<account>.*)': no group \\d+", "passwd", "missing-primary-group"},
    {"user '(?<account>.*)': directory '.*' does not exist", "passwd", missingHome},
    {"user '(?<account>.*)': program '.*' does not exist", "passwd", "unusable-shell"},
    {"no matching password file entry in /etc/shadow\nadd user '(?<account>.*)' in /etc/shadow\\? No",
     "passwd",
     "missing-shadow-line"},
    {"no matching group file entry in /etc/gshadow\nadd group '(?<account>.*)' in /etc/gshadow\\? No",
     "group",
     "missing-shadow-line"},
    {"no matching password file entry in /etc/passwd\ndelete line '(?<account>[^:\n]*).*'\\? No", nullptr, orphanLine},
    // Newer releases take a line without a colon for a name.
    {"no matching group file entry in /etc/group\ndelete line '(?<line>#[^:\n]*)'\\? No", "gshadow", "comment-line"},
    {"no matching group file entry in /etc/group\ndelete line '(?<account>[^:\n]*).*'\\? No", nullptr, orphanLine},
    {"user (?<account>.*) has an entry in /etc/shadow, but its password field in /etc/passwd is not set to 'x'",
     "passwd",
     "ignored-shadow-line"},
    {"group (?<account>.*) has an entry in /etc/gshadow, but its password field in /etc/group is not set to 'x'",
     "group",
     "ignored-shadow-line"},
    {"user (?<account>.*): last password change in the future", "shadow", "future-password-change"},
    {"shadow group (?<account>.*): no administrative user .*\ndelete administrative member '.*'\\? No",
     "gshadow",
     "missing-administrator"},
    {"shadow group (?<account>.*): no user .*\ndelete member '.*'\\? No", "gshadow", missingMember},
    {"group (?<account>.*): no user .*\ndelete member '.*'\\? No", "group", missingMember},
    {"'.*' is a member of the '(?<account>.*)' group in /etc/group but not in /etc/gshadow",
     "group",
     "different-members"},
    {"'.*' is a member of the '(?<account>.*)' group in /etc/gshadow but not in /etc/group",
     "gshadow",
     "different-members"},
};

/** One complaint, which may have two lines. */
struct Complaint {
    QString text;
    QString account;
    QString line;
    const Equivalent *equivalent = nullptr;
};

QRegularExpression patternOf(const Equivalent &equivalent)
{
    return QRegularExpression(QLatin1String("\\A") + QLatin1String(equivalent.complaint) + QLatin1Char('\n'));
}

/** Removes the first complaint from @p output and returns it; without problems when none are known to match. */
Complaint takeComplaint(QString &output)
{
    for (const Equivalent &equivalent : equivalents) {
        const QRegularExpressionMatch match = patternOf(equivalent).match(output);
        if (match.hasMatch()) {
            output.remove(0, match.capturedLength());
            return {match.captured(),
                    match.captured(QStringLiteral("account")),
                    match.captured(QStringLiteral("line")),
                    &equivalent};
        }
    }
    const QString text = output.section(QLatin1Char('\n'), 0, 0);
    output.remove(0, text.size() + 1);
    return {text, {}, {}, nullptr};
}

/** All complaints of pwck or grpck. */
QVector<Complaint> complaintsOf(const QString &program)
{
    const Program::Result result = Program::run(QLatin1String("/usr/sbin/") + program, {QStringLiteral("-r")});
    QString output = QString::fromLatin1(result.errors + result.output);
    output.remove(program + QLatin1String(": no changes\n"));
    QVector<Complaint> complaints;
    while (!output.isEmpty()) {
        complaints.append(takeComplaint(output));
    }
    return complaints;
}

/** Whether @p problem says what @p complaint does. */
bool isSame(const Complaint &complaint, const Problem &problem, const BrokenAccounts &accounts)
{
    const QString file = problem.file.section(QLatin1Char('/'), -1);
    const char *expectedFile = complaint.equivalent->file;
    if ((expectedFile && file != QLatin1String(expectedFile))
        || !QString::fromLatin1(complaint.equivalent->ids).split(QLatin1Char(' ')).contains(problem.id())) {
        return false;
    }
    if (!complaint.line.isNull()) {
        const QByteArray line = accounts.files.value(file).split('\n').value(problem.line - 1);
        // They ignore what follows a NUL byte.
        return complaint.line == QString::fromLatin1(line.constData());
    }
    const QString account = problem.user.isNull() ? problem.group : problem.user;
    return complaint.account.isNull() || complaint.account.toLatin1() == account.toLatin1()
        || complaint.account.toLatin1() == account.toUtf8();
}

/** The kinds of @p problems, each with its number. */
QString kindsOf(const QList<Problem> &problems)
{
    QMap<QString, int> kinds;
    for (const Problem &problem : problems) {
        ++kinds[problem.id()];
    }
    QStringList words;
    for (auto kind = kinds.begin(); kind != kinds.end(); ++kind) {
        words.append(kind.value() == 1 ? kind.key() : QStringLiteral("%1 %2").arg(kind.value()).arg(kind.key()));
    }
    return words.isEmpty() ? QStringLiteral("-") : words.join(QLatin1String(", "));
}
}

/** Compares with pwck and grpck, which come with useradd and its like. */
class CheckComparisonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsAllThatPwckAndGrpckFind_data();
    void findsAllThatPwckAndGrpckFind();
    void findsMore() const;
    void isDocumented() const;

private:
    /** The table for the documentation: what is found for each case. */
    QStringList m_table;
    int m_complaints = 0;
    int m_problems = 0;
};

void CheckComparisonTest::findsAllThatPwckAndGrpckFind_data()
{
    QTest::addColumn<BrokenAccounts>("accounts");

    const QVector<BrokenAccounts> cases = BrokenAccounts::all();
    for (const BrokenAccounts &accounts : cases) {
        QTest::newRow(accounts.name.constData()) << accounts;
    }
}

void CheckComparisonTest::findsAllThatPwckAndGrpckFind()
{
    QFETCH(BrokenAccounts, accounts);

    accounts.install();
    const QList<Problem> problems = MachineCheck::run().problems;
    const QVector<Complaint> users = complaintsOf(QStringLiteral("pwck"));
    const QVector<Complaint> groups = complaintsOf(QStringLiteral("grpck"));
    const QVector<Complaint> complaints = users + groups;
    for (const Complaint &complaint : complaints) {
        QVERIFY2(complaint.equivalent, qPrintable(complaint.text));
        const bool found = std::any_of(problems.begin(), problems.end(), [&](const Problem &problem) {
            return isSame(complaint, problem, accounts);
        });
        QVERIFY2(found, qPrintable(complaint.text));
    }
    m_complaints += users.size() + groups.size();
    m_problems += problems.size();
    // What pwck and grpck find depends on their release.
    m_table.append(QStringLiteral("| %1 | %2 | %3 | %4 |")
                       .arg(QString::fromUtf8(accounts.name), kindsOf(problems))
                       .arg(users.size())
                       .arg(groups.size()));
    qInfo("found %d, pwck %d, grpck %d", problems.size(), users.size(), groups.size());
}

void CheckComparisonTest::findsMore() const
{
    // Both programs have run and said something that is understood.
    QVERIFY2(m_complaints >= 40, qPrintable(QString::number(m_complaints)));
    QVERIFY2(m_problems > m_complaints, qPrintable(QString::number(m_problems)));
}

void CheckComparisonTest::isDocumented() const
{
    const QStringList table =
        QStringList{QStringLiteral("| Accounts | `check` | pwck | grpck |"), QStringLiteral("|---|---|--:|--:|")}
        + m_table;
    QFile file(QStringLiteral(RESULTS_DIR "/checks.md"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(table.join(QLatin1Char('\n')).toUtf8() + '\n');
    const QString page = QString::fromUtf8(contentOf(QStringLiteral(CHECKS_PAGE)));
    QVERIFY(m_table.size() >= 40);
    for (const QString &row : m_table) {
        const QString found = row.section(QStringLiteral(" | "), 0, 1);
        QVERIFY2(page.contains(QLatin1Char('\n') + found + QLatin1String(" | ")), qPrintable(row));
    }
}

QTEST_GUILESS_MAIN(CheckComparisonTest)

#include "checkcomparisontest.moc"

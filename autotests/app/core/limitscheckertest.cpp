/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitschecker.h"

#include "describe.h"
#include "limitsfixtures.h"

#include <QTest>

namespace
{
const char tooFew[] = "fewer than four columns separated by spaces";
const char tabs[] = "tabs between columns, only spaces separate them";
const char noNumber[] = "the value is not a number";
const char noPath[] = "the value is not an absolute path";
const char large[] = "the number does not fit into 32 bits";
const char outOfRange[] = "the value is outside the range of the item";
const char unknownItem[] = "the item is not known";
const char unknownType[] = "the type is none of soft, hard and -";
const char numericRange[] = "a numeric range in the domain applies to nobody";

QStringList texts(const std::initializer_list<const char *> &list)
{
    QStringList strings;
    for (const char *text : list) {
        strings.append(QString::fromLatin1(text));
    }
    return strings;
}

QStringList describe(const QList<LimitsFinding> &findings)
{
    QStringList lines;
    for (const LimitsFinding &finding : findings) {
        lines.append(QStringLiteral("%1:%2: %3: %4")
                         .arg(finding.file, QString::number(finding.line), finding.text, finding.allReasons()));
    }
    return lines;
}
}

class LimitsCheckerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsProblems_data();
    void findsProblems();
    void passesOnlyLinesThatAreRead_data();
    void passesOnlyLinesThatAreRead();
    void listsFindingsInOrderOfFiles();
    void leavesOutFilesThatCannotBeOpened();
};

void LimitsCheckerTest::findsProblems_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QStringList>("problems");

    const auto addLine = [](const char *line, const std::initializer_list<const char *> &problems) {
        const QByteArray name = QByteArray(line).replace('\t', "\\t").trimmed();
        QTest::addRow("'%s'", name.constData()) << QByteArray(line) << texts(problems);
    };
    addLine("* soft core 0\n", {});
    addLine("  @users   hard   nproc   100  # not more\r\n", {});
    addLine("\t* - nice -20\t", {});
    addLine("* - core 5\t # five", {});
    addLine("* - core unlimited", {});
    addLine("* - core infinity", {});
    addLine("jail - chroot /srv/jail", {});
    addLine("alice:bob - core 1", {});
    addLine("//:// - core 1", {});
    addLine("@: - core 1", {});
    addLine("# * soft core", {});
    addLine(" \t # comment\twith tab", {});
    addLine("\n", {});
    addLine("", {});
    addLine(" \t \n", {});

    addLine("* soft core", {tooFew});
    addLine("*", {tooFew});
    addLine("*\tsoft core", {tooFew});
    addLine("* soft core\t\t", {tooFew});

    addLine("*\tsoft\tcore\t0", {tabs});
    addLine("*\tsoft core 0", {tabs});
    addLine("* soft core\t0\t# none", {tabs});
    addLine("*\tsoft core 0 # none", {tabs});
    addLine("* soft\tcore 0 0", {tabs});
    addLine("* soft core\t0 0", {tabs});
    addLine("* soft core 0\t0", {tabs});
    addLine("* soft core unlimited\t # none", {tabs});

    addLine("* soft core 10k", {noNumber});
    addLine("* soft core Unlimited", {noNumber});
    addLine("* soft core 0x10", {noNumber});
    addLine("* soft core 0#none", {noNumber});
    addLine("* soft core /srv", {noNumber});
    addLine("* soft core -", {noNumber});
    addLine("* soft core +-5", {noNumber});

    addLine("* soft core 2147483647", {});
    addLine("* soft core +5", {});
    addLine("* soft core 2147483648", {large});
    addLine("bob hard fsize 5000000000", {large});
    addLine("* - core 5000000000\t # five", {large});
    addLine("* - nice -5000000000", {large});
    addLine("* soft bogus 5000000000", {unknownItem, large});

    addLine("jail - chroot srv/jail", {noPath});
    addLine("bob - chroot jail", {noPath});
    addLine("bob - chroot 5", {noPath});
    addLine("bob - chroot 5000000000", {noPath});
    addLine("bob - chroot unlimited", {});
    addLine("bob - chroot -1", {});

    addLine("* - nice 19", {});
    addLine("* - nice -1", {});
    addLine("* - nice 20", {outOfRange});
    addLine("* - nice -21", {outOfRange});
    addLine("carol - nice unlimited", {outOfRange});
    addLine("@staff - priority infinity", {outOfRange});
    addLine("carol - nonewprivs 0", {});
    addLine("carol - nonewprivs -1", {outOfRange});
    addLine("carol - nonewprivs 5", {outOfRange});
    addLine("* - nproc -1", {});
    addLine("* - nproc -2", {outOfRange});

    addLine("* soft bogus 5", {unknownItem});
    addLine("* soft Core 5", {unknownItem});
    addLine("* soft rss 5", {unknownItem});
    addLine("* Soft core 5", {unknownType});
    addLine("* both core 5", {unknownType});

    addLine("1000:2000 - core 5", {numericRange});
    addLine("1000: - core 5", {numericRange});
    addLine(":0 - core 5", {numericRange});
    addLine("@100:200 - core 5", {numericRange});
    addLine("@100: - core 5", {numericRange});
    addLine("@:100 - core 5", {numericRange});
    addLine("%:100 - maxlogins 5", {numericRange});

    addLine("@1: x y z", {numericRange, unknownType, unknownItem, noNumber});
}

void LimitsCheckerTest::findsProblems()
{
    QFETCH(QByteArray, line);
    QFETCH(QStringList, problems);

    QCOMPARE(limitsLineProblems(line), problems);
}

void LimitsCheckerTest::passesOnlyLinesThatAreRead_data()
{
    QTest::addColumn<QString>("folder");

    const QDir cases(QFINDTESTDATA("../../limits/data"));
    const QStringList names = cases.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        QTest::newRow(qPrintable(name)) << cases.filePath(name);
    }
}

void LimitsCheckerTest::passesOnlyLinesThatAreRead()
{
    QFETCH(QString, folder);

    const QList<QByteArray> lines = contentOf(folder + QLatin1String("/limits.conf")).split('\n');
    for (const QByteArray &line : lines) {
        const bool isRule = !line.trimmed().isEmpty() && !line.trimmed().startsWith('#');
        if (isRule && limitsLineProblems(line).isEmpty()) {
            const QList<LimitsParser::Field> rules = limitsOf(line).fields();
            QVERIFY2(rules.size() == 1, line.constData());
            QVERIFY2(rules.first().valueType != LimitsParser::Unknown, line.constData());
        }
    }
}

void LimitsCheckerTest::listsFindingsInOrderOfFiles()
{
    clearLimits();
    Sandbox::write(limitsPath(), "# comment\n* soft core 1\n\n* soft core\n* soft data ten\n");
    Sandbox::write(dropInPath(QStringLiteral("b")), "*\tsoft core 1");
    Sandbox::write(dropInPath(QStringLiteral("A")), "* soft core 2\n* - x y\n");
    QCOMPARE(describe(checkLimits()),
             texts({
                 "/etc/security/limits.conf:4: * soft core: fewer than four columns separated by spaces",
                 "/etc/security/limits.conf:5: * soft data ten: the value is not a number",
                 "/etc/security/limits.d/A:2: * - x y: the item is not known, the value is not a number",
                 "/etc/security/limits.d/b:1: *\tsoft core 1: tabs between columns, only spaces separate them",
             }));
}

void LimitsCheckerTest::leavesOutFilesThatCannotBeOpened()
{
    clearLimits();
    Sandbox::remove(limitsPath());
    Sandbox::write(dropInPath(QStringLiteral("a")), "short\n");
    QCOMPARE(describe(checkLimits()),
             texts({"/etc/security/limits.d/a:1: short: fewer than four columns separated by spaces"}));
}

QTEST_GUILESS_MAIN(LimitsCheckerTest)

#include "limitscheckertest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "describe.h"
#include "limitsfixtures.h"
#include "messagerecorder.h"
#include "readerfixtures.h"

#include <LimitsParser>

#include <QTest>

#include <sys/stat.h>

class LimitsReaderTest : public QObject
{
    Q_OBJECT

public:
    static void initMain();

private Q_SLOTS:
    void init();

    void readsRules_data();
    void readsRules();
    void storesTypesOfValues();

    void isEmptyBeforeReading();
    void replacesRulesOnNextReading();
    void leavesErrorAloneOnSuccess();
    void copiesAreIndependent();
    void readsWithoutDropInDirectory();
    void readsWithFileInPlaceOfDropInDirectory();

    void followsLinks();
    void readsLinkedFileAgain();
    void skipsDanglingLinksAndDirectories();
    void ordersLinksByTheirOwnNames();

    void readsLongLines_data();
    void readsLongLines();
    void readsManyRules();
    void readsBinaryJunk();
    void logsNothing();
};

void LimitsReaderTest::initMain()
{
    // A language that sorts capitals next to small letters.
    qputenv("LC_ALL", "en_US.UTF-8");
}

void LimitsReaderTest::init()
{
    clearLimits();
}

void LimitsReaderTest::readsRules_data()
{
    QTest::addColumn<QString>("folder");

    const QDir cases(QFINDTESTDATA("data"));
    const QStringList names = cases.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QVERIFY(names.size() > 5);
    for (const QString &name : names) {
        QTest::newRow(qPrintable(name)) << cases.filePath(name);
    }
}

void LimitsReaderTest::readsRules()
{
    QFETCH(QString, folder);

    installLimits(folder);
    QStringList expected =
        QString::fromUtf8(contentOf(folder + QLatin1String("/expected.txt"))).split(QLatin1Char('\n'));
    QCOMPARE(expected.takeLast(), QString());
    while (!expected.isEmpty() && expected.first().startsWith(QLatin1Char('#'))) {
        expected.removeFirst();
    }
    QCOMPARE(describe(readLimits().fields()).join(QLatin1Char('\n')), expected.join(QLatin1Char('\n')));
}

void LimitsReaderTest::storesTypesOfValues()
{
    const QList<LimitsParser::Field> rules = limitsOf("a - core 1\na - core unlimited\na - chroot /\n").fields();
    QCOMPARE(rules.size(), 3);
    QCOMPARE(rules.at(0).value, QVariant(1));
    QCOMPARE(rules.at(1).value, QVariant(-1));
    QCOMPARE(rules.at(2).value, QVariant(QStringLiteral("/")));
}

void LimitsReaderTest::isEmptyBeforeReading()
{
    Sandbox::write(limitsPath(), "* soft core 1\n");
    QVERIFY(LimitsParser().fields().isEmpty());
}

void LimitsReaderTest::replacesRulesOnNextReading()
{
    LimitsParser limits = limitsOf("* soft core 1\n");
    QCOMPARE(values(limits), QStringLiteral("1"));
    Sandbox::write(limitsPath(), "* soft core 2\n* soft core 3\n");
    QCOMPARE(values(limits), QStringLiteral("1"));
    QString error;
    QVERIFY(limits.readLimitsConf(error));
    QCOMPARE(values(limits), QStringLiteral("2 3"));
    Sandbox::write(limitsPath(), QByteArray());
    QVERIFY(limits.readLimitsConf(error));
    QCOMPARE(values(limits), QString());
}

void LimitsReaderTest::leavesErrorAloneOnSuccess()
{
    LimitsParser limits;
    QString error = QLatin1String(untouched);
    QVERIFY(limits.readLimitsConf(error));
    QCOMPARE(error, QLatin1String(untouched));
    QString null;
    QVERIFY(limits.readLimitsConf(null));
    QVERIFY(null.isNull());
}

void LimitsReaderTest::copiesAreIndependent()
{
    LimitsParser limits = limitsOf("* soft core 1\n");
    const LimitsParser copy = limits;
    Sandbox::write(limitsPath(), "* soft core 2\n");
    QString error;
    QVERIFY(limits.readLimitsConf(error));
    QCOMPARE(values(copy), QStringLiteral("1"));
    QCOMPARE(values(limits), QStringLiteral("2"));
}

void LimitsReaderTest::readsWithoutDropInDirectory()
{
    Sandbox::clear(QStringLiteral("/etc/security"));
    Sandbox::write(limitsPath(), "* soft core 1\n");
    QVERIFY(!QFile::exists(dropInPath(QString())));
    QCOMPARE(values(readLimits()), QStringLiteral("1"));
}

void LimitsReaderTest::readsWithFileInPlaceOfDropInDirectory()
{
    Sandbox::clear(QStringLiteral("/etc/security"));
    Sandbox::write(limitsPath(), "* soft core 1\n");
    Sandbox::write(securityPath("limits.d"), "* soft core 2\n");
    QCOMPARE(values(readLimits()), QStringLiteral("1"));
}

void LimitsReaderTest::followsLinks()
{
    Sandbox::write(securityPath("elsewhere"), "* soft core 1\n");
    link(securityPath("elsewhere"), dropInPath(QStringLiteral("linked.conf")));
    QCOMPARE(values(readLimits()), QStringLiteral("1"));
}

void LimitsReaderTest::readsLinkedFileAgain()
{
    Sandbox::write(limitsPath(), "* soft core 1\n");
    writeDropIn("a", "* soft core 2\n");
    link(QStringLiteral("a"), dropInPath(QStringLiteral("b")));
    link(limitsPath(), dropInPath(QStringLiteral("c")));
    QCOMPARE(values(readLimits()), QStringLiteral("1 2 2 1"));
}

void LimitsReaderTest::skipsDanglingLinksAndDirectories()
{
    writeDropIn("b", "* soft core 1\n");
    link(QStringLiteral("nowhere"), dropInPath(QStringLiteral("a")));
    Sandbox::clear(dropInPath(QStringLiteral("directory.conf")));
    Sandbox::write(dropInPath(QStringLiteral("directory.conf/inner.conf")), "* soft core 2\n");
    link(QStringLiteral("directory.conf"), dropInPath(QStringLiteral("linkeddirectory")));
    QCOMPARE(::mkfifo(qPrintable(dropInPath(QStringLiteral("fifo"))), 0600), 0);
    link(QStringLiteral("/dev/null"), dropInPath(QStringLiteral("device")));
    QCOMPARE(values(readLimits()), QStringLiteral("1"));
}

void LimitsReaderTest::ordersLinksByTheirOwnNames()
{
    Sandbox::write(securityPath("a-target"), "* soft core 2\n");
    Sandbox::write(securityPath("z-target"), "* soft core 1\n");
    link(securityPath("z-target"), dropInPath(QStringLiteral("a")));
    link(securityPath("a-target"), dropInPath(QStringLiteral("b")));
    QCOMPARE(values(readLimits()), QStringLiteral("1 2"));
}

void LimitsReaderTest::readsLongLines_data()
{
    QTest::addColumn<int>("length");

    const int lengths[] = {100, 4093, 4094, 4095, 4096, 4097, 8190, 8191, 8192, 16384, 40000, 50 * 1024 * 1024};
    for (const int length : lengths) {
        QTest::addRow("%d bytes", length) << length;
    }
}

void LimitsReaderTest::readsLongLines()
{
    QFETCH(int, length);

    const QByteArray line = QByteArray(length - 14, ' ') + "* soft core 1\n";
    QCOMPARE(line.size(), length);
    QByteArray comment = '#' + QByteArray(length, 'x');
    const QByteArray name(length, 'n');
    const LimitsParser limits =
        limitsOf(line + "* soft core 2\n" + comment + "\n* soft core 3\n" + name + " soft core 4\n" + line.trimmed());
    QCOMPARE(values(limits), QStringLiteral("1 2 3 4 1"));
    QCOMPARE(limits.fields().at(3).domain, QString::fromLatin1(name));
}

void LimitsReaderTest::readsManyRules()
{
    constexpr int count = 1000000;
    QByteArray rules;
    rules.reserve(40 * count);
    for (int i = 0; i < count; ++i) {
        rules += "user" + QByteArray::number(i) + " hard nofile " + QByteArray::number(i) + '\n';
    }
    const QList<LimitsParser::Field> fields = limitsOf(rules).fields();
    QCOMPARE(fields.size(), count);
    for (int i = 0; i < count; ++i) {
        QCOMPARE(fields.at(i).domain, QLatin1String("user") + QString::number(i));
        QCOMPARE(fields.at(i).item, QLatin1String("nofile"));
        QCOMPARE(fields.at(i).value.toInt(), i);
    }
}

void LimitsReaderTest::readsBinaryJunk()
{
    QByteArray junk;
    for (int i = 0; i < 200000; ++i) {
        junk += static_cast<char>((qint64(i) * i + i / 256) % 256);
    }
    const QList<LimitsParser::Field> rules = limitsOf(junk + "\n* soft core 1\n").fields();
    QCOMPARE(describe(rules.last()), QStringLiteral("* | soft | core | int 1 | 1"));
}

void LimitsReaderTest::logsNothing()
{
    MessageRecorder recorder;
    limitsOf("* soft core 1\nmalformed\n* bogus bogus bogus\n");
    Sandbox::remove(limitsPath());
    LimitsParser limits;
    failure(limits);
    QCOMPARE(recorder.takeTexts(), QStringList());
}

QTEST_GUILESS_MAIN(LimitsReaderTest)

#include "readertest.moc"

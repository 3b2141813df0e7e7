/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "program.h"

#include <QDir>
#include <QTest>

namespace
{
Program::Result hash(const QStringList &options, const QStringList &variables)
{
    return Program::run(Program::path(), QStringList(QStringLiteral("hash")) + options, "secret\n", variables);
}

QByteArray readelf(const QString &option, const QString &library)
{
    return Program::run(QStringLiteral("readelf"), {QStringLiteral("-W"), option, Program::builtFile(library)}).output;
}
}

class GostLibraryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isNeededByName();
    void isCalledThroughDynamicLinker();
    void exportsOneFunction();
    void isTheOneFoundFirst();
};

void GostLibraryTest::isNeededByName()
{
    QVERIFY(readelf(QStringLiteral("-d"), QStringLiteral("libormel-users-qt.so.1"))
                .contains("(NEEDED)             Shared library: [libgost.so.2]"));
}

void GostLibraryTest::isCalledThroughDynamicLinker()
{
    const QByteArray symbols = readelf(QStringLiteral("--dyn-syms"), QStringLiteral("libormel-users-qt.so.1"));
    QVERIFY(symbols.contains("GLOBAL DEFAULT  UND gost_crypt\n"));
    QVERIFY(symbols.contains("GLOBAL DEFAULT  UND crypt"));
}

void GostLibraryTest::exportsOneFunction()
{
    if (!QFile::exists(Program::builtFile(QStringLiteral("libgost.so.2")))) {
        QTest::qSkip("The platform has a library of its own.", __FILE__, __LINE__);
        return;
    }
    QVERIFY(readelf(QStringLiteral("-d"), QStringLiteral("libgost.so.2")).contains("soname: [libgost.so.2]"));
    QByteArrayList defined;
    const QByteArrayList symbols =
        readelf(QStringLiteral("--dyn-syms"), QStringLiteral("libgost.so.2")).simplified().split(' ');
    for (int i = 0; i + 2 < symbols.size(); ++i) {
        if (symbols.at(i) == "DEFAULT" && symbols.at(i + 1) != "UND") {
            defined.append(symbols.at(i + 2));
        }
    }
    QCOMPARE(defined, QByteArrayList({"gost_crypt"}));
}

void GostLibraryTest::isTheOneFoundFirst()
{
    const QString standIns = QStringLiteral(STANDIN_DIR);
    QVERIFY(QFile::exists(standIns + QStringLiteral("/libgost.so.2")));
    const QStringList first{QStringLiteral("LD_LIBRARY_PATH=") + standIns};

    const QStringList gost{QStringLiteral("--gost")};
    const Program::Result plain = hash(gost, {});
    QCOMPARE(plain.status, 0);
    QVERIFY2(plain.output.startsWith("$gost12512hash$"), plain.errors.constData());

    const Program::Result replaced = hash(gost, first);
    QCOMPARE(replaced.status, 0);
    QVERIFY2(replaced.output.startsWith("stand-in secret $gost12512hash$"), replaced.output.constData());

    const Program::Result other = hash({}, first);
    QCOMPARE(other.status, 0);
    QVERIFY2(other.output.startsWith("$6$"), other.output.constData());
}

QTEST_GUILESS_MAIN(GostLibraryTest)

#include "librarytest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "program.h"
#include "sandbox.h"
#include "terminalsession.h"

#include <QTest>

#include <cwchar>

namespace
{
/** What @p command shows on a terminal with @p columns columns. */
QStringList shown(const char *command, ushort columns)
{
    TerminalSession session(command, columns);
    session.end();
    QStringList lines = QString::fromUtf8(session.shown()).split(QStringLiteral("\r\n"));
    lines.removeLast();
    return lines;
}

/** How many cells of a terminal @p text takes. */
int cells(const QString &text)
{
    int sum = 0;
    for (const wchar_t character : text.toStdWString()) {
        sum += wcwidth(character);
    }
    return sum;
}
}

/** The tables of ormel-users users and groups on a terminal. */
class ListTableTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void fitsTerminal_data();
    void fitsTerminal();
    void continuesCellsInFurtherLines();
    void countsCells();
    void leavesCellsAloneInPipe();
};

void ListTableTest::init()
{
    QByteArrayList members;
    for (int i = 0; i < 20; ++i) {
        members.append("member" + QByteArray::number(i));
    }
    Sandbox::setAccounts("tanaka:x:1000:50:\xe7\x94\xb0\xe4\xb8\xad \xe5\xa4\xaa\xe9\x83\x8e:/home/tanaka:/bin/sh\n"
                         "alice:x:1001:50:Alice:/home/alice:/bin/sh\n",
                         "ormel-admin:x:27:\nstaff:x:50:\nbig:x:60:" + members.join(',') + "\nlast:x:61:a\n");
}

void ListTableTest::fitsTerminal_data()
{
    QTest::addColumn<int>("width");

    for (const int width : {40, 60, 80, 132}) {
        QTest::addRow("%d", width) << width;
    }
}

void ListTableTest::fitsTerminal()
{
    QFETCH(int, width);

    const QStringList lines = shown("exec \"$0\" groups", ushort(width));
    QVERIFY(lines.size() > 5);
    for (const QString &line : lines) {
        QVERIFY2(cells(line) <= width, qPrintable(line));
    }
}

void ListTableTest::continuesCellsInFurtherLines()
{
    const QStringList lines = shown("exec \"$0\" groups big", 40);
    QString members;
    for (int i = 1; i < lines.size(); ++i) {
        members += lines.at(i).midRef(lines.first().indexOf(QLatin1String("Members")));
    }
    QVERIFY(lines.size() > 3);
    QVERIFY(members.startsWith(QLatin1String("member0,member1,")));
    QVERIFY(members.endsWith(QLatin1String(",member18,member19")));
    QCOMPARE(members.count(QLatin1Char(',')), 19);
}

void ListTableTest::countsCells()
{
    const QStringList lines = shown("exec \"$0\" users", 80);
    QCOMPARE(lines.size(), 3);
    QCOMPARE(cells(lines.at(1).section(QStringLiteral("1000"), 0, 0)),
             cells(lines.at(2).section(QStringLiteral("1001"), 0, 0)));
    QVERIFY(lines.at(1).contains(QStringLiteral(u"\u7530\u4e2d \u592a\u90ce")));
}

void ListTableTest::leavesCellsAloneInPipe()
{
    const QStringList lines = shown("\"$0\" groups | wc -l", 40);
    QCOMPARE(lines.first().trimmed(), QStringLiteral("5"));
}

QTEST_GUILESS_MAIN(ListTableTest)

#include "listtabletest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "shellquote.h"

#include "plan.h"
#include "program.h"

#include <QRandomGenerator>
#include <QTest>

namespace
{
/** The character that overrides the writing direction, byte by byte so that it does not act on this source. */
const char override[] = {'\xe2', '\x80', '\xae', '\0'};

/** The arguments that a shell passes on. */
QByteArrayList passedOn(const QString &shell, const QByteArrayList &arguments)
{
    QByteArray script = "printf '%s\\0'";
    for (const QByteArray &argument : arguments) {
        script += ' ' + quoteForShell(argument);
    }
    const Program::Result result = Program::run(shell, {}, script + '\n');
    QByteArrayList words = result.output.split('\0');
    words.removeLast();
    return words;
}
}

class ShellQuoteTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quotesOnlyWhereNeeded_data();
    void quotesOnlyWhereNeeded();
    void showsNothingInvisible();
    void passesEveryByteOn_data();
    void passesEveryByteOn();
    void passesRandomTextsOn_data();
    void passesRandomTextsOn();
    void keepsOperandsFromBeingOptions();
    void writesScript();
};

void ShellQuoteTest::quotesOnlyWhereNeeded_data()
{
    QTest::addColumn<QByteArray>("argument");
    QTest::addColumn<QByteArray>("quoted");

    const auto add = [](const QByteArray &argument, const char *quoted) {
        QTest::newRow(quoted) << argument << QByteArray(quoted);
    };
    add("ada", "ada");
    add("--add", "--add");
    add("audio,video", "audio,video");
    add("/home/ada.b_c", "/home/ada.b_c");
    add("", "''");
    add("Ada Byron", "'Ada Byron'");
    add("it's", "'it'\\''s'");
    add("$(reboot)", "'$(reboot)'");
    add("$6$salt$hash", "'$6$salt$hash'");
    add("~root", "'~root'");
    add("a=b", "'a=b'");
    add("back\\slash", "'back\\slash'");
    add("\xc3\x96st", "'\xc3\x96st'");
    add("\xd8\xb9\xd9\x84\xd9\x8a", "'\xd8\xb9\xd9\x84\xd9\x8a'");
    add("a\033[2J", "\"$(printf 'a\\033\\1332J')\"");
    add("a\nb", "\"$(printf 'a\\012b')\"");
    add("a\n\n", "\"$(printf 'a')\"'\n\n'");
    add("\n", "'\n'");
    add("-\t%s", "\"$(printf '\\055\\011\\045s')\"");
    add("Latin-1 \xe9", "\"$(printf 'Latin\\0551 \\351')\"");
    add(QByteArray("override ") + override, "\"$(printf 'override \\342\\200\\256')\"");
}

void ShellQuoteTest::quotesOnlyWhereNeeded()
{
    QFETCH(QByteArray, argument);
    QFETCH(QByteArray, quoted);

    QCOMPARE(quoteForShell(argument), quoted);
}

void ShellQuoteTest::showsNothingInvisible()
{
    for (int byte = 1; byte < 256; ++byte) {
        const QByteArray quoted = quoteForShell(QByteArray("x") + char(byte) + 'x');
        for (const char character : quoted) {
            QVERIFY2(character >= ' ' && character <= '~', quoted.constData());
        }
    }
}

void ShellQuoteTest::passesEveryByteOn_data()
{
    QTest::addColumn<QString>("shell");

    QTest::newRow("sh") << QStringLiteral("sh");
    QTest::newRow("bash") << QStringLiteral("bash");
}

void ShellQuoteTest::passesEveryByteOn()
{
    QFETCH(QString, shell);

    QByteArrayList arguments{"", "-n", "--", "*", "~", "a\n", "\n\n", "'", "''", "\\", "%s%n", "\\n", "\xc3\x96"};
    for (int byte = 1; byte < 256; ++byte) {
        arguments << QByteArray(1, char(byte)) << QByteArray("a") + char(byte) << char(byte) + QByteArray("7");
    }
    QCOMPARE(passedOn(shell, arguments), arguments);
}

void ShellQuoteTest::passesRandomTextsOn_data()
{
    passesEveryByteOn_data();
}

void ShellQuoteTest::passesRandomTextsOn()
{
    QFETCH(QString, shell);

    QRandomGenerator random(2026);
    const QByteArray likely = QByteArray("'\"\\$`!%\n\t -=~*?[]{}();&|<>#\033\xc3\xb6\xe9"
                                         "07an")
        + override;
    QByteArrayList arguments;
    for (int i = 0; i < 2000; ++i) {
        QByteArray argument;
        for (int length = random.bounded(12); length > 0; --length) {
            argument += likely.at(random.bounded(likely.size()));
        }
        arguments.append(argument);
    }
    QCOMPARE(passedOn(shell, arguments), arguments);
}

void ShellQuoteTest::keepsOperandsFromBeingOptions()
{
    Plan plan;
    plan.add({"groupadd"}, "staff");
    plan.add({"groupadd", "--gid", "50"}, "-f");
    QCOMPARE(plan.toText(), QByteArray("groupadd staff\ngroupadd --gid 50 -- -f\n"));
}

void ShellQuoteTest::writesScript()
{
    Plan plan;
    plan.add({"groupadd"}, "a b");
    QCOMPARE(plan.toScript(),
             QByteArray("#!/bin/sh\n# Read this before you run it as root.\nset -e\ngroupadd 'a b'\n"));
    plan.holdsHash = true;
    QVERIFY(plan.toScript().contains("\n# It contains a password hash:"));
}

QTEST_GUILESS_MAIN(ShellQuoteTest)

#include "shellquotetest.moc"

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef FUZZING_H
#define FUZZING_H

#include <QByteArray>
#include <QList>
#include <QString>

/** What a fuzz target defines. All of them run in the sandbox, with a QApplication. */
namespace Target
{
/** Called once, before the first input. */
void prepare();

/** Tests something with @p input; a broken promise ends the program. */
void run(const QByteArray &input);
}

namespace Fuzzing
{
/** Ends the program with the text @p promise unless it is kept. */
void require(bool kept, const QString &promise);

/** Ends the program unless both are equal. Shows both with @p about, which says what they are. */
void requireEqual(const QString &actual, const QString &expected, const char *about);

/** The parts of @p input between lines with "---", at least @p count of them. */
QList<QByteArray> sections(const QByteArray &input, int count);

/** One line of an input that is a script: "resize 300 200". */
class Command
{
public:
    explicit Command(const QByteArray &line);

    const QByteArray &verb() const;
    int argumentCount() const;

    /** The text at @p position after the verb, as Latin-1; empty when there are fewer. */
    QString text(int position) const;
    /** The texts from @p position on. */
    QStringList textsFrom(int position) const;

    /** The number at @p position, brought between @p lowest and @p highest. */
    int number(int position, int lowest, int highest) const;

private:
    QList<QByteArray> m_words;
};

/** The commands of @p script, but no more than @p most. */
QList<Command> commands(const QByteArray &script, int most);

/** How much memory this program holds at the moment. */
size_t allocatedBytes();
}

#endif

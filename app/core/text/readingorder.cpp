/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "readingorder.h"

#include <QGuiApplication>
#include <QStringList>
#include <QVector>

#include <algorithm>

namespace
{
constexpr QChar rightToLeftMark(0x200f);
constexpr QChar leftToRightIsolate(0x2066);
constexpr QChar firstStrongIsolate(0x2068);
constexpr QChar popDirectionalIsolate(0x2069);

bool beginsIsolate(QChar character)
{
    return character == leftToRightIsolate || character == firstStrongIsolate;
}

/** Both halves of a surrogate pair have the direction of their character. */
QChar::Direction directionAt(const QString &text, int i)
{
    const int first = i > 0 && text.at(i).isLowSurrogate() ? i - 1 : i;
    if (text.at(first).isHighSurrogate() && first + 1 < text.size()) {
        return QChar::direction(QChar::surrogateToUcs4(text.at(first), text.at(first + 1)));
    }
    return text.at(i).direction();
}

bool isRightToLeft(QChar::Direction direction)
{
    return direction == QChar::DirR || direction == QChar::DirAL || direction == QChar::DirAN;
}

/** The place from @p i on where a word or an isolate begins. */
int endOfRun(const QString &text, int i)
{
    while (i < text.size() && !isRightToLeft(directionAt(text, i)) && !beginsIsolate(text.at(i))) {
        ++i;
    }
    return i;
}

/** The place after the words at @p i. Accents belong to the letter before them. */
int endOfWords(const QString &text, int i)
{
    while (i < text.size() && (isRightToLeft(directionAt(text, i)) || directionAt(text, i) == QChar::DirNSM)) {
        ++i;
    }
    return i;
}

/** The place after the isolate that begins at @p i. */
int endOfIsolate(const QString &text, int i)
{
    int depth = 0;
    for (; i < text.size(); ++i) {
        if (beginsIsolate(text.at(i))) {
            ++depth;
        } else if (text.at(i) == popDirectionalIsolate && --depth == 0) {
            return i + 1;
        }
    }
    return i;
}

/** The place of a bracket in @p run that has no counterpart there; -1 if there is none. */
int unmatchedBracket(const QString &run)
{
    static const QString opening = QStringLiteral("([{<");
    static const QString closing = QStringLiteral(")]}>");
    QVector<int> open;
    for (int i = 0; i < run.size(); ++i) {
        const int bracket = closing.indexOf(run.at(i));
        if (opening.contains(run.at(i))) {
            open.append(i);
        } else if (bracket != -1 && !open.isEmpty() && run.at(open.constLast()) == opening.at(bracket)) {
            open.removeLast();
        } else if (bracket != -1) {
            return i;
        }
    }
    return open.value(0, -1);
}

/** Whether @p character belongs to the sentence around a word when it stands before it. */
bool isBefore(QChar character)
{
    return character.isSpace() || QStringLiteral(u"'\"«»‹›“”„‘’,،;:!?…–—").contains(character);
}

bool isAfter(QChar character)
{
    return character == QLatin1Char('.') || isBefore(character);
}

/** @p run, which has nothing that is read from right to left, with what is not punctuation isolated. */
QString isolatedRun(const QString &run)
{
    const int bracket = unmatchedBracket(run);
    if (bracket != -1) {
        return isolatedRun(run.left(bracket)) + run.at(bracket) + isolatedRun(run.mid(bracket + 1));
    }
    int first = 0;
    int last = run.size();
    while (first < last && isBefore(run.at(first))) {
        ++first;
    }
    while (first < last && isAfter(run.at(last - 1))) {
        --last;
    }
    const QString words = run.mid(first, last - first);
    const auto isWord = [](QChar character) { return character.isLetterOrNumber() || character.isSurrogate(); };
    const bool isPlain = std::all_of(words.begin(), words.end(), isWord);
    const bool isSign = std::none_of(words.begin(), words.end(), isWord);
    return isPlain || isSign ? run : run.left(first) + ReadingOrder::leftToRight(words) + run.mid(last);
}

/** @p line, which is read from right to left, with marks around what is not. */
QString isolatedParts(const QString &line)
{
    QString result;
    int i = 0;
    while (i < line.size()) {
        const int start = i;
        if (beginsIsolate(line.at(i))) {
            i = endOfIsolate(line, start);
            const QString inner = line.mid(start + 1, i - start - 2);
            const bool isText = line.at(start) == firstStrongIsolate && inner.isRightToLeft();
            result += isText ? ReadingOrder::isolated(isolatedParts(inner)) : line.mid(start, i - start);
        } else if (isRightToLeft(directionAt(line, i))) {
            i = endOfWords(line, start);
            result += line.midRef(start, i - start);
        } else {
            i = endOfRun(line, start);
            result += isolatedRun(line.mid(start, i - start));
        }
    }
    return result;
}

bool hasWords(const QString &line)
{
    for (int i = 0; i < line.size(); ++i) {
        if (beginsIsolate(line.at(i))) {
            i = endOfIsolate(line, i) - 1;
        } else if (isRightToLeft(directionAt(line, i))) {
            return true;
        }
    }
    return false;
}

QString lineOfSentence(const QString &line)
{
    if (!hasWords(line)) {
        return line;
    }
    const QString marked = isolatedParts(line);
    // Text documents go by the first letter, be it isolated or not.
    const auto isStrong = [](QChar character) {
        const QChar::Direction direction = character.direction();
        return direction == QChar::DirL || direction == QChar::DirR || direction == QChar::DirAL;
    };
    const auto *const first = std::find_if(marked.begin(), marked.end(), isStrong);
    const bool isMisled = first != marked.end() && first->direction() == QChar::DirL;
    return isMisled ? rightToLeftMark + marked : marked;
}
}

QString ReadingOrder::isolated(const QString &text)
{
    return firstStrongIsolate + text + popDirectionalIsolate;
}

QString ReadingOrder::leftToRight(const QString &text)
{
    return leftToRightIsolate + text + popDirectionalIsolate;
}

QString ReadingOrder::ofValue(const QString &value)
{
    if (!QGuiApplication::isRightToLeft() || value.isEmpty()) {
        return value;
    }
    return value.isRightToLeft() ? isolatedParts(value) : leftToRight(value);
}

QString ReadingOrder::ofSentence(const QString &sentence)
{
    if (!QGuiApplication::isRightToLeft()) {
        return sentence;
    }
    QStringList lines = sentence.split(QLatin1Char('\n'));
    std::transform(lines.begin(), lines.end(), lines.begin(), lineOfSentence);
    return lines.join(QLatin1Char('\n'));
}

bool ReadingOrder::isMark(QChar character)
{
    return character == rightToLeftMark || beginsIsolate(character) || character == popDirectionalIsolate;
}

QString ReadingOrder::withoutMarks(const QString &text)
{
    QString result;
    result.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(result), [](QChar c) { return !isMark(c); });
    return result;
}

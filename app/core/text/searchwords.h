/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SEARCHWORDS_H
#define SEARCHWORDS_H

#include <QStringList>
#include <QVector>

/** A search for texts that contain each of some words, in upper or lower case. */
class SearchWords
{
public:
    struct Word {
        QString text;
        /** Whether it can occur in a decimal number. */
        bool isNumber;

        bool isIn(const QString &other) const;
        bool isIn(const QStringList &others) const;
        bool isIn(uint number) const;
    };

    /** A part of a text. */
    struct Hit {
        int start;
        int length;
    };

    SearchWords() = default;

    /** The words in @p text, which are separated by spaces. */
    explicit SearchWords(const QString &text);

    bool isEmpty() const;
    const QVector<Word> &words() const;

    /** Where the words occur in @p text, in order. The parts do not overlap or touch each other. */
    QVector<Hit> hitsIn(const QString &text) const;

private:
    QVector<Word> m_words;
};

Q_DECLARE_TYPEINFO(SearchWords::Word, Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(SearchWords::Hit, Q_PRIMITIVE_TYPE);

#endif

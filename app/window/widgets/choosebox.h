/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CHOOSEBOX_H
#define CHOOSEBOX_H

#include <QGroupBox>

class NoteLabel;
class QLineEdit;
class QPlainTextEdit;

/** A user or group, typed or chosen, and what is chosen for it: groups of a user, members of a group. */
class ChooseBox : public QGroupBox
{
    Q_OBJECT

public:
    struct Texts {
        QString title;
        QString name;
        QString anyName;
        QString chooseName;
        QString chooseNameDescription;
        QString chooseSeveral;
        QString chosen;
        QString noneChosen;
    };

    explicit ChooseBox(const Texts &texts);

    QString name() const;
    void setName(const QString &name);

    /** Says what is wrong with the name, until it is changed. */
    void setNote(const QString &note);

    /** Shows what is chosen for the name, until that is changed. */
    void setChosen(const QString &text);

Q_SIGNALS:
    void nameWanted();
    void severalWanted();

private:
    QLineEdit *m_nameEdit;
    NoteLabel *m_note;
    QPlainTextEdit *m_chosenEdit;
};

#endif

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef NOTELABEL_H
#define NOTELABEL_H

#include <QLabel>

class QLineEdit;

/** A line of text about the contents of a line edit, visible only while there is something to say. */
class NoteLabel : public QLabel
{
    Q_OBJECT

public:
    /** The note on @p edit, which is named after it. */
    explicit NoteLabel(QLineEdit *edit);

    /** Shows @p note, which screen readers read out for the line edit; hides the label when it is empty. */
    void setNote(const QString &note);

private:
    QLineEdit *m_edit;
};

#endif

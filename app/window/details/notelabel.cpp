/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "notelabel.h"

#include "readingorder.h"

#include <QLineEdit>

NoteLabel::NoteLabel(QLineEdit *edit)
    : m_edit(edit)
{
    setObjectName(edit->objectName() + QLatin1String("Note"));
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    hide();
}

void NoteLabel::setNote(const QString &note)
{
    setText(ReadingOrder::ofSentence(note));
    setVisible(!note.isEmpty());
    m_edit->setAccessibleDescription(note);
}

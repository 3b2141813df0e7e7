/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "formrow.h"

#include <QAbstractButton>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

void addRow(QFormLayout *form, const QString &text, const QVector<QWidget *> &widgets, QWidget *note)
{
    auto *line = new QHBoxLayout;
    for (QWidget *widget : widgets) {
        line->addWidget(widget);
        if (const auto *button = qobject_cast<QAbstractButton *>(widget)) {
            makeRoomForMnemonic(widget, button->text());
        }
    }
    if (!(widgets.first()->sizePolicy().expandingDirections() & Qt::Horizontal)) {
        line->addStretch();
    }
    // One row for both: a row of its own would leave its spacing behind while the note is hidden.
    auto *field = new QVBoxLayout;
    field->addLayout(line);
    if (note) {
        field->addWidget(note);
    }
    auto *label = new QLabel(text);
    label->setBuddy(widgets.first());
    makeRoomForMnemonic(label, text);
    // Keeps the label beside the first line of the row, whether or not there is a second one.
    label->setMaximumHeight(widgets.first()->sizeHint().height());
    form->addRow(label, field);
}

void makeRoomForMnemonic(QWidget *widget, const QString &text)
{
    const int letter = text.indexOf(QLatin1Char('&')) + 1;
    if (letter == 0) {
        return;
    }
    const QFontMetrics metrics = widget->fontMetrics();
    const int joined = metrics.horizontalAdvance(text.left(letter - 1) + text.mid(letter));
    const int apart = metrics.horizontalAdvance(text.left(letter - 1)) + metrics.horizontalAdvance(text.mid(letter, 1))
        + metrics.horizontalAdvance(text.mid(letter + 1));
    if (apart > joined) {
        widget->setMinimumWidth(widget->sizeHint().width() + apart - joined);
    }
}

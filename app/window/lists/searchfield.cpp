/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "searchfield.h"

#include <KLocalizedString>

#include <QKeyEvent>
#include <QToolButton>

SearchField::SearchField(QWidget *parent)
    : QLineEdit(parent)
{
    setClearButtonEnabled(true);
    if (auto *button = findChild<QToolButton *>()) {
        button->setAccessibleName(i18nc("@action:button of a search field", "Clear"));
    }
}

bool SearchField::event(QEvent *event)
{
    // Otherwise Esc would stop what the window is doing before it clears the field.
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape
        && !text().isEmpty()) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void SearchField::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        if (text().isEmpty()) {
            event->ignore();
        } else {
            clear();
        }
        return;
    case Qt::Key_Down:
    case Qt::Key_PageDown:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT listWanted();
        return;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

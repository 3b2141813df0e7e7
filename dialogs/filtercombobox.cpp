/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "filtercombobox_p.h"

#include <QAbstractItemView>
#include <QChildEvent>

bool FilterComboBox::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ChildAdded) {
        QObject *child = static_cast<QChildEvent *>(event)->child();
        // QComboBox adds the view when it is complete.
        auto *list = qobject_cast<QAbstractItemView *>(child); // clazy:exclude=child-event-qobject-cast
        if (list) {
            list->setAccessibleName(accessibleName());
        }
    }
    return QComboBox::eventFilter(watched, event);
}

void FilterComboBox::childEvent(QChildEvent *event)
{
    if (event->added()) {
        event->child()->installEventFilter(this);
    }
    QComboBox::childEvent(event);
}

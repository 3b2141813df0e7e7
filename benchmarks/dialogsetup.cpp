/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "dialogsetup.h"

#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QTreeView>

namespace
{
/** Notices when a widget was painted. */
class PaintWatcher : public QObject
{
public:
    explicit PaintWatcher(QWidget *widget)
    {
        widget->installEventFilter(this);
    }

    bool isPainted() const
    {
        return m_painted;
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        m_painted = m_painted || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool m_painted = false;
};
}

void waitUntilPainted(QWidget &widget, const std::function<void()> &work)
{
    const PaintWatcher watcher(&widget);
    work();
    while (!watcher.isPainted()) {
        QCoreApplication::processEvents();
    }
}

QTreeView *treeView(const QDialog &dialog)
{
    return dialog.findChild<QTreeView *>(QStringLiteral("usersTreeView"));
}

int paintAfter(const QDialog &dialog, const std::function<void()> &work)
{
    waitUntilPainted(*treeView(dialog)->viewport(), work);
    return treeView(dialog)->model()->rowCount();
}

int paint(QDialog &dialog)
{
    return paintAfter(dialog, [&dialog] { dialog.show(); });
}

GroupInfo sharedGroup()
{
    return GroupInfo::getGroup(QStringLiteral("shared200"));
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountdialogs.h"

#include <UserIconDialog>

#include <KLocalizedString>

#include <QAccessibleWidget>
#include <QFrame>
#include <QLineEdit>
#include <QToolButton>
#include <QTreeView>

namespace
{
/** A widget that draws a picture is a mere container to Qt. */
QAccessibleInterface *createPicture(const QString &className, QObject *object)
{
    if (className != QLatin1String("IconSelectWidget") || !object->isWidgetType()) {
        return nullptr;
    }
    return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::Graphic);
}
}

void AccountDialogs::prepareSelection(QDialog &dialog)
{
    if (auto *view = dialog.findChild<QTreeView *>()) {
        view->sortByColumn(0, Qt::AscendingOrder);
    }
    if (const auto *filter = dialog.findChild<QLineEdit *>(QStringLiteral("filterLineEdit"))) {
        if (auto *button = filter->findChild<QToolButton *>()) {
            button->setAccessibleName(i18nc("@action:button of a search field", "Clear"));
        }
    }
}

void AccountDialogs::prepareIcon(UserIconDialog &dialog)
{
    QAccessible::installFactory(createPicture);
    if (const auto *frame = dialog.findChild<QFrame *>(QStringLiteral("previewFrame"))) {
        if (auto *picture = frame->findChild<QWidget *>()) {
            picture->setAccessibleName(
                i18nc("@info name of a part for screen readers", "Picture with a marked square"));
        }
    }
}

bool AccountDialogs::cutIcon(QPixmap &picture, QWidget *parent)
{
    UserIconDialog dialog(parent);
    prepareIcon(dialog);
    if (picture.isNull()) {
        dialog.on_fileButton_clicked(false);
    } else {
        dialog.setPixmap(picture);
    }
    const bool isAccepted = dialog.exec() == QDialog::Accepted;
    picture = dialog.selectedPixmap();
    return isAccepted;
}

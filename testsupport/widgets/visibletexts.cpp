/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "visibletexts.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QVariant>
#include <QWidget>

namespace
{
const char *const textProperties[] = {
    "accessibleDescription",
    "accessibleName",
    "placeholderText",
    "statusTip",
    "text",
    "title",
    "toolTip",
    "whatsThis",
    "windowTitle",
};

QStringList itemTexts(const QAbstractItemModel &model)
{
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column) {
        for (int row = 0; row < model.rowCount(); ++row) {
            const QModelIndex index = model.index(row, column);
            texts.append(index.data(Qt::DisplayRole).toString());
            texts.append(index.data(Qt::ToolTipRole).toString());
        }
    }
    return texts;
}

QStringList headerTexts(const QHeaderView &header)
{
    QStringList texts;
    for (int section = 0; section < header.count(); ++section) {
        texts.append(header.model()->headerData(section, header.orientation()).toString());
    }
    return texts;
}

QStringList ownTexts(const QWidget &widget)
{
    QStringList texts;
    for (const char *property : textProperties) {
        texts.append(widget.property(property).toString());
    }
    if (const auto *comboBox = qobject_cast<const QComboBox *>(&widget)) {
        texts += itemTexts(*comboBox->model());
    } else if (const auto *header = qobject_cast<const QHeaderView *>(&widget)) {
        texts += header->isHidden() ? QStringList() : headerTexts(*header);
    } else if (const auto *view = qobject_cast<const QAbstractItemView *>(&widget)) {
        texts += view->model() ? itemTexts(*view->model()) : QStringList();
    }
    return texts;
}
}

QStringList visibleTexts(const QWidget &window)
{
    QStringList texts = ownTexts(window);
    const auto widgets = window.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (!qobject_cast<const QDialogButtonBox *>(widget->parentWidget())) {
            texts += ownTexts(*widget);
        }
    }
    texts.removeAll(QString());
    return texts;
}

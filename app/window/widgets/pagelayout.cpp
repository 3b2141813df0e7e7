/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "pagelayout.h"

#include "partsplitter.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QVBoxLayout>

namespace
{
/** Keeps the parts apart as well. */
constexpr int handleWidth = 12;
}

QLabel *PageLayout::addRow(QGridLayout *layout, const QString &title, QWidget *field)
{
    auto *label = new QLabel(title, field->parentWidget());
    label->setBuddy(field);
    const int row = layout->rowCount();
    layout->addWidget(label, row, 0, Qt::AlignTop);
    layout->addWidget(field, row, 1);
    layout->setColumnStretch(1, 1);
    return label;
}

PartSplitter *PageLayout::split(Qt::Orientation orientation, const QString &objectName, const QVector<QWidget *> &parts)
{
    auto *splitter = new PartSplitter(orientation);
    splitter->setObjectName(objectName);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(handleWidth);
    if (orientation == Qt::Horizontal && QGuiApplication::isRightToLeft()) {
        // Qt puts the parts one pixel too far to the right then.
        splitter->setContentsMargins(0, 0, 1, 0);
    }
    for (QWidget *part : parts) {
        splitter->addWidget(part);
    }
    return splitter;
}

PartSplitter *PageLayout::arrange(QWidget *page, QWidget *list, const QVector<QWidget *> &parts)
{
    PartSplitter *right = split(Qt::Vertical, list->objectName() + QStringLiteral("Parts"), parts);
    PartSplitter *both = split(Qt::Horizontal, list->objectName() + QStringLiteral("Columns"), {list, right});
    // A larger window gives more room to the details of the account, and there to the tables.
    both->setStretchFactor(1, 1);
    right->setStretchFactor(parts.size() - 1, 1);
    auto *layout = new QVBoxLayout(page);
    layout->addWidget(both);
    return both;
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PAGELAYOUT_H
#define PAGELAYOUT_H

#include <QWidget>

class PartSplitter;
class QGridLayout;
class QLabel;

/** What the layouts of the pages have in common. */
namespace PageLayout
{
/**
 * Adds a field to a column of fields. Its title stays at the top beside a field with more than one line.
 *
 * In a QFormLayout, hidden rows would leave their spacing behind, and wrapped texts would all be equally high.
 *
 * @return the title
 */
QLabel *addRow(QGridLayout *layout, const QString &title, QWidget *field);

/** Parts with borders that the operator can move. The object name is also the key in the settings. */
PartSplitter *split(Qt::Orientation orientation, const QString &objectName, const QVector<QWidget *> &parts);

/** A list beside @p parts, which are one above the other, with borders that can be moved. */
PartSplitter *arrange(QWidget *page, QWidget *list, const QVector<QWidget *> &parts);
}

#endif

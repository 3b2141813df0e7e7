/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef HITDELEGATE_H
#define HITDELEGATE_H

#include "lefttoright.h"

#include <QPointer>

class RecordModel;

/** Draws the cells of a RecordModel. Marks what is searched for and what has just changed. */
class HitDelegate : public LeftToRight::Delegate
{
    Q_OBJECT

public:
    using LeftToRight::Delegate::Delegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    static void paintHits(QPainter &painter, const QStyleOptionViewItem &option, const RecordModel &model);
};

#endif

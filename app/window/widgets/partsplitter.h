/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PARTSPLITTER_H
#define PARTSPLITTER_H

#include <QSplitter>

/**
 * Parts with borders that the operator can move. Until somebody does, each part but the last has the size
 * of its hint, also when the hint changes.
 */
class PartSplitter : public QSplitter
{
    Q_OBJECT

public:
    explicit PartSplitter(Qt::Orientation orientation, QWidget *parent = nullptr);

    QSize sizeHint() const override;

    /** Puts the parts one above the other where there is too little room for them side by side. */
    void setStacking(bool stacking);

    /** The borders that the operator has moved; empty for none. */
    QByteArray saveBorders() const;
    void restoreBorders(const QByteArray &state);

protected:
    bool event(QEvent *event) override;

private:
    bool hasRoomForColumns() const;
    void stackParts();
    void fitParts();

    bool m_stacking = false;
    bool m_moved = false;
};

#endif
